// The host, the clock and the orderly end on a signal.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <thread>

#include "linux/FakeKernel.h"
#include "platform/linux/LeaveOnSignal.h"
#include "platform/linux/LinuxPlatform.h"
#include "support/TempFile.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::KilledBySignal;

TEST(LinuxHost, HasNoRegistry) {
  std::uintptr_t handle = 7;
  EXPECT_NE(LinuxHost().RegOpenKeyExA(kHKeyLocalMachine, "SOFTWARE", 0x2003F, handle), 0);
}

TEST(LinuxHost, StartsThePortDriverHiddenAndWithoutWaiting) {
  const TempFile told("");
  const TempFile program(
      "#!/bin/sh\nread line\nsleep 0.5\necho visible\n"
      "echo \"$@\" $(cut -d ' ' -f 6 /proc/$$/stat) >" +
      told.path() + "\n");
  std::filesystem::permissions(program.path(), std::filesystem::perms::owner_all);
  LinuxHost host({"/nowhere", program.path()});
  EXPECT_EQ(host.GetVersionExA()->platform, 2) << "a host that needs the driver";
  ::testing::internal::CaptureStdout();
  host.startPortDriver();
  EXPECT_TRUE(std::filesystem::is_empty(told.path()));
  for (int i = 0; i < 500 && std::filesystem::is_empty(told.path()); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  std::string line;
  std::getline(std::ifstream(told.path()), line);
  EXPECT_TRUE(line.starts_with("-q ppdev ")) << line;
  EXPECT_FALSE(line.ends_with(' ' + std::to_string(::getsid(0)))) << "it outlives the terminal";
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "no child is left behind";

  EXPECT_THROW(LinuxHost({"/nowhere"}).startPortDriver(), Fault);
  EXPECT_THROW(host.startProgram("/nowhere"), Fault);
  const auto open = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
  const auto before = open();
  EXPECT_NO_THROW(host.startProgram("/bin/true"));
  EXPECT_EQ(open(), before);
}

TEST(LinuxHost, DrivesAreTheRootAndTheMountedVolumes) {
  EXPECT_THAT(volumesOf("sysfs /sys sysfs rw 0 0\n"
                        "/dev/sda2 / ext4 rw 0 0\n"
                        "/dev/sda1 /boot/efi vfat rw 0 0\n"
                        "tmpfs /run/user/1000 tmpfs rw 0 0\n"
                        "/dev/loop3 /snap/core/1 squashfs ro 0 0\n"
                        "/dev/sda5 /snap/core/2 ext4 rw 0 0\n"
                        "/dev/sdb1 /media/ann/USB\\040STICK vfat rw 0 0\n"
                        "/dev/sdb1 /media/ann/USB\\040STICK vfat rw 0 0\n"
                        "/dev/loop4 /opt/image squashfs ro 0 0\n"
                        "/dev/sda4 /etc/hosts ext4 rw 0 0\n"
                        "tmpfs /run/media/ann/RAM tmpfs rw 0 0\n"
                        "tmpfs /mnt/a tmpfs rw 0 0\n"
                        "server:/lab /lab nfs4 rw 0 0\n"
                        "//server/b /b cifs rw 0 0\n"
                        "//server/c /c smb3 rw 0 0\n"
                        "ann@server: /d fuse.sshfs rw 0 0\n"
                        "share /e 9p rw 0 0\n"
                        "/dev/sda3 /home ext4 rw 0 0\n"
                        "torn line\n"),
              ElementsAre("/", "/media/ann/USB STICK", "/run/media/ann/RAM", "/mnt/a", "/lab", "/b", "/c",
                          "/d", "/e", "/home"));
  EXPECT_THAT(LinuxHost({}, "/nowhere").drives(), ElementsAre("/"));
  const TempFile single("");
  const TempFile mounts("/dev/sdb /tmp vfat\n/dev/sdc " + single.path() + " vfat\n");
  EXPECT_THAT(LinuxHost({}, mounts.path()).drives(), ElementsAre("/", "/tmp"));
}

TEST(LinuxClock, GoesOnFromItsStartWhateverTheSystemTimeDoes) {
  double steady = 5000;
  LinuxClock clock(
      86399.5, [&] { return steady; }, [] {});
  EXPECT_DOUBLE_EQ(clock.secondsSinceMidnight(), 86399.5);
  steady += 1;
  EXPECT_DOUBLE_EQ(clock.secondsSinceMidnight(), 0.5);
  steady += 86400.25;
  EXPECT_DOUBLE_EQ(clock.secondsSinceMidnight(), 0.75);
}

TEST(LinuxClock, CountsFromLocalMidnight) {
  const auto time =
      std::chrono::system_clock::time_point(std::chrono::milliseconds(1'700'000'000'250));  // 22:13:20.25 UTC
  for (const auto& [name, seconds] :
       {std::pair{"UTC0", 80000.25}, {"XYZ-5:45", 80000.25 + 20700 - 86400}, {"XYZ12", 80000.25 - 43200}}) {
    ::setenv("TZ", name, 1);
    ::tzset();
    EXPECT_DOUBLE_EQ(secondsOfDay(time), seconds) << name;
  }
  ::unsetenv("TZ");
}

void sayLeft() { std::cerr << "left"; }

TEST(LeaveOnSignal, BringsTheHardwareToRestAndEndsAsTheSignalDoes) {
  for (const int number :
       {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV}) {
    const auto end = [number] {
      std::signal(number, SIG_DFL);  // a sanitizer has its own
      const LeaveOnSignal watch(sayLeft);
      std::raise(number);
      ::sleep(20);
    };
    EXPECT_EXIT(end(), KilledBySignal(number), "^left$");
  }
}

TEST(LeaveOnSignal, NothingReachesThePortAfterTheLinesWereLowered) {
  const auto end = [] {
    FakeKernel kernel;
    kernel.addPort(0x378, "parport0");
    LibFtdi ftdi;
    LinuxPlatform host(kernel, ftdi, [] {});
    const LeaveOnSignal watch([&] {
      host.leaveForGood();
      ::usleep(50'000);  // the other thread goes on writing, if it can
      std::cerr << hexByte(kernel.at(0x378)) << hexByte(kernel.at(0x37A));
    });
    host.driver.DlPortWritePortUchar(0x37A, 0);
    ::kill(::getpid(), SIGTERM);
    for (;;) host.driver.DlPortWritePortUchar(0x378, 0x55);
  };
  EXPECT_EXIT(end(), KilledBySignal(SIGTERM), "^000C$");
}

TEST(LeaveOnSignal, LeavesAloneWhatIsIgnoredAndEndsWithItsScope) {
  const auto end = [] {
    std::signal(SIGHUP, SIG_IGN);
    {
      const LeaveOnSignal watch(sayLeft);
      std::raise(SIGHUP);
    }
    std::raise(SIGTERM);
  };
  EXPECT_EXIT(end(), KilledBySignal(SIGTERM), "^$");
}

}  // namespace
}  // namespace tessarine
