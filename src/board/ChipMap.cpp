#include "board/ChipMap.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "board/ChipMaps.h"

namespace tessarine::board {

namespace {

constexpr ChipModel kModels[] = {
    {"ADF4106", &kAdf411xMap, 6000, 325},
    {"ADF4110", &kAdf411xMap, 550, 200},
    {"ADF4111", &kAdf411xMap, 1200, 200},
    {"ADF4112", &kAdf411xMap, 3000, 200},
    {"ADF4113", &kAdf411xMap, 4000, 200},
    {"ADF4118", &kLmx23x6Map, 3000},
    {"ADF4153", &kAdf4153Map, 4000},
    {"ADF4156", &kAdf4153Map, 6000},
    {"ADF4193", &kAdf4193Map, 3500},
    {"ADF4251", &kAdf425xMap, 2500},
    {"ADF4252", &kAdf425xMap, 3000},
    {"LMX2306", &kLmx23x6Map, 550},
    {"LMX2315", &kLmx2315Map, 1200},
    {"LMX2316", &kLmx23x6Map, 1200},
    {"LMX2320", &kLmx2315Map, 2000},
    {"LMX2325", &kLmx2325Map, 2500},
    {"LMX2326", &kLmx23x6Map, 2800},
    {"SKY72300-362", &kSky72300Map, 2100},
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
