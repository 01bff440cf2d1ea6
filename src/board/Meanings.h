// What the values of fields stand for that chips of several families have alike.
#pragma once

#include <string_view>

namespace tessarine::board {

inline constexpr std::string_view kOffOn[] = {"off", "on"};
inline constexpr std::string_view kPolarity[] = {"negative", "positive"};
inline constexpr std::string_view kLockPrecision[] = {"3 cycles", "5 cycles"};
inline constexpr std::string_view kFractionalPrescaler[] = {"4/5", "8/9"};

}  // namespace tessarine::board
