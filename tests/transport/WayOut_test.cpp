#include "transport/WayOut.h"

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Access = FakePort::Access;

TEST(WayOut, HostsOfTheNTFamilyNeedTheDriver) {
  const std::pair<std::optional<HostVersion>, Integer> rows[] = {{HostVersion{2, 4, 0}, kTrue},
                                                                 {HostVersion{2, 6, 0}, kTrue},
                                                                 {HostVersion{2, 3, 51}, kFalse},
                                                                 {HostVersion{1, 4, 10}, kFalse},
                                                                 {std::nullopt, kFalse}};
  for (const auto& [version, expected] : rows) {
    FakeHost host;
    host.version = version;
    EXPECT_EQ(IsNTHost(host), expected) << (version ? version->platform * 100 + version->major : -1);
  }
}

TEST(WayOut, DriverHostGetsItsSecondAndAllLinesLow) {
  ProgramBench bench;
  Pointer during = Pointer::arrow;
  bench.host.screen.at(500, [&] { during = bench.window.MousePointer; });
  bench.click("ContinueCommand");
  EXPECT_EQ(bench.host.host.programs, std::vector<std::string>{"port driver"});
  EXPECT_EQ(during, Pointer::hourglass);
  EXPECT_EQ(bench.window.MousePointer.get(), Pointer::arrow);
  EXPECT_EQ(bench.host.clock.elapsed, FakeClock::kSecond);
  EXPECT_EQ(bench.host.port.accesses, (std::vector<Access>{{Access::Kind::write, 890, 0, true},
                                                           {Access::Kind::write, 888, 0, true},
                                                           {Access::Kind::read, 888, 0, true}}));
  EXPECT_EQ(bench.program.module.PortType, "LPT");
  EXPECT_EQ(bench.program.module.PortAddress, 888);
}

TEST(WayOut, OtherHostsUseTheLibraryWithoutAnyDriver) {
  ProgramBench bench;
  bench.host.host.version = HostVersion{1, 4, 10};
  bench.click("ContinueCommand");
  EXPECT_TRUE(bench.host.host.programs.empty());
  EXPECT_EQ(bench.host.clock.elapsed, 0);
  EXPECT_EQ(bench.host.port.accesses,
            (std::vector<Access>{{Access::Kind::write, 888, 0, false}, {Access::Kind::read, 888, 0, false}}));
}

TEST(WayOut, UsbTouchesNoPort) {
  ProgramBench bench;
  bench.program.module.UseDlPort = 7;
  bench.host.usb.fails = true;
  bench.click("IOOption(1)");
  bench.click("ContinueCommand");
  EXPECT_EQ(bench.host.usb.calls, std::vector<std::string>{"open 0"});
  EXPECT_TRUE(bench.host.port.accesses.empty() && bench.host.host.programs.empty());
  EXPECT_TRUE(bench.messages().empty()) << "a failing interface shows at the first command";
  EXPECT_EQ(bench.program.module.PortType, "USB");
  EXPECT_EQ(bench.program.module.UseDlPort, 7);
  EXPECT_TRUE(bench.visible("GeneralFrame"));
}

TEST(WayOut, NothingStopsTheStart) {
  ProgramBench bench;
  bench.host.host.startFails = true;
  bench.host.port.fails = [](const Access&) { return true; };
  bench.click("ContinueCommand");
  EXPECT_EQ(bench.messages(), std::vector<std::string>{"Error with Output Port Address 888"});
  EXPECT_TRUE(bench.visible("Frame2(0)"));
}

TEST(WiringDialog, PinsBecomeMasksAndTheAddressIsReadAsHexadecimal) {
  constexpr const char* kPins = "Pin number between 2-9 only !!";
  constexpr const char* kAddress =
      "Parallel port Address = 12345 (hexadecimal) does not fit 16 bits (0 to FFFF)";
  const struct {
    const char *clock, *data, *load, *address;
    std::vector<Integer> masks;
    Integer port;
    const char* message = nullptr;
  } rows[] = {
      {"9", "8", "7", "278", {128, 64, 32}, 632},
      {"2", "2", "2", " 3BC ", {1, 1, 1}, 956},
      {"2.5", "3", "4", "3bcz", {1, 2, 4}, 956},
      {" 5x", "3", "4", "", {8, 2, 4}, 0},
      {"2", "3", "4", "FFFF", {1, 2, 4}, -1},
      {"1", "10", "4", "278", {1, 2, 4}, 888, kPins},
      {"2", "3", "", "278", {1, 2, 4}, 888, kPins},
      {"2", "nine", "4", "278", {1, 2, 4}, 888, kPins},
      {"2", "3", "4", "12345", {1, 2, 4}, 888, kAddress},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.clock) + " " + row.address);
    ProgramBench bench;
    bench.open();
    bench.pick("ADF4113");
    bench.click("Parallel");
    bench.set("ParallelForm.LPTwText(0)", row.clock);
    bench.set("ParallelForm.LPTwText(1)", row.data);
    bench.set("ParallelForm.LPTwText(2)", row.load);
    bench.set("ParallelForm.ParallelText", row.address);
    bench.forget();
    bench.click("ParallelForm.OKButton");
    EXPECT_EQ((std::vector{bench.pll.CLOCKbit, bench.pll.DATAbit, bench.pll.LEbit}), row.masks);
    EXPECT_EQ(bench.program.module.PortAddress, row.port);
    if (row.message != nullptr) {
      EXPECT_TRUE(bench.window.parallelForm.Visible);
      EXPECT_EQ(bench.host.screen.messages,
                (std::vector<Message>{{row.message, Icon::critical, "Tessarine"}}));
      EXPECT_TRUE(bench.host.port.accesses.empty());
      continue;
    }
    EXPECT_FALSE(bench.window.parallelForm.Visible);
    const auto port = static_cast<std::uint16_t>(row.port);
    const auto control = static_cast<std::uint16_t>(port + 2);
    EXPECT_EQ(bench.host.port.accesses, (std::vector<Access>{{Access::Kind::write, control, 0, true},
                                                             {Access::Kind::write, port, 0, true}}));
  }
}

TEST(WiringDialog, CancelKeepsTheTextsForTheNextPick) {
  ProgramBench bench;
  bench.open();
  bench.pick("ADF4113");
  bench.click("Parallel");
  bench.set("ParallelForm.LPTwText(0)", "7");
  bench.click("ParallelForm.CancelButton");
  EXPECT_EQ(bench.pll.CLOCKbit, 1);
  bench.pick("ADF4112");
  EXPECT_EQ(bench.pll.CLOCKbit, 32);
  bench.click("Parallel");
  bench.click("ParallelForm.Command1");
  EXPECT_EQ(bench.value("ParallelForm.LPTwText(0)"), "2");
  EXPECT_EQ(bench.pll.CLOCKbit, 32) << "\"Default Value\" confirms nothing";
}

TEST(WiringDialog, UsbHasItsOwnMasks) {
  ProgramBench bench;
  bench.open(1);
  bench.pick("ADF4113");
  EXPECT_EQ(bench.pll.CLOCKbit, 8);
  EXPECT_EQ(bench.pll.DATAbit, 4);
  EXPECT_EQ(bench.pll.LEbit, 2);
  EXPECT_TRUE(bench.host.port.accesses.empty());
}

}  // namespace
}  // namespace tessarine
