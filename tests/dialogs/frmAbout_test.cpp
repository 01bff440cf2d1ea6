#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Registry = std::map<std::string, FakeHost::RegistryValue>;

TEST(AboutBox, StartsTheToolOrSaysThatThereIsNone) {
  const char* const path = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO\\PATH";
  const char* const folder = "SOFTWARE\\Microsoft\\Shared Tools Location\\MSINFO";
  const std::string place = testing::TempDir() + "tools";
  const std::string tool = place + "\\MSINFO32.EXE";
  std::ofstream(tool).put('x');
  const std::vector<Message> unavailable = {
      {"System Information Is Unavailable At This Time", Icon::plain, "Tessarine"}};
  const struct {
    Registry registry;
    bool startFails;
    Texts started;
    std::vector<Message> told;
  } rows[] = {{{{path, {1, "C:\\tool.exe"}}, {folder, {1, "x"}}}, false, {"C:\\tool.exe"}, {}},
              {{{path, {1, "C:\\tool.exe"}}}, true, {"C:\\tool.exe"}, unavailable},
              {{{folder, {1, place}}}, false, {tool}, {}},
              {{{folder, {1, "nowhere"}}}, false, {}, unavailable},
              {{}, false, {}, unavailable}};
  for (const auto& row : rows) {
    ProgramBench bench;
    bench.host.host.registry = row.registry;
    bench.host.host.startFails = row.startFails;
    bench.click("About1");
    bench.click("frmAbout.cmdSysInfo");
    EXPECT_EQ(bench.host.host.programs, row.started);
    EXPECT_EQ(bench.host.screen.messages, row.told);
    EXPECT_TRUE(bench.window.aboutForm.Visible);
    EXPECT_EQ(bench.value("frmAbout.lblTitle"), "Tessarine");
    EXPECT_TRUE(bench.value("frmAbout.lblDescription").starts_with("Synthesizer Control"));
  }
  std::filesystem::remove(tool);
}

TEST(AboutBox, ReadsRegistryValuesOfBothTypesAndClosesEachKey) {
  const struct {
    Registry registry;
    bool read;
    const char* text;
  } rows[] = {
      {{{"key\\value", {1, {"C:\\x\0", 5}}}}, true, "C:\\x"},
      {{{"key\\value", {1, "C:\\x"}}}, true, "C:\\x"},
      {{{"key\\value", {4, {"\x10\x02\x00\x00", 4}}}}, true, "528"},  // "0" "0" "2" "10" in hexadecimal
      {{{"key\\value", {4, "\xff\xff\xff\xff"}}}, true, "4294967295"},
      {{{"key\\value", {3, "abc"}}}, true, "as it came in"},
      {{}, false, ""},
      {{{"key\\other", {1, "C:\\x"}}}, false, ""}};
  for (const auto& row : rows) {
    ProgramBench bench;
    bench.host.host.registry = row.registry;
    std::string text = "as it came in";
    EXPECT_EQ(bench.window.aboutForm.GetKeyValue(kHKeyLocalMachine, "key", "value", text), row.read);
    EXPECT_EQ(text, row.text);
    EXPECT_EQ(bench.host.host.calls, (Texts{"open 2147483650 131135", "close"}));  // HKLM, all access
  }
}

}  // namespace
}  // namespace tessarine
