// The time of a real board.
#pragma once

#include <chrono>
#include <cstdint>

namespace tessarine {

// Never goes back, whatever is done to the clock on the wall.
[[nodiscard]] inline std::int64_t steadyMicroseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

}  // namespace tessarine
