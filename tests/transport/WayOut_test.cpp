#include "transport/WayOut.h"

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Access = FakePort::Access;
using Accesses = std::vector<Access>;
constexpr auto kWrite = Access::Kind::write;
constexpr auto kRead = Access::Kind::read;

TEST(WayOut, HostsOfTheNTFamilyNeedTheDriver) {
  FakeHost host;
  for (const auto& [version, expected] : {std::pair{HostVersion{2, 4, 0}, kTrue},
                                          {HostVersion{2, 6, 0}, kTrue},
                                          {HostVersion{2, 3, 51}, kFalse},
                                          {HostVersion{1, 4, 10}, kFalse}}) {
    host.version = version;
    EXPECT_EQ(IsNTHost(host), expected) << version.platform << '.' << version.major;
  }
}

TEST(WayOut, DriverHostGetsItsSecondAndAllLinesLow) {
  ProgramBench bench;
  Pointer during = Pointer::arrow;
  bench.host.screen.at(500, [&] { during = bench.window.MousePointer; });
  bench.click("ContinueCommand");
  EXPECT_EQ(bench.host.host.programs, Texts{"port driver"});
  EXPECT_EQ(during, Pointer::hourglass);
  EXPECT_EQ(bench.window.MousePointer.get(), Pointer::arrow);
  EXPECT_EQ(bench.milliseconds(), 1000);
  EXPECT_EQ(bench.host.port.accesses,
            (Accesses{{kWrite, 890, 0, true}, {kWrite, 888, 0, true}, {kRead, 888, 0, true}}));
  EXPECT_EQ(bench.program.module.PortType, "LPT");
  EXPECT_EQ(bench.program.module.PortAddress, 888);
}

TEST(WayOut, OtherHostsUseTheLibraryWithoutAnyDriver) {
  ProgramBench bench;
  bench.host.host.version.reset();
  bench.click("ContinueCommand");
  EXPECT_TRUE(bench.host.host.programs.empty());
  EXPECT_EQ(bench.milliseconds(), 0);
  EXPECT_EQ(bench.host.port.accesses, (Accesses{{kWrite, 888, 0, false}, {kRead, 888, 0, false}}));
}

TEST(WayOut, UsbTouchesNoPort) {
  ProgramBench bench;
  bench.program.module.UseDlPort = 7;
  bench.host.usb.fails = true;
  bench.open(1);
  EXPECT_EQ(bench.host.usb.calls, Texts{"open 0"});
  EXPECT_TRUE(bench.messages().empty()) << "a failing interface shows at the first command";
  EXPECT_EQ(bench.program.module.PortType, "USB");
  EXPECT_EQ(bench.program.module.UseDlPort, 7);
  EXPECT_TRUE(bench.visible("GeneralFrame"));
  bench.pick("ADF4113");
  EXPECT_TRUE(bench.host.port.accesses.empty() && bench.host.host.programs.empty());
  EXPECT_EQ((std::vector{bench.pll.CLOCKbit, bench.pll.DATAbit, bench.pll.LEbit}),
            (std::vector<Integer>{8, 4, 2}));
}

TEST(WayOut, NothingStopsTheStart) {
  ProgramBench bench;
  bench.host.host.startFails = true;
  bench.host.port.fails = [](const Access&) { return true; };
  bench.click("ContinueCommand");
  EXPECT_EQ(bench.messages(), Texts{"Error with Output Port Address 888"});
  EXPECT_TRUE(bench.visible("Frame2(0)"));
}

const Texts kFields = {"ParallelForm.LPTwText(0)", "ParallelForm.LPTwText(1)", "ParallelForm.LPTwText(2)",
                       "ParallelForm.ParallelText"};

TEST(WiringDialog, PinsBecomeMasksAndTheAddressIsReadAsHexadecimal) {
  const char* const pins = "Pin number between 2-9 only !!";
  const char* const address = "Parallel port Address = 12345 (hexadecimal) does not fit 16 bits (0 to FFFF)";
  const struct {
    Texts entries;  // clock, data, load enable, address
    std::vector<Integer> masks;
    Integer port;
    Texts messages = {};
  } rows[] = {
      {{"9", "8", "7", "278"}, {128, 64, 32}, 632},
      {{"2", "2", "2", " 3BC "}, {1, 1, 1}, 956},
      {{"2.5", "3", "4", "3bcz"}, {1, 2, 4}, 956},
      {{" 5x", "3", "4", ""}, {8, 2, 4}, 0},
      {{"2", "3", "4", "FFFF"}, {1, 2, 4}, -1},
      {{"1", "3", "4", "278"}, {1, 2, 4}, 888, {pins}},
      {{"2", "10", "4", "278"}, {1, 2, 4}, 888, {pins}},
      {{"2", "3", "", "278"}, {1, 2, 4}, 888, {pins}},
      {{"2", "3", "4", "12345"}, {1, 2, 4}, 888, {address}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.entries));
    ProgramBench bench("ADF4113");
    bench.click("Parallel");
    for (std::size_t i = 0; i < kFields.size(); ++i) bench.set(kFields[i], row.entries[i]);
    bench.click("ParallelForm.OKButton");
    EXPECT_EQ((std::vector{bench.pll.CLOCKbit, bench.pll.DATAbit, bench.pll.LEbit}), row.masks);
    EXPECT_EQ(bench.program.module.PortAddress, row.port);
    EXPECT_EQ(bench.messages(), row.messages);
    for (const Message& message : bench.host.screen.messages) EXPECT_EQ(message.icon, Icon::critical);
    const bool refused = !row.messages.empty();
    EXPECT_EQ(bench.window.parallelForm.Visible, refused);
    const auto port = static_cast<std::uint16_t>(row.port);
    const Accesses lowered{{kWrite, static_cast<std::uint16_t>(port + 2), 0, true}, {kWrite, port, 0, true}};
    EXPECT_EQ(bench.host.port.accesses, refused ? Accesses{} : lowered);
  }
}

TEST(WiringDialog, CancelKeepsTheTextsForTheNextPick) {
  ProgramBench bench("ADF4113");
  for (const bool closes : {false, true}) {
    bench.click("Parallel");
    for (const std::size_t i : {0U, 1U, 2U}) bench.set(kFields[i], "7");
    if (closes) (void)bench.program.door.close(bench.window.parallelForm);
    if (!closes) bench.click("ParallelForm.CancelButton");
    EXPECT_EQ(bench.pll.CLOCKbit, 1);
  }
  bench.pick("ADF4112");
  EXPECT_EQ(bench.pll.CLOCKbit, 32);
  bench.click("Parallel");
  bench.click("ParallelForm.Command1");
  EXPECT_EQ(bench.value(kFields[0]) + bench.value(kFields[1]) + bench.value(kFields[2]), "234");
  EXPECT_EQ(bench.pll.CLOCKbit, 32) << "\"Default Value\" confirms nothing";
}

}  // namespace
}  // namespace tessarine
