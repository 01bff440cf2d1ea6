#include "board/ChipMap.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "board/ChipMaps.h"
#include "board/Ratings.h"

namespace tessarine::board {

namespace {

constexpr Rating title(double MHz) { return {MHz, "title of the data sheet"}; }

constexpr ChipModel kModels[] = {
    {"ADF4106", &kAdf411xMap, {.highestOutputMHz = title(6000)}},
    {"ADF4110", &kAdf411xMap, {.highestOutputMHz = title(550)}},
    {"ADF4111", &kAdf411xMap, {.highestOutputMHz = title(1200)}},
    {"ADF4112", &kAdf411xMap, {.highestOutputMHz = title(3000)}},
    {"ADF4113", &kAdf411xMap, {.highestOutputMHz = title(4000)}},
    {"ADF4118", &kLmx23x6Map, {.highestOutputMHz = title(3000)}},
    // Later sheets give no lowest output.
    {"ADF4153",
     &kAdf4153Map,
     {.highestOutputMHz = title(4000), .leastAboveFraction = {0, "Rev. F, page 16"}}},
    {"ADF4156",
     &kAdf4153Map,
     {.highestOutputMHz = title(6200),
      .leastInteger = {23, "Rev. E, page 8"},
      .leastModulus = {2, "Rev. E, page 8"},
      .leastAboveFraction = {1, "Rev. E, pages 8 and 11"}}},
    {"ADF4193", &kAdf4193Map, {.highestOutputMHz = title(3500)}},
    {"ADF4251",
     &kAdf425xMap,
     {.highestOutputMHz = {3000, "Rev. 0, Specifications"},
      .lowestOutputMHz = {100, "Rev. 0, Specifications: the widest range, from -8 dBm"},
      .highestDetectorMHz = {30, "Rev. 0, Specifications: by design"},
      .highestPrescaledMHz = {375, "Rev. 0, Specifications"},
      .leastInteger = {31, "Rev. 0, page 11"},
      .leastModulus = {2, "Rev. 0, page 11"},
      .leastAboveFraction = {0, "Rev. 0, page 11"}}},
    {"ADF4252", &kAdf425xMap, {.highestOutputMHz = title(3000)}},
    {"LMX2306", &kLmx23x6Map, {.highestOutputMHz = title(550)}},
    {"LMX2315", &kLmx2315Map, {.highestOutputMHz = title(1200)}},
    {"LMX2316", &kLmx23x6Map, {.highestOutputMHz = title(1200)}},
    {"LMX2320", &kLmx2315Map, {.highestOutputMHz = title(2000)}},
    {"LMX2325", &kLmx2325Map, {.highestOutputMHz = title(2500)}},
    {"LMX2326", &kLmx23x6Map, {.highestOutputMHz = title(2800)}},
    {"SKY72300-362", &kSky72300Map},
    {"UMC", &kUmcMap},
};

}  // namespace

std::optional<std::size_t> ChipMap::select(std::uint32_t shiftRegister) const {
  for (std::size_t index = 0; index < registers.size(); ++index) {
    if ((shiftRegister & registers[index].selectorMask) == registers[index].selectorValue) return index;
  }
  return std::nullopt;
}

std::size_t ChipMap::index(std::string_view registerName) const {
  for (std::size_t index = 0; index < registers.size(); ++index) {
    if (registers[index].name == registerName) return index;
  }
  throw std::logic_error("no register " + std::string(registerName));
}

std::span<const ChipModel> chipModels() { return kModels; }

const ChipModel* findChipModel(std::string_view name) {
  const auto found = std::ranges::find(kModels, name, &ChipModel::name);
  return found == std::end(kModels) ? nullptr : &*found;
}

}  // namespace tessarine::board
