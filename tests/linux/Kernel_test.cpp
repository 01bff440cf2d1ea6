// The calls of the real kernel, on files as they are everywhere.
#include "platform/linux/Kernel.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>

#include "platform/linux/LinuxSockets.h"
#include "support/TempFile.h"

namespace tessarine {
namespace {

TEST(SystemKernel, ReadsWritesLocksAndLists) {
  SystemKernel kernel;
  const TempFile file("abc\n");
  const int first = kernel.open(file.path(), O_RDWR);
  const int second = kernel.open(file.path(), O_RDWR);
  EXPECT_EQ(::fcntl(first, F_GETFD), FD_CLOEXEC) << "a program that is started would keep the port";
  std::uint8_t byte = 0;
  EXPECT_EQ(kernel.pwrite(first, 'X', 1), 1);
  EXPECT_EQ(kernel.pread(second, byte, 1), 1);
  EXPECT_EQ(byte, 'X');
  EXPECT_EQ(kernel.textOf(file.path()), "aXc\n");
  EXPECT_EQ(kernel.flock(first, LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(kernel.flock(second, LOCK_EX | LOCK_NB), -EWOULDBLOCK);
  kernel.close(first);
  EXPECT_EQ(kernel.flock(second, LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(kernel.ioctl(second, 0, nullptr), -ENOTTY);
  kernel.close(second);
  EXPECT_EQ(kernel.open("/none", O_RDWR), -ENOENT);
  EXPECT_EQ(kernel.textOf("/none"), std::nullopt);
  EXPECT_EQ(kernel.textOf("/"), std::nullopt);
  EXPECT_EQ(kernel.entriesOf("/none").size(), 0U);
  const auto entries = kernel.entriesOf("/proc/self");
  EXPECT_TRUE(std::ranges::is_sorted(entries));
  EXPECT_TRUE(std::ranges::binary_search(entries, "status"));
  EXPECT_EQ(kernel.linkOf("/proc/self"), std::to_string(::getpid()));
  EXPECT_EQ(kernel.linkOf(file.path()), std::nullopt);
  EXPECT_EQ(kernel.isRoot(), ::geteuid() == 0);
}

TEST(Sockets, TellTheirAddressAsItIsTyped) {
  EXPECT_TRUE(listenOn({}, "0").listener->address().starts_with("127.0.0.1:"));
  EXPECT_TRUE(listenOn("::1", "0").listener->address().starts_with("[::1]:"));
}

}  // namespace
}  // namespace tessarine
