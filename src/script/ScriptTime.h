// The time that scripts run in, in microseconds since the start.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <thread>

#include "platform/Platform.h"

namespace tessarine::script {

class ScriptTime {
 public:
  virtual ~ScriptTime() = default;
  [[nodiscard]] virtual std::int64_t now() const = 0;
  // Returns at once for a time that has passed.
  virtual void sleepUntil(std::int64_t time) = 0;
};

// Stands still but for waits, which take no real time. The day starts at noon.
class VirtualTime : public ScriptTime, public Clock {
 public:
  [[nodiscard]] std::int64_t now() const override { return now_; }
  void sleepUntil(std::int64_t time) override { now_ = std::max(now_, time); }

  double secondsSinceMidnight() override {
    return static_cast<double>((kNoon + now_) % (2 * kNoon)) / static_cast<double>(kSecond);
  }
  void beep() override {}

 private:
  static constexpr std::int64_t kSecond = 1'000'000;
  static constexpr std::int64_t kNoon = kSecond * 3600 * 12;
  std::int64_t now_ = 0;
};

class RealTime : public ScriptTime {
 public:
  [[nodiscard]] std::int64_t now() const override {
    return std::chrono::duration_cast<std::chrono::microseconds>(Steady::now() - start_).count();
  }
  void sleepUntil(std::int64_t time) override {
    std::this_thread::sleep_until(start_ + std::chrono::microseconds(time));
  }

 private:
  using Steady = std::chrono::steady_clock;
  Steady::time_point start_ = Steady::now();
};

}  // namespace tessarine::script
