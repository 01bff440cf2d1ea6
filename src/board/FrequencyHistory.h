// The output frequency over time.
#pragma once

#include <cstdint>
#include <iosfwd>

#include "board/Ring.h"

namespace tessarine::board {

// From `time` on, in microseconds of the trace, until the next point.
struct FrequencyPoint {
  std::int64_t time = 0;
  double outputMHz = 0;  // 0: none
  bool locked = false;

  [[nodiscard]] bool sameTuning(const FrequencyPoint& other) const {
    return outputMHz == other.outputMHz && locked == other.locked;
  }
};

using FrequencyHistory = Ring<FrequencyPoint>;

// A heading, then a line "seconds,MHz,locked" for each point, with a decimal point in every locale.
void saveCsv(const FrequencyHistory& history, std::ostream& out);

}  // namespace tessarine::board
