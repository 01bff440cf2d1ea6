#include "transport/WayOut.h"

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Access = FakePort::Access;

TEST(WayOut, HostsOfTheNTFamilyNeedTheDriver) {
  const struct {
    std::optional<HostVersion> version;
    Integer expected;
  } rows[] = {{HostVersion{2, 4, 0}, kTrue},   {HostVersion{2, 5, 0}, kTrue},
              {HostVersion{2, 5, 1}, kTrue},   {HostVersion{2, 6, 0}, kTrue},
              {HostVersion{2, 3, 51}, kFalse}, {HostVersion{1, 4, 10}, kFalse},
              {HostVersion{1, 6, 0}, kFalse},  {std::nullopt, kFalse}};
  for (const auto& row : rows) {
    FakeHost host;
    host.version = row.version;
    EXPECT_EQ(IsNTHost(host), row.expected)
        << (row.version ? row.version->platform * 100 + row.version->major : -1);
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

TEST(WiringDialog, PinsBecomeMasks) {
  const struct {
    const char* clock;
    const char* data;
    const char* load;
    int masks[3];
    const char* message;
  } rows[] = {
      {"9", "8", "7", {128, 64, 32}, nullptr},
      {"2", "2", "2", {1, 1, 1}, nullptr},
      {"2.5", "3", "4", {1, 2, 4}, nullptr},
      {" 5x", "3", "4", {8, 2, 4}, nullptr},
      {"1", "10", "4", {1, 2, 4}, "Pin number between 2-9 only !!"},
      {"2", "3", "", {1, 2, 4}, "Pin number between 2-9 only !!"},
      {"2", "nine", "4", {1, 2, 4}, "Pin number between 2-9 only !!"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.clock);
    ProgramBench bench;
    bench.open();
    bench.pick("ADF4113");
    bench.click("Parallel");
    bench.set("ParallelForm.LPTwText(0)", row.clock);
    bench.set("ParallelForm.LPTwText(1)", row.data);
    bench.set("ParallelForm.LPTwText(2)", row.load);
    bench.set("ParallelForm.ParallelText", "278");
    bench.forget();
    bench.click("ParallelForm.OKButton");
    EXPECT_EQ(bench.pll.CLOCKbit, row.masks[0]);
    EXPECT_EQ(bench.pll.DATAbit, row.masks[1]);
    EXPECT_EQ(bench.pll.LEbit, row.masks[2]);
    EXPECT_EQ(bench.window.parallelForm.Visible, row.message != nullptr);
    if (row.message) {
      EXPECT_EQ(bench.host.screen.messages,
                (std::vector<Message>{{row.message, Icon::critical, "Tessarine"}}));
      EXPECT_EQ(bench.program.module.PortAddress, 888);
      EXPECT_TRUE(bench.host.port.accesses.empty());
    } else {
      EXPECT_EQ(bench.host.port.accesses, (std::vector<Access>{{Access::Kind::write, 634, 0, true},
                                                               {Access::Kind::write, 632, 0, true}}));
    }
  }
}

TEST(WiringDialog, AddressIsReadAsHexadecimal) {
  const struct {
    const char* text;
    Integer address;
  } rows[] = {{" 3BC ", 956}, {"3bcz", 956}, {"z", 0}, {"", 0}, {"FFFF", -1}, {"8000", -32768}};
  for (const auto& row : rows) {
    ProgramBench bench;
    bench.open();
    bench.click("Parallel");
    bench.set("ParallelForm.ParallelText", row.text);
    bench.click("ParallelForm.OKButton");
    EXPECT_EQ(bench.program.module.PortAddress, row.address) << row.text;
  }
  ProgramBench bench;
  bench.open();
  bench.click("Parallel");
  bench.set("ParallelForm.ParallelText", "12345");
  bench.click("ParallelForm.OKButton");
  EXPECT_EQ(bench.messages(),
            std::vector<std::string>{
                "Parallel port Address = 12345 (hexadecimal) does not fit 16 bits (0 to FFFF)"});
  EXPECT_EQ(bench.program.module.PortAddress, 888);
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
