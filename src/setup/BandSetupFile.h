// The band setup file: a setting per band of VCO frequency, one band a line.
#pragma once

#include <string_view>

#include "engine/BandTable.h"

namespace tessarine {

// Reads the text of a file. A Fault names `file`, and the line and value that cannot be taken.
[[nodiscard]] BandTable parseBandTable(std::string_view text, std::string_view file);

}  // namespace tessarine
