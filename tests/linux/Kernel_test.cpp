// The calls of the real kernel, on files as they are everywhere.
#include "platform/linux/Kernel.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>
#include <tuple>

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

TEST(Sockets, TellTheirAddressAsItIsTypedAndWhoIsAliveBehindThem) {
  const Listening ours = listenOn({}, "0");
  EXPECT_TRUE(ours.listener->address().starts_with("127.0.0.1:"));
  EXPECT_TRUE(listenOn("::1", "0").listener->address().starts_with("[::1]:"));
  EXPECT_TRUE(ours.isLoopback && listenOn("::1", "0").isLoopback);
  EXPECT_FALSE(listenOn("0.0.0.0", "0").isLoopback || listenOn("::", "0").isLoopback);
  sockaddr_in place{};
  socklen_t size = sizeof place;
  ::getsockname(ours.listener->descriptor(), reinterpret_cast<sockaddr*>(&place), &size);
  const int client = ::socket(AF_INET, SOCK_STREAM, 0);
  ASSERT_EQ(::connect(client, reinterpret_cast<const sockaddr*>(&place), size), 0);
  const auto connection = ours.listener->accept();
  const std::tuple<int, int, int> options[] = {{SOL_SOCKET, SO_KEEPALIVE, 1},
                                               {IPPROTO_TCP, TCP_NODELAY, 1},
                                               {IPPROTO_TCP, TCP_KEEPIDLE, 60},
                                               {IPPROTO_TCP, TCP_KEEPINTVL, 20},
                                               {IPPROTO_TCP, TCP_KEEPCNT, 3}};
  for (const auto& [level, name, wanted] : options) {
    int value = 0;
    socklen_t length = sizeof value;
    ::getsockopt(connection->descriptor(), level, name, &value, &length);
    EXPECT_EQ(value, wanted) << name;
  }
  ::close(client);
}

}  // namespace
}  // namespace tessarine
