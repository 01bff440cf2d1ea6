#include <map>
#include <string>
#include <vector>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

constexpr const char* kPath = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO\\PATH";
constexpr const char* kDirectory = "SOFTWARE\\Microsoft\\Shared Tools Location\\MSINFO";
const Message kUnavailable{"System Information Is Unavailable At This Time", Icon::plain, "Tessarine"};

TEST(AboutBox, NamesTheProgramBesideALivingWindow) {
  ProgramBench bench;
  bench.open();
  bench.click("About1");
  EXPECT_EQ(bench.window.aboutForm.Caption.get(), "About Tessarine");
  EXPECT_EQ(bench.value("frmAbout.lblTitle"), "Tessarine");
  EXPECT_EQ(bench.value("frmAbout.lblVersion"), "Rev. B1");
  EXPECT_TRUE(bench.value("frmAbout.lblDescription").starts_with("Synthesizer Control"));
  bench.click("Hop1");
  bench.click("frmAbout.cmdOK");
  EXPECT_FALSE(bench.window.aboutForm.Visible);
}

TEST(AboutBox, StartsTheToolOrSaysThatThereIsNone) {
  const struct {
    std::map<std::string, FakeHost::RegistryValue> registry;
    bool startFails;
    Texts started;
  } rows[] = {
      {{{kPath, {1, "C:\\tool.exe"}}, {kDirectory, {1, "x"}}}, false, {"C:\\tool.exe"}},
      {{{kPath, {1, "C:\\tool.exe"}}}, true, {"C:\\tool.exe"}},
      {{{kDirectory, {1, testing::TempDir() + "nowhere"}}}, false, {}},
      {{}, false, {}},
  };
  for (const auto& row : rows) {
    ProgramBench bench;
    bench.host.host.registry = row.registry;
    bench.host.host.startFails = row.startFails;
    bench.click("About1");
    bench.click("frmAbout.cmdSysInfo");
    EXPECT_EQ(bench.host.host.programs, row.started);
    const bool runs = !row.started.empty() && !row.startFails;
    EXPECT_EQ(bench.host.screen.messages, runs ? std::vector<Message>{} : std::vector{kUnavailable});
    EXPECT_TRUE(bench.window.aboutForm.Visible);
  }
}

TEST(AboutBox, ReadsRegistryValuesOfBothTypesAndClosesEachKey) {
  using Value = FakeHost::RegistryValue;
  const struct {
    std::map<std::string, Value> registry;
    bool read;
    const char* text;
  } rows[] = {
      {{{"key\\value", Value{1, {"C:\\x\0", 5}}}}, true, "C:\\x"},
      {{{"key\\value", Value{1, "C:\\x"}}}, true, "C:\\x"},
      // "0" "0" "2" "10" in hexadecimal
      {{{"key\\value", Value{4, {"\x10\x02\x00\x00", 4}}}}, true, "528"},
      {{{"key\\value", Value{4, "\xff\xff\xff\xff"}}}, true, "4294967295"},
      {{{"key\\value", Value{3, "abc"}}}, true, "as it came in"},
      {{}, false, ""},
      {{{"key\\other", Value{1, "C:\\x"}}}, false, ""},
  };
  for (const auto& row : rows) {
    ProgramBench bench;
    FakeHost& host = bench.host.host;
    host.registry = row.registry;
    std::string text = "as it came in";
    EXPECT_EQ(bench.window.aboutForm.GetKeyValue(kHKeyLocalMachine, "key", "value", text), row.read);
    EXPECT_EQ(text, row.text);
    EXPECT_EQ(host.calls, (Texts{"open 80000002 2003f", "close"}));
  }
}

}  // namespace
}  // namespace tessarine
