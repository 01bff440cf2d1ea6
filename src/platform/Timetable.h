// What is to happen at a time to come.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace tessarine {

// Times are microseconds. Actions of one time run in the order of their coming.
class Timetable {
 public:
  void add(std::int64_t time, std::function<void()> action) { actions_.emplace(time, std::move(action)); }
  void clear() { actions_.clear(); }

  // Runs the first of those that are due; false if none is.
  bool runOne(std::int64_t now) {
    if (actions_.empty() || actions_.begin()->first > now) return false;
    const auto action = std::move(actions_.begin()->second);
    actions_.erase(actions_.begin());  // before it runs: it may wait, and so come back here
    action();
    return true;
  }

  // The time of the next one, at most `deadline`.
  [[nodiscard]] std::int64_t next(std::int64_t deadline) const {
    return actions_.empty() ? deadline : std::min(deadline, actions_.begin()->first);
  }

 private:
  std::multimap<std::int64_t, std::function<void()>> actions_;
};

}  // namespace tessarine
