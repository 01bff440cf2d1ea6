// The maps of all chips that the board can carry.
#pragma once

#include "board/ChipMap.h"

namespace tessarine::board {

extern const ChipMap kAdf411xMap;  // ADF4106, ADF4110 to ADF4113
extern const ChipMap kLmx23x6Map;  // LMX2306, LMX2316, LMX2326, ADF4118
extern const ChipMap kLmx2315Map;  // LMX2315, LMX2320
extern const ChipMap kLmx2325Map;  // LMX2325

}  // namespace tessarine::board
