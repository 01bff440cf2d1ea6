// The clock: the local time of day at the start of the program, carried on by a clock that nobody sets.
#pragma once

#include <chrono>
#include <functional>

#include "platform/Platform.h"

namespace tessarine {

class LinuxClock : public Clock {
 public:
  using Steady = std::function<double()>;  // seconds
  using Bell = std::function<void()>;

  explicit LinuxClock(Bell bell = terminalBell);
  LinuxClock(double startSecondsOfDay, Steady steady, Bell bell);

  double secondsSinceMidnight() override;
  void beep() override { bell_(); }

  // Rings the terminal, where standard error is one.
  static void terminalBell();

 private:
  Steady steady_;
  Bell bell_;
  double atZero_ = 0;  // seconds of day when steady_ was 0
};

// Seconds since local midnight.
[[nodiscard]] double secondsOfDay(std::chrono::system_clock::time_point time);

}  // namespace tessarine
