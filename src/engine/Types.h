// The number types that the program's own rules are stated in.
#pragma once

#include <cstdint>
#include <string>

namespace tessarine {

using Integer = std::int16_t;
using Single = float;
using Double = double;
using String = std::string;

inline constexpr Integer kTrue = -1;  // a true Boolean held in an Integer
inline constexpr Integer kFalse = 0;

}  // namespace tessarine
