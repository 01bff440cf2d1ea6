// The families of models that the window and the modes tell apart.
#pragma once

#include <string_view>

namespace tessarine {

[[nodiscard]] constexpr bool isFractional(std::string_view model) {
  return model == "ADF4153" || model == "ADF4156" || model == "ADF4251" || model == "ADF4252";
}

[[nodiscard]] constexpr bool isADF411x(std::string_view model) {
  return model == "ADF4110" || model == "ADF4111" || model == "ADF4112" || model == "ADF4113";
}

}  // namespace tessarine
