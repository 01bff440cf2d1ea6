#include "script/WaitedTime.h"

#include <algorithm>

namespace tessarine::script {

std::int64_t WaitedTime::now() {
  const std::int64_t seen = microseconds_();
  if (isWaitedTime_) return seen;
  if (!deadlines_.empty()) now_ = std::max(now_, std::min(now_ + (seen - seen_), deadlines_.back()));
  seen_ = seen;
  return now_;
}

void WaitedTime::waitBegins(int milliseconds) { begin(now() + std::int64_t{1000} * milliseconds); }

void WaitedTime::begin(std::int64_t deadline) {
  (void)now();
  deadlines_.push_back(deadline);
}

void WaitedTime::waitEnds() {
  (void)now();
  if (deadlines_.back() != kOpen) now_ = std::max(now_, deadlines_.back());
  deadlines_.pop_back();
}

}  // namespace tessarine::script
