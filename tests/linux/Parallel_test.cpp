// The parallel port on Linux, by its system calls.
#include <thread>

#include "linux/FakeKernel.h"
#include "platform/linux/LinuxPlatform.h"
#include "support/Sum.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::uint16_t kData = 0x378;
constexpr std::uint16_t kControl = 0x37A;
constexpr const char* kActive = "/proc/sys/dev/parport/parport0/devices/active";
constexpr const char* kIoports =
    "0000-0cf7 : PCI Bus 0000:00\n  0378-037a : parport0\n  03f8-03ff : serial\n  0060-0060 : keyboard\n";

struct Parallel : ::testing::Test {
  void write(std::uint16_t address, std::uint8_t value) { host.driver.DlPortWritePortUchar(address, value); }
  std::uint8_t read(std::uint16_t address = kData) { return host.driver.DlPortReadPortUchar(address); }
  std::string faultOfWrite(std::uint16_t address = kData) {
    return faultOf([&] { write(address, 1); });
  }

  FakeKernel kernel;
  LibFtdi ftdi;
  LinuxPlatform host{kernel, ftdi, [] {}};
};

TEST_F(Parallel, PpdevIsClaimedAloneSetToRestAndRestored) {
  kernel.addPort(kData, "parport3");
  EXPECT_NE(faultOfWrite(0x379), "no fault");  // which is over with the next access
  write(kControl, 0);
  EXPECT_THAT(kernel.taken(), ElementsAre("open /dev/parport3", "flock", "PPEXCL", "PPCLAIM", "PPRCONTROL",
                                          "PPDATADIR 0", "PPWDATA 00", "PPWCONTROL 00"));
  write(kData, 0x2F);
  write(kControl, 0x24);  // bit 5 would turn the lines into inputs
  EXPECT_EQ(read(), 0x2F);
  EXPECT_THAT(kernel.taken(), ElementsAre("PPWDATA 2F", "PPWCONTROL 04", "PPRDATA")) << "one call each";
  EXPECT_EQ(host.whyNotOpen(), "");
  host.leave();
  EXPECT_THAT(kernel.taken(), ElementsAre("PPWDATA 00", "PPWCONTROL 0C", "PPRELEASE", "close"));
}

TEST_F(Parallel, RawAccessStandsInWhereNoDriverHasTheAddress) {
  kernel.addPort(kData, "");
  kernel.addPort(0x278, "parport0");
  kernel.nodes["/dev/port"] = 0;
  kernel.outb(kControl, 0xEC);  // the upper two bits are no register
  kernel.files["/proc/ioports"] = kIoports;
  write(kControl, 0);
  write(kData, 4);
  EXPECT_EQ(read(), 4);
  EXPECT_THAT(kernel.taken(), ElementsAre("open /dev/port", "pread 37A", "pwrite 378 00", "pwrite 37A 00",
                                          "pwrite 378 04", "pread 378"));
  host.leave();
  EXPECT_EQ(kernel.at(kData), 0);
  EXPECT_EQ(kernel.at(kControl), 0x2C);

  // The node takes nothing beyond its end, and calls that no error.
  write(kData, 1);
  kernel.broken = true;
  EXPECT_NE(faultOfWrite(), "no fault");
}

TEST_F(Parallel, OnlyTheReadBackTellsOfAPortThatIsNotThere) {
  kernel.nodes["/dev/port"] = 0;
  write(kData, 0);
  EXPECT_EQ(host.whyNotOpen(), "");
  EXPECT_EQ(read(), 0xFF);
  const std::string missing = "Parallel port 378 is missing: nothing answers at this address (it reads FF)";
  EXPECT_THAT(host.whyNotOpen(), advises(missing + ", and the kernel's driver knows no port. Type: "));
  kernel.addPort(0x278, "parport0");
  EXPECT_THAT(host.whyNotOpen(), advises(missing + "; the kernel knows 278. Enter that address"));
  kernel.files["/proc/sys/dev/parport/parport1/base-addr"] = "888\t0\n";
  EXPECT_THAT(host.whyNotOpen(), advises(missing + ", though the kernel's driver was told of it. To let"));
  // One that holds a line is another matter, and one that gives in is none.
  kernel.addPort(kData, "");
  write(kData, 4);
  kernel.outb(kData, 0);
  EXPECT_EQ(read(), 0);
  EXPECT_THAT(host.whyNotOpen(), advises("Parallel port 378 reads 0 where 4 was written: "));
  kernel.outb(kData, 4);
  EXPECT_EQ(read(), 4);
  EXPECT_EQ(host.whyNotOpen(), "");
}

TEST_F(Parallel, DoesAsItDidWhateverStandsInTheWay) {
  Chance chance;
  std::set<std::string> told;
  kernel.addPort(kData, "parport0");
  kernel.addPort(0x278, "");
  kernel.othersRegistered = true;
  std::string all = hexByte(read());  // with nobody to be told
  const std::string known = "/proc/sys/dev/parport/parport0/base-addr";
  for (int i = 0; i < 10000; ++i) {
    if (i == 500) host.notice = [&](const std::string& text) { all += "! " + text + '\n'; };
    kernel.now += chance.oneOf({0.0, 0.3, 0.99, 1.0});
    const auto address = chance.oneOf<std::uint16_t>(
        {kData, kData, kData, kData, kData, kControl, 0x278, 0x27A, 0x379, 0x3F8, 0xFC, 0x100});
    const auto value = static_cast<std::uint8_t>(chance.random());
    LinuxPort& way = chance.once(2) ? host.library : host.driver;
    switch (chance.random() % 32) {
      case 0:
        kernel.nodes["/dev/parport0"] = chance.result();
        break;
      case 1:
        kernel.nodes["/dev/port"] = chance.result();
        break;
      case 2:
        kernel.flockResult = chance.oneOf({0, 0, 0, 0, -EWOULDBLOCK, -EIO});
        break;
      case 3:
        kernel.files[kActive] = chance.oneOf({"none\n", "none\n", "none\n", "none\n", "lp\n", "ppdev0\n"});
        kernel.othersRegistered = kernel.files[kActive] != "none\n" || chance.once(3);
        kernel.othersExclusive = chance.once(8);
        if (kernel.othersRegistered && chance.once(6)) kernel.files.erase(kActive);
        break;
      case 4:
        kernel.broken = chance.once(6);
        break;
      case 5:
        kernel.iopermResult = chance.result();
        kernel.root = chance.once(2);
        break;
      case 6:
        host.leave();
        break;
      case 7:
        kernel.files[known] = chance.oneOf({"888\n", "888\n", "888\n", "888\n", "888\n", "632\n", "x"});
        kernel.files["/proc/ioports"] =
            chance.oneOf({"", kIoports, "0278-027a : dma1\n", "0100-0378 : pnp 1\n  0101-0378 : x\n"});
        break;
      case 8:
        kernel.outb(address, value);
        break;
      case 9:
      case 10:
        all += hexByte(address) + " reads ";
        all += faultOf([&] { all += hexByte(way.DlPortReadPortUchar(address)) + ' '; }) + '\n';
        break;
      default:
        all += hexByte(address) + " takes " + hexByte(value) + ' ';
        all += faultOf([&] { way.DlPortWritePortUchar(address, value); }) + '\n';
    }
    told.insert(host.whyNotOpen());
    for (const std::string& call : kernel.taken()) all += call + ", ";
    for (const int place : {0x378, 0x37A, 0x278, 0x27A})
      all += hexByte(kernel.at(static_cast<std::uint16_t>(place))) + ' ';
    all += std::to_string(kernel.openNodes()) + " open " + host.whyNotOpen() + '\n';
  }
  EXPECT_FALSE(kernel.waitedForEver);
  EXPECT_EQ(std::ranges::count_if(told, isInTheManual), 14);
  expectSum("parallel", all, 620429152);
}

}  // namespace
}  // namespace tessarine
