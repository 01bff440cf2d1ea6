// The host, the clock and the orderly end on a signal.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>
#include <utility>

#include "linux/FakeKernel.h"
#include "platform/Fault.h"
#include "platform/linux/LeaveOnSignal.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxHost.h"
#include "platform/linux/LinuxPlatform.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;

TEST(LinuxHost, HasNoRegistry) {
  std::uintptr_t handle = 7;
  EXPECT_NE(LinuxHost().RegOpenKeyExA(kHKeyLocalMachine, "SOFTWARE", 0x2003F, handle), 0);
}

TEST(LinuxHost, StartsThePortDriverHiddenAndWithoutWaiting) {
  const auto folder = std::filesystem::path(::testing::TempDir()) / "tessarine-host";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  const auto program = folder / "modprobe";
  const auto told = folder / "told";
  std::ofstream(program) << "#!/bin/sh\ncd " << folder.string() << "\nread line\nsleep 0.5\necho visible\n"
                         << "echo \"$@\" >new\nmv new told\n";
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  const std::string none = (folder / "none").string();
  LinuxHost host({none, program.string()});
  EXPECT_EQ(host.GetVersionExA()->platform, 2) << "a host that needs the driver";
  ::testing::internal::CaptureStdout();
  host.startPortDriver();
  EXPECT_FALSE(std::filesystem::exists(told));
  for (int i = 0; i < 500 && !std::filesystem::exists(told); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  std::string line;
  std::getline(std::ifstream(told) >> std::ws, line);
  EXPECT_EQ(line, "-q ppdev");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "no child is left behind";

  EXPECT_THROW(LinuxHost({none}).startPortDriver(), Fault);
  EXPECT_THROW(host.startProgram(none), Fault);
  EXPECT_NO_THROW(host.startProgram("/bin/true"));
}

TEST(LinuxHost, DrivesAreTheRootAndTheMountedVolumes) {
  EXPECT_THAT(volumesOf("sysfs /sys sysfs rw 0 0\n"
                        "/dev/sda2 / ext4 rw 0 0\n"
                        "/dev/sda1 /boot/efi vfat rw 0 0\n"
                        "tmpfs /run/user/1000 tmpfs rw 0 0\n"
                        "/dev/loop3 /snap/core/1 squashfs ro 0 0\n"
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
  const char* const before = std::getenv("TZ");
  const std::string zone = before != nullptr ? before : "";
  const auto time =
      std::chrono::system_clock::time_point(std::chrono::milliseconds(1'700'000'000'250));  // 22:13:20.25 UTC
  for (const auto& [name, seconds] :
       {std::pair{"UTC0", 80000.25}, {"XYZ-5:45", 80000.25 + 20700 - 86400}, {"XYZ12", 80000.25 - 43200}}) {
    ::setenv("TZ", name, 1);
    ::tzset();
    EXPECT_DOUBLE_EQ(secondsOfDay(time), seconds) << name;
  }
  before != nullptr ? ::setenv("TZ", zone.c_str(), 1) : ::unsetenv("TZ");
  ::tzset();
}

// In a child: how it ends, and what it said when it left.
struct Ending {
  int status;
  std::string said;
};

Ending endingOf(const std::function<std::string()>& leave, const std::function<void()>& action) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(ends[0]);
    {
      const LeaveOnSignal watch([&] {
        const std::string said = leave();
        (void)!::write(ends[1], said.data(), said.size());
      });
      action();
    }
    (void)!::write(ends[1], "done", 4);
    ::_exit(0);
  }
  ::close(ends[1]);
  Ending ending{};
  char byte = 0;
  while (::read(ends[0], &byte, 1) == 1) ending.said += byte;
  ::close(ends[0]);
  ::waitpid(child, &ending.status, 0);
  return ending;
}

std::string sayLeft() { return "left"; }

TEST(LeaveOnSignal, BringsTheHardwareToRestAndEndsAsTheSignalDoes) {
  for (const int number :
       {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV}) {
    const auto before = std::signal(number, SIG_DFL);  // a sanitizer has its own
    const Ending ending = endingOf(sayLeft, [&] {
      std::raise(number);
      ::sleep(20);
    });
    EXPECT_EQ(ending.said, "left") << number;
    EXPECT_TRUE(WIFSIGNALED(ending.status) && WTERMSIG(ending.status) == number) << number;
    std::signal(number, before);
  }
}

TEST(LeaveOnSignal, NothingReachesThePortAfterTheLinesWereLowered) {
  FakeKernel kernel;
  kernel.addPort(0x378, "parport0");
  LibFtdi ftdi;
  LinuxPlatform host(kernel, ftdi, [] {});
  const Ending ending = endingOf(
      [&] {
        host.leaveForGood();
        ::usleep(50'000);  // the other thread goes on writing, if it can
        return hexByte(kernel.at(0x378)) + hexByte(kernel.at(0x37A));
      },
      [&] {
        host.driver.DlPortWritePortUchar(0x37A, 0);
        host.driver.DlPortWritePortUchar(0x378, 0xFF);
        ::kill(::getpid(), SIGTERM);
        for (;;) host.driver.DlPortWritePortUchar(0x378, 0x55);
      });
  EXPECT_EQ(ending.said, "000C");
  EXPECT_TRUE(WIFSIGNALED(ending.status) && WTERMSIG(ending.status) == SIGTERM);
}

TEST(LeaveOnSignal, LeavesAloneWhatIsIgnoredAndEndsWithItsScope) {
  std::signal(SIGHUP, SIG_IGN);
  const Ending ignored = endingOf(sayLeft, [] { std::raise(SIGHUP); });
  std::signal(SIGHUP, SIG_DFL);
  EXPECT_EQ(ignored.said, "done");
  EXPECT_EQ(endingOf(sayLeft, [] {}).said, "done");
}

}  // namespace
}  // namespace tessarine
