// The time that passes in the waits of a program, in microseconds: work takes none of it, and a wait no more
// than it was asked for. So what was recorded by a clock on the wall meets the same waits on a virtual one.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "platform/WaitWatch.h"

namespace tessarine::script {

class WaitedTime : public WaitWatch {
 public:
  // `microseconds` never goes back. With `isWaitedTime` it passes in waits alone, and is taken as it is.
  WaitedTime(std::function<std::int64_t()> microseconds, bool isWaitedTime)
      : microseconds_(std::move(microseconds)), isWaitedTime_(isWaitedTime), seen_(microseconds_()) {}

  [[nodiscard]] std::int64_t now();
  void waitBegins(int milliseconds) override;
  void waitEnds() override;
  // A wait of so many microseconds, and one that lasts until it is ended.
  void beginSpan(std::int64_t span) { begin(now() + span); }
  void beginOpen() { begin(kOpen); }

 private:
  static constexpr std::int64_t kOpen = std::numeric_limits<std::int64_t>::max();
  void begin(std::int64_t deadline);

  std::function<std::int64_t()> microseconds_;
  bool isWaitedTime_;
  std::int64_t seen_;  // by `microseconds_`
  std::int64_t now_ = 0;
  std::vector<std::int64_t> deadlines_;  // of the waits, the innermost last
};

}  // namespace tessarine::script
