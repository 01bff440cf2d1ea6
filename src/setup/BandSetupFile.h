// The band setup file: a setting per band of VCO frequency, one band a line.
#pragma once

#include <string_view>
#include <vector>

#include "engine/Types.h"

namespace tessarine {

// One row per band: the bounds in MHz, inclusive, and the setting reversed against its text in the file.
struct BandTable {
  std::vector<Single> low;
  std::vector<Single> high;
  std::vector<String> code;
};

// Reads the text of a file. A Fault names `file`, and the line and value that cannot be taken.
[[nodiscard]] BandTable parseBandTable(std::string_view text, std::string_view file);

}  // namespace tessarine
