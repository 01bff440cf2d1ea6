// What a chip is rated for, as far as a data sheet was seen to say it. The operator is told no limit that has
// no source; where the sheets at hand are silent, so is the board.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessarine::board {

struct ChipModel;
struct Tuning;

struct Rating {
  double value = 0;
  std::string_view source;  // empty: no sheet was seen to say it

  [[nodiscard]] constexpr bool known() const { return !source.empty(); }
};

struct Ratings {
  Rating highestOutputMHz = {};
  Rating lowestOutputMHz = {};
  Rating highestDetectorMHz = {};
  Rating highestPrescaledMHz = {};  // of what the prescaler gives to the counters
  Rating leastInteger = {};
  Rating leastModulus = {};
  Rating leastAboveFraction = {};  // MOD less FRAC: 1 where they must differ, 0 where they may be equal
};

// The ratings that a setting breaks, a sentence each.
[[nodiscard]] std::vector<std::string> brokenRatings(const ChipModel& chip, const Tuning& tuning);

}  // namespace tessarine::board
