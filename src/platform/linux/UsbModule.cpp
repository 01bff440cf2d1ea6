#include "platform/linux/UsbModule.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"
#include "platform/linux/BitBang.h"

namespace tessarine {
namespace {

constexpr int kVendor = 0x0403;
constexpr std::array<int, 2> kProducts{0x6010, 0x6011};  // two and four channels
constexpr std::array<const char*, 2> kProductNames{"6010", "6011"};

constexpr const char* kDevices = "/sys/bus/usb/devices/";

char portOf(std::string_view name) {
  if (name == "A" || name == "B") return name.front();
  throw Fault("There is no USB port \"" + std::string(name) + "\", only A and B");
}

struct Pin {
  char port = 'B';
  std::uint8_t mask = 0;
};

Pin pinOf(std::string_view name) {
  const bool well =
      name.size() == 2 && (name[0] == 'A' || name[0] == 'B') && name[1] >= '0' && name[1] <= '7';
  if (!well) throw Fault("There is no USB pin \"" + std::string(name) + "\", only A0 to A7 and B0 to B7");
  return {name[0], static_cast<std::uint8_t>(1U << static_cast<unsigned>(name[1] - '0'))};
}

std::uint8_t outputOf(std::string_view name) {
  const Pin pin = pinOf(name);
  if (pin.port != 'B') throw Fault("USB pin " + std::string(name) + " is an input; the outputs are B0 to B7");
  return pin.mask;
}

std::string trimmedText(const std::optional<std::string>& text) {
  return text ? text->substr(0, text->find_last_not_of(" \n") + 1) : std::string();
}

std::string threeDigits(const std::string& number) {
  return number.size() < 3 ? std::string(3 - number.size(), '0') + number : number;
}

// A module as the kernel lists it.
struct Listed {
  std::string name;  // "1-2"
  std::string node;  // "/dev/bus/usb/001/004"
};

std::optional<Listed> listedModule(Kernel& kernel, int device) {
  for (const std::string& name : kernel.entriesOf(kDevices)) {
    const std::string folder = kDevices + name;
    if (trimmedText(kernel.textOf(folder + "/idVendor")) != "0403") continue;
    const std::string product = trimmedText(kernel.textOf(folder + "/idProduct"));
    if (product != kProductNames[0] && product != kProductNames[1]) continue;
    if (device-- > 0) continue;
    return Listed{name, "/dev/bus/usb/" + threeDigits(trimmedText(kernel.textOf(folder + "/busnum"))) + "/" +
                            threeDigits(trimmedText(kernel.textOf(folder + "/devnum")))};
  }
  return std::nullopt;
}

// What has a channel: a driver's name, "usbfs" for a program, empty for nobody. Channel A is interface 0.
std::string driverOf(Kernel& kernel, const Listed& module, char name) {
  const std::string interface = module.name + (name == 'A' ? ":1.0" : ":1.1");
  const std::string link = kernel.linkOf(kDevices + interface + "/driver").value_or("");
  return link.substr(link.rfind('/') + 1);
}

}  // namespace

// libftdi's results do not tell these cases apart; the kernel's own files do.
std::string UsbModule::whyNotOpened(char name, int result, const std::string& text) {
  const auto module = listedModule(kernel_, device_);
  if (!module) return advice::moduleMissing();
  const int node = kernel_.open(module->node, O_RDWR);
  if (node == -EACCES || node == -EPERM) return advice::moduleNotPermitted(module->node);
  if (node >= 0) kernel_.close(node);
  const std::string driver = driverOf(kernel_, *module, name);
  if (driver == "usbfs" || (driver.empty() && result == kFtdiNotClaimed))
    return advice::moduleBusy(name, module->node, "");
  if (!driver.empty()) return advice::moduleBusy(name, module->node, driver);
  return advice::moduleFailed(text);
}

FtdiChannel& UsbModule::opened(char name) {
  std::unique_ptr<FtdiChannel>& channel = place(name);
  if (channel) return *channel;
  auto fresh = library_.channel(name);
  int result = kFtdiNotFound;
  for (const int product : kProducts)
    if (result == kFtdiNotFound) result = fresh->open(kVendor, product, device_);
  if (result < 0) throw Fault(whyNotOpened(name, result, fresh->errorText()));
  channel = std::move(fresh);
  const bool outputs = name == 'B';
  // The rate counts in bit-bang only, so the mode comes first.
  if (channel->setOutputs(outputs ? 0xFF : 0) < 0 || channel->setBaudRate(kBitBangRate) < 0)
    lost(name, advice::moduleGone(channel->errorText()));
  if (outputs) send(std::array<std::uint8_t, 1>{0});
  return *channel;
}

void UsbModule::send(std::span<const std::uint8_t> levels) {
  const int result = channelB_->write(levels);
  if (result < 0) lost('B', advice::moduleGone(channelB_->errorText()));
  const auto sent = static_cast<std::size_t>(result);
  if (sent < levels.size()) lost('B', advice::moduleShort(sent, levels.size()));
}

std::uint8_t UsbModule::pinsOf(char name) {
  std::uint8_t pins = 0;
  FtdiChannel& channel = opened(name);
  if (channel.readPins(pins) < 0) lost(name, advice::moduleGone(channel.errorText()));
  return pins;
}

void UsbModule::lost(char name, const std::string& sentence) {
  rest(name);
  throw Fault(sentence);
}

void UsbModule::rest(char name) noexcept {
  std::unique_ptr<FtdiChannel>& channel = place(name);
  if (!channel) return;
  ignoringErrors("a module that is gone has no pins to bring to rest", [&] {
    if (name == 'B') {
      (void)channel->write(std::array<std::uint8_t, 1>{0});
      // Inputs drift up. Load enable goes first, alone: its edge latches the last word once more, and a clock
      // that drifts up behind it cannot shift a wrong one in.
      (void)channel->setOutputs(static_cast<std::uint8_t>(~loadMask_));
    }
    (void)channel->setOutputs(0);
  });
  channel->close();
  channel.reset();
}

void UsbModule::UsbOpen(int device) {
  const std::lock_guard<Gate> hold(gate_);
  leave();
  device_ = device;
  (void)opened('B');
  (void)opened('A');
}

void UsbModule::UsbClose() {
  const std::lock_guard<Gate> hold(gate_);
  leave();
}

void UsbModule::UsbWritePort(std::string_view port, std::uint8_t pins) {
  if (portOf(port) != 'B') throw Fault("USB port A is an input; the output is port B");
  const std::lock_guard<Gate> hold(gate_);
  (void)opened('B');
  send(std::array<std::uint8_t, 1>{pins});
}

std::uint8_t UsbModule::UsbReadPort(std::string_view port) {
  const char name = portOf(port);
  const std::lock_guard<Gate> hold(gate_);
  return pinsOf(name);
}

void UsbModule::UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                             std::string_view sparePin, int mode, std::string_view word) {
  (void)outputOf(sparePin);  // stays low
  if (mode != 0) throw Fault("USB shift mode " + std::to_string(mode) + " is not 0");
  const ShiftPins pins{outputOf(clockPin), outputOf(dataPin), outputOf(loadPin)};
  const std::lock_guard<Gate> hold(gate_);
  (void)opened('B');
  loadMask_ = pins.load;
  send(shiftedWord(pins, word));
}

std::uint8_t UsbModule::UsbReadPin(std::string_view pin) {
  const Pin wanted = pinOf(pin);
  const std::lock_guard<Gate> hold(gate_);
  return (pinsOf(wanted.port) & wanted.mask) != 0 ? 1 : 0;
}

void UsbModule::leave() noexcept {
  rest('A');
  rest('B');
}

}  // namespace tessarine
