#include "dialogs/frmAbout.h"

#include <charconv>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <string>

#include "platform/Fault.h"
#include "platform/Platform.h"
#include "platform/Version.h"

namespace tessarine {

namespace {

constexpr const char* kToolPathKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
constexpr const char* kToolPathValue = "PATH";
constexpr const char* kToolDirectoryKey = R"(SOFTWARE\Microsoft\Shared Tools Location)";
constexpr const char* kToolDirectoryValue = "MSINFO";
constexpr const char* kToolName = R"(\MSINFO32.EXE)";

constexpr std::uint32_t kAllAccess = 0x2003F;
constexpr long kSuccess = 0;
constexpr std::uint32_t kTypeText = 1;
constexpr std::uint32_t kTypeDoubleWord = 4;

// The bytes from the last to the first, each in hexadecimal without padding, read as one number in decimal
// digits.
std::string doubleWordText(const std::string& bytes) {
  std::string digits;
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
    char text[2] = {};
    const auto end = std::to_chars(text, text + 2, static_cast<unsigned char>(*byte), 16).ptr;
    digits.append(text, end);
  }
  std::uint64_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  return std::to_string(number);
}

}  // namespace

frmAbout::frmAbout(forms::FormList& forms, Module1& module)
    : Form(forms, "frmAbout", "About"), module_(module) {
  Place.start(forms::at(0, 0, 6580, 3000));
}

void frmAbout::Form_Load() {
  Caption = std::string("About ") + kApplicationTitle;
  lblTitle.Caption = kApplicationTitle;
  // The revision line stays as the program's users know it.
  lblDescription.Caption =
      std::string("Synthesizer Control, version ") + applicationVersion() +
      ", for PLL evaluation boards. It works out register words from frequencies, sends them to the chip and "
      "checks them on the wires. F12 opens the window of the board.";
}

void frmAbout::cmdOK_Click() { Unload(); }

void frmAbout::cmdSysInfo_Click() { StartSysInfo(); }

void frmAbout::StartSysInfo() {
  try {
    module_.platform.host.startProgram(toolPath());
  } catch (const std::exception&) {
    // Whatever failed on the way, the operator reads the one message.
    module_.platform.screen.messageBox("System Information Is Unavailable At This Time", Icon::plain);
  }
}

std::string frmAbout::toolPath() {
  std::string path;
  if (GetKeyValue(kHKeyLocalMachine, kToolPathKey, kToolPathValue, path)) return path;
  if (GetKeyValue(kHKeyLocalMachine, kToolDirectoryKey, kToolDirectoryValue, path) &&
      std::filesystem::exists(path + kToolName)) {
    return path + kToolName;
  }
  throw Fault("The host names no system information tool");
}

bool frmAbout::GetKeyValue(std::uint32_t KeyRoot, const std::string& KeyName, const std::string& SubKeyRef,
                           std::string& KeyVal) {
  Host& host = module_.platform.host;
  std::uintptr_t handle = 0;
  std::uint32_t type = 0;
  std::string data;
  const bool read = host.RegOpenKeyExA(KeyRoot, KeyName, kAllAccess, handle) == kSuccess &&
                    host.RegQueryValueExA(handle, SubKeyRef, type, data) == kSuccess;
  if (!read) {
    KeyVal.clear();
    host.RegCloseKey(handle);
    return false;
  }
  if (data.ends_with('\0')) data.pop_back();
  if (type == kTypeText) KeyVal = data;
  if (type == kTypeDoubleWord) KeyVal = doubleWordText(data);
  host.RegCloseKey(handle);
  return true;
}

}  // namespace tessarine
