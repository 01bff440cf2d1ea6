// The parallel port on Linux, by its system calls.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <string>
#include <thread>
#include <utility>

#include "linux/FakeKernel.h"
#include "platform/linux/LinuxPlatform.h"
#include "support/FaultOf.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr std::uint16_t kData = 0x378;
constexpr std::uint16_t kControl = 0x37A;
constexpr const char* kActive = "/proc/sys/dev/parport/parport0/devices/active";

struct Parallel : ::testing::Test {
  void write(std::uint16_t address, std::uint8_t value) { host.driver.DlPortWritePortUchar(address, value); }

  FakeKernel kernel;
  LibFtdi ftdi;
  LinuxPlatform host{kernel, ftdi, [] {}};
};

TEST_F(Parallel, PpdevIsClaimedAloneSetToRestAndRestored) {
  kernel.addPort(kData, "parport3");
  EXPECT_NE(faultOf([&] { write(0x379, 0); }), "no fault");  // which is over with the next access
  write(kControl, 0);
  EXPECT_THAT(kernel.taken(), ElementsAre("open /dev/parport3", "flock", "PPEXCL", "PPCLAIM", "PPRCONTROL",
                                          "PPDATADIR 0", "PPWDATA 00", "PPWCONTROL 00"));
  write(kData, 0x2F);
  write(kControl, 0x24);  // bit 5 would turn the lines into inputs
  EXPECT_EQ(host.driver.DlPortReadPortUchar(kData), 0x2F);
  EXPECT_THAT(kernel.taken(), ElementsAre("PPWDATA 2F", "PPWCONTROL 04", "PPRDATA")) << "one call each";
  EXPECT_EQ(host.whyNotOpen(), "");
  host.leave();
  EXPECT_THAT(kernel.taken(), ElementsAre("PPWDATA 00", "PPWCONTROL 0C", "PPRELEASE", "close"));
}

TEST_F(Parallel, APortThatOthersSignedUpForIsTakenOnlyWhileNobodyHasIt) {
  std::string told;
  host.notice = [&told](const std::string& text) { told += text; };
  kernel.addPort(kData, "parport0");
  kernel.othersRegistered = true;
  write(kData, 1);
  EXPECT_THAT(told, StartsWith("Parallel port 378 is shared with the printer driver lp: "));
  EXPECT_TRUE(isInTheManual(told));
  EXPECT_THAT(kernel.taken(),
              ElementsAre("open /dev/parport0", "flock", "PPEXCL", "PPCLAIM", "close", "open /dev/parport0",
                          "flock", "PPCLAIM", "PPRCONTROL", "PPDATADIR 0", "PPWDATA 00", "PPWDATA 01"));
  host.leave();
  (void)kernel.taken();
  kernel.files[kActive] = "lp\n";
  EXPECT_EQ(faultOf([&] { write(kData, 1); }),
            "Parallel port 378 is busy: the printer driver lp holds it. Type: sudo modprobe -r lp");
  EXPECT_THAT(kernel.taken(), ElementsAre("open /dev/parport0", "flock", "PPEXCL", "PPCLAIM", "close"));
}

// What stands in the way of an access, and how the sentence that tells of it begins.
struct Obstacle {
  const char* sentence;
  std::uint16_t known = 0;  // the port that the kernel's driver knows
  int node = 0;             // what opening its node gives
  int raw = -ENOENT;        // and /dev/port
  const char* holder = "none";
  bool registered = false;
  bool exclusive = false;
  bool locked = false;
  bool root = false;
  bool throughLibrary = false;
  std::uint16_t address = kData;
};

const Obstacle kObstacles[] = {
    {.sentence = "Parallel port 378 is missing: the kernel's modules for it are not loaded. Type: "},
    {.sentence = "Parallel port 378 is missing: the kernel knows 278. ", .known = 0x278},
    {.sentence = "Parallel port 378 has no device node: ", .known = kData, .node = -ENOENT},
    // There is no way round a port that the kernel's driver has.
    {.sentence = "No permission for parallel port 378: ", .known = kData, .node = -EACCES, .raw = 0},
    {.sentence = "Parallel port 378 is busy: another program holds it. ", .known = kData, .locked = true},
    {.sentence = "Parallel port 378 is busy: another program holds it (ppdev0). To see which, type: ",
     .known = kData,
     .holder = "ppdev0",
     .registered = true},
    {.sentence = "Parallel port 378 is busy: another program holds it. ", .known = kData, .exclusive = true},
    {.sentence = "Raw access to parallel port 378 is forbidden by the kernel ", .raw = -EPERM, .root = true},
    {.sentence = "No permission for raw access to parallel port 378: ",
     .raw = -EACCES,
     .throughLibrary = true},
    {.sentence = "Parallel port 378 is busy: the printer driver lp holds it. Type: ",
     .known = kData,
     .raw = 0,
     .holder = "lp",
     .throughLibrary = true},
    {.sentence = "Address 3F8 is forbidden: it is no parallel port but belongs to serial. ",
     .raw = 0,
     .throughLibrary = true,
     .address = 0x3F8},
    {.sentence = "Address FC is forbidden: it is no parallel port but belongs to the computer's own board. ",
     .raw = 0,
     .address = 0xFC},
    {.sentence = "Address 379 is missing: ", .known = kData, .address = 0x379},
};

TEST_F(Parallel, EachObstacleIsNamedWithTheLineToTypeAndTriedOnceASecond) {
  for (const Obstacle& obstacle : kObstacles) {
    SCOPED_TRACE(obstacle.sentence);
    FakeKernel k;
    if (obstacle.known != 0) {
      k.addPort(obstacle.known, "parport0");
      k.nodes["/dev/parport0"] = obstacle.node;
      k.files[kActive] = obstacle.holder + std::string("\n");
    }
    k.nodes["/dev/port"] = obstacle.raw;
    k.files["/proc/ioports"] = "0000-0cf7 : PCI Bus 0000:00\n  0378-037a : parport0\n  03f8-03ff : serial\n";
    k.flockResult = obstacle.locked ? -EWOULDBLOCK : 0;
    k.othersRegistered = obstacle.registered;
    k.othersExclusive = obstacle.exclusive;
    k.root = obstacle.root;
    LinuxPlatform p(k, ftdi, [] {});
    const auto attempt = [&] {
      if (obstacle.throughLibrary) return p.library.OutputByte1(obstacle.address, 0);
      p.driver.DlPortWritePortUchar(obstacle.address, 0);
    };
    const std::string told = faultOf(attempt);
    EXPECT_THAT(told, StartsWith(obstacle.sentence));
    EXPECT_TRUE(obstacle.address == 0xFC || isInTheManual(told)) << told;
    EXPECT_EQ(p.whyNotOpen(), told);
    EXPECT_FALSE(k.waitedForEver);

    const std::size_t opening = k.taken().size();
    k.now += 0.9;
    for (int i = 0; i < 110; ++i) EXPECT_EQ(faultOf(attempt), told);
    EXPECT_THAT(k.taken(), IsEmpty());
    k.now += 0.2;
    EXPECT_EQ(faultOf(attempt), told);
    EXPECT_EQ(k.taken().size(), opening);
  }
}

TEST_F(Parallel, RawAccessStandsInWhereNoDriverHasTheAddress) {
  kernel.addPort(kData, "");
  kernel.addPort(0x278, "parport0");
  kernel.nodes["/dev/port"] = 0;
  kernel.outb(kControl, 0xEC);  // the upper two bits are no register
  kernel.files["/proc/ioports"] = "0000-0cf7 : PCI Bus 0000:00\n  0378-037a : parport0\n";
  write(kControl, 0);
  write(kData, 4);
  EXPECT_EQ(host.driver.DlPortReadPortUchar(kData), 4);
  EXPECT_THAT(kernel.taken(), ElementsAre("open /dev/port", "pread 37A", "pwrite 378 00", "pwrite 37A 00",
                                          "pwrite 378 04", "pread 378"));
  host.leave();
  EXPECT_EQ(kernel.at(kData), 0);
  EXPECT_EQ(kernel.at(kControl), 0x2C);

  // The node takes nothing beyond its end, and calls that no error.
  write(kData, 1);
  kernel.broken = true;
  EXPECT_NE(faultOf([&] { write(kData, 1); }), "no fault");
}

TEST_F(Parallel, PortInstructionsAreAskedForAgainByTheThreadThatLeaves) {
  kernel.addPort(kData, "");
  kernel.iopermResult = 0;
  kernel.outb(kControl, 0x0C);
  host.library.OutputByte1(kControl, 0);
  (void)kernel.taken();
  host.library.OutputByte1(kData, 7);
  EXPECT_EQ(host.library.InputByte1(kData), 7);
  EXPECT_THAT(kernel.taken(), IsEmpty());
  std::thread([&] { host.leave(); }).join();
  EXPECT_THAT(kernel.taken(), ElementsAre("ioperm 378 3"));
  EXPECT_EQ(kernel.at(kData), 0);
  EXPECT_EQ(kernel.at(kControl), 0x0C);
}

TEST_F(Parallel, ARepairedPortWorksWithoutARestart) {
  EXPECT_NE(faultOf([&] { write(kData, 0); }), "no fault");
  kernel.addPort(kData, "parport0");
  kernel.now += 1.1;
  write(kData, 3);
  EXPECT_EQ(kernel.at(kData), 3);
  EXPECT_EQ(host.whyNotOpen(), "");

  kernel.now += 5;
  kernel.broken = true;
  const std::string sentence = faultOf([&] { write(kData, 1); });
  EXPECT_THAT(sentence, StartsWith("Parallel port 378 failed: Input/output error. "));
  EXPECT_TRUE(isInTheManual(sentence));
  (void)kernel.taken();
  EXPECT_EQ(faultOf([&] { write(kData, 1); }), sentence);
  EXPECT_THAT(kernel.taken(), IsEmpty());
  kernel.broken = false;
  kernel.now += 1.1;
  write(kData, 5);
  EXPECT_EQ(kernel.at(kData), 5);
}

TEST_F(Parallel, EveryPortThatWasUsedIsLeftAtRest) {
  kernel.addPort(kData, "parport0");
  kernel.addPort(0x278, "parport1");
  {
    LinuxPlatform inner(kernel, ftdi, [] {});
    for (const auto& [address, value] : {std::pair{kControl, 0}, {kData, 0xFF}, {0x27A, 0}, {0x278, 0xFF}})
      inner.driver.DlPortWritePortUchar(address, static_cast<std::uint8_t>(value));
  }
  for (const auto& [address, value] : {std::pair{kControl, 0x0C}, {kData, 0}, {0x27A, 0x0C}, {0x278, 0}})
    EXPECT_EQ(kernel.at(address), value);
}

// The program would take the bits of it that echo for the board's lines.
TEST_F(Parallel, AControlRegisterIsNoPortOfABoard) {
  kernel.addPort(kData, "parport0");
  kernel.nodes["/dev/port"] = 0;
  for (const bool library : {false, true}) {
    const std::string told = faultOf(
        [&] { library ? host.library.InputByte1(kControl) : host.driver.DlPortReadPortUchar(kControl); });
    EXPECT_THAT(told,
                StartsWith("Address 37A is forbidden: it is the control register of parallel port 378. "));
    EXPECT_TRUE(isInTheManual(told));
    EXPECT_EQ(host.whyNotOpen(), told);
  }
}

TEST_F(Parallel, OnlyTheReadBackTellsOfAPortThatIsNotThere) {
  kernel.nodes["/dev/port"] = 0;
  const auto missing = [&](const char* rest) {
    EXPECT_THAT(host.whyNotOpen(),
                StartsWith("Parallel port 378 is missing: nothing answers at this address (it reads FF)" +
                           std::string(rest)));
    EXPECT_TRUE(isInTheManual(host.whyNotOpen()));
  };
  write(kData, 0);
  EXPECT_EQ(host.whyNotOpen(), "");
  EXPECT_EQ(host.driver.DlPortReadPortUchar(kData), 0xFF);
  missing(", and the kernel's driver knows no port. Type: ");
  kernel.addPort(0x278, "parport0");
  missing("; the kernel knows 278. Enter that address");
  kernel.files["/proc/sys/dev/parport/parport1/base-addr"] = "888\t0\n";
  missing(", though the kernel's driver was told of it. To let");
  // One that holds a line is another matter, and one that gives in is none.
  kernel.addPort(kData, "");
  write(kData, 4);
  kernel.outb(kData, 0);
  EXPECT_EQ(host.driver.DlPortReadPortUchar(kData), 0);
  EXPECT_THAT(host.whyNotOpen(), StartsWith("Parallel port 378 reads 0 where 4 was written: "));
  EXPECT_TRUE(isInTheManual(host.whyNotOpen()));
  kernel.outb(kData, 4);
  EXPECT_EQ(host.driver.DlPortReadPortUchar(kData), 4);
  EXPECT_EQ(host.whyNotOpen(), "");
}

}  // namespace
}  // namespace tessarine
