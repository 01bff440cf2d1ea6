// A setting per band of VCO frequency.
#pragma once

#include <vector>

#include "engine/Types.h"

namespace tessarine {

// One row per band: the bounds in MHz, inclusive, and the setting reversed against its text in the file.
struct BandTable {
  std::vector<Single> low;
  std::vector<Single> high;
  std::vector<String> code;

  // Settings as the file has them; empty where there is no band.
  [[nodiscard]] String settingAt(
      Single frequency) const;  // of the last band that holds it, else of the first
  [[nodiscard]] String firstSetting() const;
};

}  // namespace tessarine
