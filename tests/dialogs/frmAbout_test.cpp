#include "support/ProgramBench.h"

namespace tessarine {
namespace {

constexpr const char* kUnavailable = "System Information Is Unavailable At This Time";
constexpr const char* kPath = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO\\PATH";
constexpr const char* kDirectory = "SOFTWARE\\Microsoft\\Shared Tools Location\\MSINFO";

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
  const std::string directory = testing::TempDir();
  const struct {
    std::map<std::string, std::string> registry;
    bool startFails;
    std::vector<std::string> started;
  } rows[] = {
      {{{kPath, "C:\\tool.exe"}, {kDirectory, "x"}}, false, {"C:\\tool.exe"}},
      {{{kPath, "C:\\tool.exe"}}, true, {"C:\\tool.exe"}},
      {{{kDirectory, directory + "nowhere"}}, false, {}},
      {{}, false, {}},
  };
  for (const auto& row : rows) {
    ProgramBench bench;
    bench.host.host.registry = row.registry;
    bench.host.host.startFails = row.startFails;
    bench.click("About1");
    bench.click("frmAbout.cmdSysInfo");
    EXPECT_EQ(bench.host.host.programs, row.started);
    EXPECT_EQ(bench.host.screen.messages,
              row.started.empty() || row.startFails
                  ? (std::vector<Message>{{kUnavailable, Icon::plain, "Tessarine"}})
                  : std::vector<Message>{});
    EXPECT_TRUE(bench.window.aboutForm.Visible);
    EXPECT_TRUE(bench.host.host.openKeys.empty()) << "every key is closed";
  }
}

// A registry whose answers a test sets, and which counts the handles closed.
struct Registry : FakeHost {
  long RegOpenKeyExA(std::uint32_t root, const std::string& key, std::uint32_t access,
                     std::uintptr_t& handle) override {
    asked = {root, access};
    name = key;
    handle = 5;
    return opens ? 0 : 2;
  }
  long RegQueryValueExA(std::uintptr_t, const std::string&, std::uint32_t& type, std::string& data) override {
    type = valueType;
    data = value;
    return queries ? 0 : 2;
  }
  void RegCloseKey(std::uintptr_t handle) override { closed += handle == 5 ? 1 : 100; }

  bool opens = true;
  bool queries = true;
  std::uint32_t valueType = 1;
  std::string value;
  std::pair<std::uint32_t, std::uint32_t> asked;
  std::string name;
  int closed = 0;
};

TEST(AboutBox, ReadsRegistryValuesOfBothTypes) {
  const struct {
    bool opens;
    bool queries;
    std::uint32_t type;
    std::string value;
    bool read;
    const char* text;
  } rows[] = {
      {true, true, 1, std::string("C:\\x\0", 5), true, "C:\\x"},
      {true, true, 1, "C:\\x", true, "C:\\x"},
      {true, true, 4, std::string("\x10\x02\x00\x00", 4), true, "528"},  // "0" "0" "2" "10" in hexadecimal
      {true, true, 4, std::string("\xff\xff\xff\xff", 4), true, "4294967295"},
      {true, true, 3, "abc", true, "as it came in"},
      {false, true, 1, "C:\\x", false, ""},
      {true, false, 1, "C:\\x", false, ""},
  };
  for (const auto& row : rows) {
    Registry registry;
    FakePlatform host;
    Platform platform{host.port, host.port, host.usb, registry, host.clock, host.screen};
    Program program(platform);
    registry.opens = row.opens;
    registry.queries = row.queries;
    registry.valueType = row.type;
    registry.value = row.value;
    std::string text = "as it came in";
    EXPECT_EQ(program.window.aboutForm.GetKeyValue(kHKeyLocalMachine, "key", "value", text), row.read);
    EXPECT_EQ(text, row.text);
    EXPECT_EQ(registry.closed, 1);
    EXPECT_EQ(registry.asked, (std::pair<std::uint32_t, std::uint32_t>{0x80000002, 0x2003F}));
  }
}

}  // namespace
}  // namespace tessarine
