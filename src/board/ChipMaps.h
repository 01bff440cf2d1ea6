// The maps of all chips that the board can carry.
#pragma once

#include "board/ChipMap.h"

namespace tessarine::board {

extern const ChipMap kAdf411xMap;  // ADF4106, ADF4110 to ADF4113
extern const ChipMap kLmx23x6Map;  // LMX2306, LMX2316, LMX2326, ADF4118
extern const ChipMap kLmx2315Map;  // LMX2315, LMX2320
extern const ChipMap kLmx2325Map;  // LMX2325
extern const ChipMap kAdf425xMap;  // ADF4251, ADF4252
extern const ChipMap kAdf4153Map;  // ADF4153, ADF4156
extern const ChipMap kAdf4193Map;
extern const ChipMap kSky72300Map;
extern const ChipMap kUmcMap;

// What each of them can be made to give.
extern const ReachStrategy kAdf411xReach;
extern const ReachStrategy kLmx23x6Reach;
extern const ReachStrategy kLmx2315Reach;
extern const ReachStrategy kLmx2325Reach;
extern const ReachStrategy kAdf425xReach;
extern const ReachStrategy kAdf4153Reach;
extern const ReachStrategy kAdf4193Reach;
extern const ReachStrategy kSky72300Reach;

}  // namespace tessarine::board
