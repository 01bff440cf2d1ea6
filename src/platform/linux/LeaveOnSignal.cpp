#include "platform/linux/LeaveOnSignal.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <utility>

#include "platform/Fault.h"
#include "platform/linux/HostPlatform.h"
#include "platform/linux/Kernel.h"

namespace tessarine {
namespace {

constexpr std::array kRequests{SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE};
constexpr std::array kCrashes{SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV};

std::atomic<int> handlersEnd{-1};

// Handlers only pass the number on: all else is done by the thread, where every call is allowed.
void tellThread(int number) {
  const int error = errno;
  const auto byte = static_cast<unsigned char>(number);
  (void)!::write(handlersEnd, &byte, 1);
  errno = error;
}

// Coming back would crash again, so the crashed thread waits for the other one to end the program, and dies
// by itself if that takes too long.
void tellThreadAndStop(int number) {
  tellThread(number);
  const timespec patience{5, 0};
  ::nanosleep(&patience, nullptr);
  std::signal(number, SIG_DFL);
  std::raise(number);
}

void handle(int number, void (*handler)(int)) {
  struct sigaction action {};
  if (::sigaction(number, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) return;
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  ::sigaction(number, &action, nullptr);
}

void handleNoMore(int number, void (*handler)(int)) {
  struct sigaction action {};
  if (::sigaction(number, nullptr, &action) == 0 && action.sa_handler == handler)
    std::signal(number, SIG_DFL);
}

}  // namespace

LeaveOnSignal::LeaveOnSignal(HostPlatform& platform)
    : LeaveOnSignal([&platform] { platform.leaveForGood(); }) {}

LeaveOnSignal::LeaveOnSignal(std::function<void()> leave) : leave_(std::move(leave)) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw Fault("Signals cannot be watched: " + errorName(errno));
  wake_ = ends[0];
  handlersEnd = ends[1];
  thread_ = std::thread([this] { wait(); });
  for (const int number : kRequests) handle(number, tellThread);
  for (const int number : kCrashes) handle(number, tellThreadAndStop);
}

LeaveOnSignal::~LeaveOnSignal() {
  for (const int number : kRequests) handleNoMore(number, tellThread);
  for (const int number : kCrashes) handleNoMore(number, tellThreadAndStop);
  ::close(handlersEnd.exchange(-1));
  thread_.join();
  ::close(wake_);
}

void LeaveOnSignal::wait() {
  unsigned char number = 0;
  ssize_t got = 0;
  do {
    got = ::read(wake_, &number, 1);
  } while (got < 0 && errno == EINTR);
  if (got != 1) return;
  leave_();
  std::signal(number, SIG_DFL);
  ::kill(::getpid(), number);
}

}  // namespace tessarine
