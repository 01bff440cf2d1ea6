#include "platform/linux/LinuxClock.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <cmath>
#include <ctime>
#include <utility>

namespace tessarine {
namespace {

constexpr double kDay = 86400;

double steadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

double secondsOfDay(std::chrono::system_clock::time_point time) {
  using std::chrono::floor;
  const auto whole = floor<std::chrono::seconds>(time);
  const std::time_t stamp = std::chrono::system_clock::to_time_t(whole);
  std::tm local{};
  ::localtime_r(&stamp, &local);
  const double fraction = std::chrono::duration<double>(time - whole).count();
  return std::fmod(local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec + fraction, kDay);
}

LinuxClock::LinuxClock(Bell bell)
    : LinuxClock(secondsOfDay(std::chrono::system_clock::now()), steadySeconds, std::move(bell)) {
  // Waits of this thread end on time, not up to 50 microseconds late to save the computer a wake-up: a load
  // has many short ones.
  ::prctl(PR_SET_TIMERSLACK, 1UL);
}

LinuxClock::LinuxClock(double startSecondsOfDay, Steady steady, Bell bell)
    : steady_(std::move(steady)), bell_(std::move(bell)), atZero_(startSecondsOfDay - steady_()) {}

double LinuxClock::secondsSinceMidnight() {
  const double seconds = std::fmod(atZero_ + steady_(), kDay);
  return seconds < 0 ? seconds + kDay : seconds;
}

void LinuxClock::terminalBell() {
  if (::isatty(STDERR_FILENO) != 0) (void)!::write(STDERR_FILENO, "\a", 1);
}

}  // namespace tessarine
