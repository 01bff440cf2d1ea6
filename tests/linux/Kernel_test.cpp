// The calls of the real kernel, on files as they are everywhere.
#include "platform/linux/Kernel.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

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
  const auto begin = std::chrono::steady_clock::now();
  waitFor({}, 20'000);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(20));
  // Where no descriptor is left, who comes is turned away, time and again.
  rlimit before{};
  ::getrlimit(RLIMIT_NOFILE, &before);
  const rlimit few{64, before.rlim_max};
  for (int turn = 0; turn < 2; ++turn) {
    const int late = ::socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(::connect(late, reinterpret_cast<const sockaddr*>(&place), size), 0);
    ::setrlimit(RLIMIT_NOFILE, &few);
    std::vector<int> others;
    for (int other = 0; (other = ::dup(client)) >= 0;) others.push_back(other);
    EXPECT_EQ(ours.listener->accept(), nullptr);
    char nothing = 0;
    EXPECT_LE(::recv(late, &nothing, 1, MSG_DONTWAIT), 0);
    EXPECT_NE(errno, EAGAIN);
    for (const int other : others) ::close(other);
    ::setrlimit(RLIMIT_NOFILE, &before);
    ::close(late);
  }
  ::close(client);
}

}  // namespace
}  // namespace tessarine
