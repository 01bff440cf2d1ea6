#include "platform/linux/LinuxSockets.h"

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <ctime>
#include <utility>
#include <vector>

#include "platform/Fault.h"
#include "platform/linux/Kernel.h"

namespace tessarine {
namespace {

// A client that vanished without a word is noticed within some two minutes.
constexpr int kIdleSeconds = 60;
constexpr int kProbeSeconds = 20;
constexpr int kProbes = 3;
constexpr int kBacklog = 16;

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { close(); }
  void close() {
    if (number_ >= 0) ::close(std::exchange(number_, -1));
  }
  [[nodiscard]] int get() const { return number_; }

 private:
  int number_;
};

void setOption(int socket, int level, int name, int value) {
  // A socket without it works all the same.
  (void)::setsockopt(socket, level, name, &value, sizeof value);
}

bool meansLater(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

class TcpConnection : public Connection {
 public:
  explicit TcpConnection(Descriptor socket) : socket_(std::move(socket)) {
    setOption(socket_.get(), IPPROTO_TCP, TCP_NODELAY, 1);
    setOption(socket_.get(), SOL_SOCKET, SO_KEEPALIVE, 1);
    setOption(socket_.get(), IPPROTO_TCP, TCP_KEEPIDLE, kIdleSeconds);
    setOption(socket_.get(), IPPROTO_TCP, TCP_KEEPINTVL, kProbeSeconds);
    setOption(socket_.get(), IPPROTO_TCP, TCP_KEEPCNT, kProbes);
  }

  Flow receive(std::string& into) override {
    std::array<char, 16384> chunk{};
    const ssize_t got = ::recv(socket_.get(), chunk.data(), chunk.size(), 0);
    if (got == 0) return Flow::ended;
    if (got < 0) return meansLater(errno) ? Flow::open : Flow::broken;
    into.append(chunk.data(), static_cast<std::size_t>(got));
    return Flow::open;
  }

  Flow send(std::string& from) override {
    const ssize_t sent = ::send(socket_.get(), from.data(), from.size(), MSG_NOSIGNAL);
    if (sent < 0) return meansLater(errno) ? Flow::open : Flow::broken;
    from.erase(0, static_cast<std::size_t>(sent));
    return Flow::open;
  }

  [[nodiscard]] int descriptor() const override { return socket_.get(); }

 private:
  Descriptor socket_;
};

class TcpListener : public Listener {
 public:
  TcpListener(Descriptor socket, std::string address)
      : socket_(std::move(socket)), address_(std::move(address)) {}

  [[nodiscard]] std::string address() const override { return address_; }

  std::unique_ptr<Connection> accept() override {
    Descriptor client = next();
    if (client.get() < 0 && (errno == EMFILE || errno == ENFILE)) {
      // Nobody waits for an answer that never comes, and who asks is not asked after again and again.
      spare_.close();
      next().close();
      spare_ = spare();
    }
    if (client.get() < 0) return nullptr;
    return std::make_unique<TcpConnection>(std::move(client));
  }

  [[nodiscard]] int descriptor() const override { return socket_.get(); }

 private:
  [[nodiscard]] Descriptor next() const {
    return Descriptor(::accept4(socket_.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
  }
  static Descriptor spare() { return Descriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC)); }

  Descriptor socket_;
  std::string address_;
  Descriptor spare_ = spare();  // given up to turn a client away where no other is left
};

bool isLoopback(const sockaddr_storage& address) {
  if (address.ss_family == AF_INET) {
    const auto& ipv4 = reinterpret_cast<const sockaddr_in&>(address);
    return ntohl(ipv4.sin_addr.s_addr) >> 24U == 127;
  }
  return address.ss_family == AF_INET6 &&
         IN6_IS_ADDR_LOOPBACK(&reinterpret_cast<const sockaddr_in6&>(address).sin6_addr);
}

std::string textOf(const sockaddr_storage& address, socklen_t size) {
  std::array<char, NI_MAXHOST> host{};
  std::array<char, NI_MAXSERV> port{};
  if (::getnameinfo(reinterpret_cast<const sockaddr*>(&address), size, host.data(), host.size(), port.data(),
                    port.size(), NI_NUMERICHOST | NI_NUMERICSERV) != 0) {
    return "?";
  }
  const std::string name = host.data();
  return (name.find(':') == std::string::npos ? name : '[' + name + ']') + ':' + port.data();
}

// The socket, or the errno.
std::pair<Descriptor, int> listenAt(const addrinfo& place) {
  Descriptor socket(::socket(place.ai_family, place.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (socket.get() < 0) return {Descriptor(-1), errno};
  setOption(socket.get(), SOL_SOCKET, SO_REUSEADDR, 1);
  if (::bind(socket.get(), place.ai_addr, place.ai_addrlen) != 0 || ::listen(socket.get(), kBacklog) != 0) {
    return {Descriptor(-1), errno};
  }
  return {std::move(socket), 0};
}

}  // namespace

Listening listenOn(const std::string& host, const std::string& port) {
  const std::string name = host.empty() ? "127.0.0.1" : host;
  const std::string what = "Remote control cannot listen on " + quoted(name + ':' + port) + ": ";
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_PASSIVE | AI_NUMERICSERV;
  addrinfo* found = nullptr;
  if (const int error = ::getaddrinfo(name.c_str(), port.c_str(), &hints, &found); error != 0) {
    throw Fault(what + ::gai_strerror(error));
  }
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> places(found, &::freeaddrinfo);
  int error = 0;
  for (const addrinfo* place = found; place != nullptr; place = place->ai_next) {
    auto [socket, why] = listenAt(*place);
    error = why;
    if (socket.get() < 0) continue;
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    (void)::getsockname(socket.get(), reinterpret_cast<sockaddr*>(&address), &size);
    return {std::make_unique<TcpListener>(std::move(socket), textOf(address, size)), isLoopback(address)};
  }
  throw Fault(what + errorName(error));
}

void waitFor(std::span<const Interest> interests, std::int64_t microseconds) {
  constexpr std::int64_t kSecond = 1'000'000;
  std::vector<pollfd> watched;
  watched.reserve(interests.size());
  for (const Interest& interest : interests) {
    const int events = (interest.readable ? POLLIN : 0) | (interest.writable ? POLLOUT : 0);
    watched.push_back({interest.descriptor, static_cast<short>(events), 0});
  }
  microseconds = std::max<std::int64_t>(microseconds, 0);
  const timespec span{static_cast<time_t>(microseconds / kSecond), (microseconds % kSecond) * 1000};
  (void)::ppoll(watched.data(), watched.size(), &span, nullptr);
}

}  // namespace tessarine
