#include "transport/WayOut.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using Access = FakePort::Access;
using Accesses = std::vector<Access>;
constexpr auto kWrite = Access::Kind::write;
constexpr auto kRead = Access::Kind::read;

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
  bench.host.host.version = HostVersion{1, 4, 10};
  bench.click("ContinueCommand");
  EXPECT_TRUE(bench.host.host.programs.empty());
  EXPECT_EQ(bench.milliseconds(), 0);
  EXPECT_EQ(bench.host.port.accesses, (Accesses{{kWrite, 888, 0, false}, {kRead, 888, 0, false}}));
}

TEST(WayOut, UsbTouchesNoPort) {
  ProgramBench bench;
  bench.program.module.UseDlPort = 7;
  bench.host.usb.fails = true;
  bench.click("IOOption(1)");
  bench.click("ContinueCommand");
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

TEST(WiringDialog, PinsBecomeMasksAndTheAddressIsReadAsHexadecimal) {
  constexpr const char* kPins = "Pin number between 2-9 only !!";
  constexpr const char* kAddress =
      "Parallel port Address = 12345 (hexadecimal) does not fit 16 bits (0 to FFFF)";
  const struct {
    Texts entries;  // clock, data, load enable, address
    std::vector<Integer> masks;
    Integer port;
    const char* message = nullptr;
  } rows[] = {
      {{"9", "8", "7", "278"}, {128, 64, 32}, 632},
      {{"2", "2", "2", " 3BC "}, {1, 1, 1}, 956},
      {{"2.5", "3", "4", "3bcz"}, {1, 2, 4}, 956},
      {{" 5x", "3", "4", ""}, {8, 2, 4}, 0},
      {{"2", "3", "4", "FFFF"}, {1, 2, 4}, -1},
      {{"1", "3", "4", "278"}, {1, 2, 4}, 888, kPins},
      {{"2", "10", "4", "278"}, {1, 2, 4}, 888, kPins},
      {{"2", "3", "", "278"}, {1, 2, 4}, 888, kPins},
      {{"2", "3", "4", "12345"}, {1, 2, 4}, 888, kAddress},
  };
  const char* const fields[] = {"LPTwText(0)", "LPTwText(1)", "LPTwText(2)", "ParallelText"};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.entries));
    ProgramBench bench("ADF4113");
    bench.click("Parallel");
    for (std::size_t i = 0; i < 4; ++i) bench.set("ParallelForm." + std::string(fields[i]), row.entries[i]);
    bench.click("ParallelForm.OKButton");
    EXPECT_EQ((std::vector{bench.pll.CLOCKbit, bench.pll.DATAbit, bench.pll.LEbit}), row.masks);
    EXPECT_EQ(bench.program.module.PortAddress, row.port);
    EXPECT_EQ(bench.window.parallelForm.Visible, row.message != nullptr);
    if (row.message != nullptr) {
      EXPECT_EQ(bench.host.screen.messages,
                (std::vector<Message>{{row.message, Icon::critical, "Tessarine"}}));
      EXPECT_TRUE(bench.host.port.accesses.empty());
      continue;
    }
    const auto port = static_cast<std::uint16_t>(row.port);
    EXPECT_EQ(bench.host.port.accesses,
              (Accesses{{kWrite, static_cast<std::uint16_t>(port + 2), 0, true}, {kWrite, port, 0, true}}));
  }
}

TEST(WiringDialog, CancelKeepsTheTextsForTheNextPick) {
  ProgramBench bench("ADF4113");
  bench.click("Parallel");
  const Texts fields = {"ParallelForm.LPTwText(0)", "ParallelForm.LPTwText(1)", "ParallelForm.LPTwText(2)"};
  for (const auto& field : fields) bench.set(field, "7");
  bench.click("ParallelForm.CancelButton");
  EXPECT_EQ(bench.pll.CLOCKbit, 1);
  bench.pick("ADF4112");
  EXPECT_EQ(bench.pll.CLOCKbit, 32);
  bench.click("Parallel");
  bench.click("ParallelForm.Command1");
  EXPECT_EQ(bench.value(fields[0]) + bench.value(fields[1]) + bench.value(fields[2]), "234");
  EXPECT_EQ(bench.pll.CLOCKbit, 32) << "\"Default Value\" confirms nothing";
}

}  // namespace
}  // namespace tessarine
