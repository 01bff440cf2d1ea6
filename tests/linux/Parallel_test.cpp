// The parallel port on Linux, by its system calls.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <thread>

#include "engine/Module1.h"
#include "linux/FakeKernel.h"
#include "platform/linux/LinuxPlatform.h"
#include "support/FakePlatform.h"
#include "support/FaultOf.h"
#include "transport/PortAccess.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint16_t kData = 0x378;
constexpr std::uint16_t kControl = 0x37A;

class Parallel : public ::testing::Test {
 protected:
  FakeKernel kernel;
  LibFtdi ftdi;
  LinuxPlatform host{kernel, ftdi, [] {}};
};

TEST_F(Parallel, PpdevIsClaimedAloneSetToRestAndRestored) {
  kernel.addPort(kData, "parport3");
  host.driver.DlPortWritePortUchar(kControl, 0);
  EXPECT_THAT(kernel.taken(), ElementsAre("open /dev/parport3", "flock", "PPEXCL", "PPCLAIM", "PPRCONTROL",
                                          "PPDATADIR 0", "PPWDATA 00", "PPWCONTROL 00"));
  host.driver.DlPortWritePortUchar(kData, 0x2F);
  host.driver.DlPortWritePortUchar(kControl, 0x24);  // bit 5 would turn the lines into inputs
  EXPECT_THAT(kernel.taken(), ElementsAre("PPWDATA 2F", "PPWCONTROL 04"));
  host.leave();
  EXPECT_THAT(kernel.taken(), ElementsAre("PPWDATA 00", "PPWCONTROL 0C", "PPRELEASE", "close"));
}

TEST_F(Parallel, AByteCostsOneSystemCallOnEveryWay) {
  struct Way {
    const char* name;
    std::function<void(FakeKernel&)> set;
    std::vector<std::string> write;
    std::vector<std::string> read;
  };
  const Way ways[] = {
      {"ppdev", [](FakeKernel& k) { k.addPort(kData, "parport0"); }, {"PPWDATA 55"}, {"PPRDATA"}},
      {"/dev/port",
       [](FakeKernel& k) {
         k.addPort(kData, "");
         k.nodes["/dev/port"] = 0;
       },
       {"pwrite 378 55"},
       {"pread 378"}},
      {"port instructions",
       [](FakeKernel& k) {
         k.addPort(kData, "");
         k.iopermResult = 0;
       },
       {},
       {}},
  };
  for (const Way& way : ways) {
    SCOPED_TRACE(way.name);
    FakeKernel k;
    way.set(k);
    LinuxPlatform p(k, ftdi, [] {});
    p.driver.DlPortWritePortUchar(kData, 1);
    (void)k.taken();
    for (int i = 0; i < 3; ++i) {
      p.driver.DlPortWritePortUchar(kData, 0x55);
      EXPECT_EQ(k.taken(), way.write);
      EXPECT_EQ(p.driver.DlPortReadPortUchar(kData), 0x55);
      EXPECT_EQ(k.taken(), way.read);
    }
    EXPECT_EQ(p.whyNotOpen(), "");
  }
}

TEST_F(Parallel, APortThatOthersSignedUpForIsTakenOnlyWhileNobodyHasIt) {
  kernel.addPort(kData, "parport0");
  kernel.othersRegistered = true;
  host.driver.DlPortWritePortUchar(kData, 1);
  EXPECT_THAT(kernel.taken(),
              ElementsAre("open /dev/parport0", "flock", "PPEXCL", "PPCLAIM", "close", "open /dev/parport0",
                          "flock", "PPCLAIM", "PPRCONTROL", "PPDATADIR 0", "PPWDATA 00", "PPWDATA 01"));
  host.leave();
  (void)kernel.taken();

  kernel.files["/proc/sys/dev/parport/parport0/devices/active"] = "lp\n";
  EXPECT_EQ(faultOf([&] { host.driver.DlPortWritePortUchar(kData, 1); }),
            "Parallel port 378 is busy: the printer driver lp holds it. Type: sudo modprobe -r lp");
  EXPECT_THAT(kernel.taken(), ElementsAre("open /dev/parport0", "flock", "PPEXCL", "PPCLAIM", "close"));
  EXPECT_FALSE(kernel.waitedForEver);
}

// Each obstacle by its own sentence, at no more than one opening a second.
struct Obstacle {
  const char* name;
  std::function<void(FakeKernel&)> set;
  bool library;
  std::uint16_t address;
  const char* sentence;
};

const Obstacle kObstacles[] = {
    {"no module", [](FakeKernel&) {}, false, kData,
     "Parallel port 378 is missing: the kernel's modules for it are not loaded. Type: sudo modprobe -a "
     "parport_pc "
     "ppdev"},
    {"another address", [](FakeKernel& k) { k.addPort(0x278, "parport0"); }, false, kData,
     "Parallel port 378 is missing: the kernel knows 278. Enter that address in Config, Parallel Port; or, "
     "if the port is there, type: sudo modprobe -r lp ppdev parport_pc; sudo modprobe parport_pc io=0x378 && "
     "sudo "
     "modprobe ppdev"},
    {"no node",
     [](FakeKernel& k) {
       k.addPort(kData, "parport0");
       k.nodes.erase("/dev/parport0");
     },
     false, kData,
     "Parallel port 378 has no device node: the module ppdev is missing. Type: sudo modprobe ppdev"},
    {"not in the group",
     [](FakeKernel& k) {
       k.addPort(kData, "parport0");
       k.nodes["/dev/parport0"] = -EACCES;
       k.nodes["/dev/port"] = 0;  // no way round a port that the kernel's driver has
     },
     false, kData,
     "No permission for parallel port 378: /dev/parport0 belongs to the group lp. Type: sudo usermod -aG lp "
     "$USER "
     "(and log in again)"},
    {"locked by another copy",
     [](FakeKernel& k) {
       k.addPort(kData, "parport0");
       k.flockResult = -EWOULDBLOCK;
     },
     false, kData,
     "Parallel port 378 is busy: another program holds it. To see which, type: sudo fuser -v /dev/parport0"},
    {"claimed by another program",
     [](FakeKernel& k) {
       k.addPort(kData, "parport0");
       k.othersRegistered = true;
       k.files["/proc/sys/dev/parport/parport0/devices/active"] = "ppdev0\n";
     },
     false, kData,
     "Parallel port 378 is busy: another program holds it (ppdev0). To see which, type: sudo fuser -v "
     "/dev/parport0"},
    {"reserved by another program",
     [](FakeKernel& k) {
       k.addPort(kData, "parport0");
       k.othersExclusive = true;
     },
     false, kData,
     "Parallel port 378 is busy: another program holds it. To see which, type: sudo fuser -v /dev/parport0"},
    {"lockdown",
     [](FakeKernel& k) {
       k.root = true;
       k.nodes["/dev/port"] = -EPERM;
     },
     false, kData,
     "Raw access to parallel port 378 is forbidden by the kernel (lockdown, as with Secure Boot); its driver "
     "is not. "
     "Type: sudo modprobe -a parport_pc ppdev"},
    {"raw access of a user", [](FakeKernel& k) { k.nodes["/dev/port"] = -EACCES; }, true, kData,
     "No permission for raw access to parallel port 378: that takes root, the kernel's driver does not. "
     "Type: sudo "
     "modprobe -a parport_pc ppdev"},
    {"raw access to a port in use",
     [](FakeKernel& k) {
       k.addPort(kData, "parport0");
       k.nodes["/dev/port"] = 0;
       k.files["/proc/sys/dev/parport/parport0/devices/active"] = "lp\n";
     },
     true, kData, "Parallel port 378 is busy: the printer driver lp holds it. Type: sudo modprobe -r lp"},
    {"somebody else's address",
     [](FakeKernel& k) {
       k.nodes["/dev/port"] = 0;
       k.files["/proc/ioports"] =
           "0000-0cf7 : PCI Bus 0000:00\n  0378-037a : parport0\n  03f8-03ff : serial\n";
     },
     true, 0x3F8,
     "Address 3F8 is forbidden: it is no parallel port but belongs to serial. Enter another in Config, "
     "Parallel Port; "
     "to see who has which, type: sudo cat /proc/ioports"},
    {"an address left empty", [](FakeKernel& k) { k.nodes["/dev/port"] = 0; }, false, 0,
     "Address 0 is forbidden: it is no parallel port but belongs to the computer's own board. Enter another "
     "in Config, "
     "Parallel Port; to see who has which, type: sudo cat /proc/ioports"},
    {"an odd address", [](FakeKernel& k) { k.addPort(kData, "parport0"); }, false, 0x379,
     "Address 379 is missing: a parallel port has its data register at a multiple of 4 and its control "
     "register at that plus 2"},
};

TEST_F(Parallel, EachObstacleIsNamedWithTheLineToType) {
  for (const Obstacle& obstacle : kObstacles) {
    SCOPED_TRACE(obstacle.name);
    FakeKernel k;
    obstacle.set(k);
    LinuxPlatform p(k, ftdi, [] {});
    const auto write = [&] {
      if (obstacle.library) return p.library.OutputByte1(obstacle.address, 0);
      p.driver.DlPortWritePortUchar(obstacle.address, 0);
    };
    EXPECT_EQ(faultOf(write), obstacle.sentence);
    EXPECT_EQ(p.whyNotOpen(), obstacle.sentence);
    EXPECT_TRUE(obstacle.address == 0 || isInTheManual(obstacle.sentence));
    EXPECT_FALSE(k.waitedForEver);

    const std::size_t opening = k.taken().size();
    k.now += 0.9;
    for (int i = 0; i < 110; ++i) EXPECT_EQ(faultOf(write), obstacle.sentence);
    EXPECT_THAT(k.taken(), IsEmpty());
    k.now += 0.2;
    EXPECT_EQ(faultOf(write), obstacle.sentence);
    EXPECT_EQ(k.taken().size(), opening);
  }
}

TEST_F(Parallel, RawAccessStandsInWhereNoDriverHasTheAddress) {
  kernel.addPort(kData, "");
  kernel.addPort(0x278, "parport0");
  kernel.nodes["/dev/port"] = 0;
  kernel.outb(kControl, 0xEC);  // the upper two bits are no register
  kernel.files["/proc/ioports"] = "0000-0cf7 : PCI Bus 0000:00\n  0378-037a : parport0\n";
  host.driver.DlPortWritePortUchar(kControl, 0);
  host.driver.DlPortWritePortUchar(kData, 4);
  EXPECT_THAT(kernel.taken(),
              ElementsAre("open /dev/port", "pread 37A", "pwrite 378 00", "pwrite 37A 00", "pwrite 378 04"));
  host.leave();
  EXPECT_EQ(kernel.at(kData), 0);
  EXPECT_EQ(kernel.at(kControl), 0x2C);

  // The node takes nothing beyond its end, and calls that no error.
  host.driver.DlPortWritePortUchar(kData, 1);
  kernel.broken = true;
  EXPECT_EQ(faultOf([&] { host.driver.DlPortWritePortUchar(kData, 1); }),
            "Parallel port 378 failed: Input/output error. To see what the kernel says, type: sudo dmesg | "
            "grep parport");
}

TEST_F(Parallel, PortInstructionsAreAskedForAgainByTheThreadThatLeaves) {
  kernel.addPort(kData, "");
  kernel.iopermResult = 0;
  kernel.outb(kControl, 0x0C);
  host.library.OutputByte1(kControl, 0);
  host.library.OutputByte1(kData, 7);
  EXPECT_EQ(host.library.InputByte1(kData), 7);
  (void)kernel.taken();
  std::thread([&] { host.leave(); }).join();
  EXPECT_THAT(kernel.taken(), ElementsAre("ioperm 378 3"));
  EXPECT_EQ(kernel.at(kData), 0);
  EXPECT_EQ(kernel.at(kControl), 0x0C);
}

TEST_F(Parallel, ARepairedPortWorksWithoutARestart) {
  EXPECT_NE(faultOf([&] { host.driver.DlPortWritePortUchar(kData, 0); }), "no fault");
  kernel.addPort(kData, "parport0");
  kernel.now += 1.1;
  host.driver.DlPortWritePortUchar(kData, 3);
  EXPECT_EQ(kernel.at(kData), 3);
  EXPECT_EQ(host.whyNotOpen(), "");

  kernel.broken = true;
  const char* sentence =
      "Parallel port 378 failed: Input/output error. To see what the kernel says, type: sudo dmesg | grep "
      "parport";
  EXPECT_TRUE(isInTheManual(sentence));
  EXPECT_EQ(faultOf([&] { host.driver.DlPortWritePortUchar(kData, 1); }), sentence);
  (void)kernel.taken();
  EXPECT_EQ(faultOf([&] { host.driver.DlPortWritePortUchar(kData, 1); }), sentence);
  EXPECT_THAT(kernel.taken(), IsEmpty());
  kernel.broken = false;
  kernel.now += 1.1;
  host.driver.DlPortWritePortUchar(kData, 5);
  EXPECT_EQ(kernel.at(kData), 5);
}

TEST_F(Parallel, EveryPortThatWasUsedIsLeftAtRest) {
  kernel.addPort(kData, "parport0");
  kernel.addPort(0x278, "parport1");
  {
    LinuxPlatform inner(kernel, ftdi, [] {});
    for (const std::uint16_t base : {kData, std::uint16_t{0x278}}) {
      inner.driver.DlPortWritePortUchar(static_cast<std::uint16_t>(base + 2), 0);
      inner.driver.DlPortWritePortUchar(base, 0xFF);
    }
  }
  for (const std::uint16_t base : {kData, std::uint16_t{0x278}}) {
    EXPECT_EQ(kernel.at(base), 0);
    EXPECT_EQ(kernel.at(static_cast<std::uint16_t>(base + 2)), 0x0C);
  }
}

// The whole road of a failing write: the stated message, one opening, and the reason for whoever shows it.
TEST_F(Parallel, AFailingWriteOpensOnceAndItsReasonCanBeShown) {
  FakePlatform fake;
  Platform platform{host.driver, host.library, fake.usb, fake.host, fake.clock, fake.screen};
  Module1 module(platform);
  module.UseDlPort = kTrue;
  EXPECT_EQ(PortWrite(module, kData, 0), 0);
  ASSERT_EQ(fake.screen.messages.size(), 1U);
  EXPECT_EQ(fake.screen.messages[0].text, "Error with Output Port Address 888");
  EXPECT_EQ(kernel.taken(), (std::vector<std::string>{"open /dev/port", "ioperm 378 3"}));
  EXPECT_EQ(host.whyNotOpen(), kObstacles[0].sentence);
}

TEST_F(Parallel, OnlyTheReadBackTellsOfAPortThatIsNotThere) {
  kernel.nodes["/dev/port"] = 0;
  kernel.root = true;
  host.driver.DlPortWritePortUchar(kData, 0);
  EXPECT_EQ(host.whyNotOpen(), "");
  EXPECT_EQ(host.driver.DlPortReadPortUchar(kData), 0xFF);
  const std::string sentence = host.whyNotOpen();
  EXPECT_EQ(sentence,
            "Parallel port 378 is missing: nothing answers at this address (it reads FF). To see which "
            "addresses the kernel knows, type: cat /proc/sys/dev/parport/*/base-addr");
  EXPECT_TRUE(isInTheManual(sentence));
  // One that holds a line is another matter, and one that gives in is none.
  kernel.addPort(kData, "");
  host.driver.DlPortWritePortUchar(kData, 4);
  kernel.outb(kData, 0);
  EXPECT_EQ(host.driver.DlPortReadPortUchar(kData), 0);
  EXPECT_EQ(
      host.whyNotOpen(),
      "Parallel port 378 reads 0 where 4 was written: its lines are inputs, shorted or held by the board");
  EXPECT_TRUE(isInTheManual(host.whyNotOpen()));
  kernel.outb(kData, 4);
  EXPECT_EQ(host.driver.DlPortReadPortUchar(kData), 4);
  EXPECT_EQ(host.whyNotOpen(), "");
}

}  // namespace
}  // namespace tessarine
