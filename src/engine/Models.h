// The families of chips. A model is compared by its exact text.
#pragma once

#include <algorithm>
#include <span>
#include <string_view>

namespace tessarine {

inline constexpr std::string_view kADFModels[] = {"ADF4110", "ADF4111", "ADF4112", "ADF4113"};
inline constexpr std::string_view kLMXModels[] = {"LMX2306", "LMX2316", "LMX2326", "ADF4118"};
inline constexpr std::string_view kLMX2315Models[] = {"LMX2315", "LMX2320", "LMX2325"};
inline constexpr std::string_view kADF4252Models[] = {"ADF4252", "ADF4251"};
inline constexpr std::string_view kADF4153Models[] = {"ADF4153", "ADF4156"};
inline constexpr std::string_view kADF4193 = "ADF4193";
inline constexpr std::string_view kSKY72300 = "SKY72300-362";
inline constexpr std::string_view kUMC = "UMC";

// Those whose gain bit is chosen on the panel.
inline constexpr std::string_view kPanelGainModels[] = {"LMX2316", "LMX2326", "ADF4118"};

[[nodiscard]] inline bool isOneOf(std::string_view model, std::span<const std::string_view> models) {
  return std::find(models.begin(), models.end(), model) != models.end();
}

}  // namespace tessarine
