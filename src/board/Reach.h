// Whether an asked frequency can be met, and what would meet it, told before anything is sent. All of it is
// worked out from the receiving side: what the words of these fields would make of the chip.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/Chip.h"
#include "board/ChipMap.h"

namespace tessarine::board {

// The fields as they stand, read by the program's rule for numbers.
struct ReachFields {
  std::string refused;  // why they cannot be read; then nothing else counts

  double vcoMHz = 0;
  double referenceMHz = 0;
  double stepKHz = 0;
  int prescaler = 0;

  // Of the fractional chips' panels.
  double r = 1;
  bool doubler = false;
  bool halver = false;
  bool lowestTerms = false;  // FRAC / MOD is reduced
  int resync = 0;

  // What a setup file puts in place of reference, step and prescaler.
  struct File {
    float detectorMHz = 0;
    int modulus = 0;
    int prescaler = 0;
  };
  std::optional<File> file;

  struct Sky {
    int division = 1;
    int mainPump = 0;
    int auxiliaryPump = 0;
    std::optional<double> bandPump = {};  // of a band file, in place of the main one
    bool integerOnly = false;
    bool tenBits = false;
  };
  Sky sky;
};

// A step to type in place of the present one.
struct StepAdvice {
  std::string stepKHz;
  std::string r;
  std::string n;  // "90007", "67+26/130"
  double detectorMHz = 0;
  double outputMHz = 0;
};

struct Reach {
  std::string refused;  // the load's own message; empty: it goes through

  double askedMHz = 0;
  Tuning tuning;  // of the chip after the load
  bool met = false;
  double offsetHz = 0;  // of the output; 0 without one
  std::vector<std::string> why;
  std::optional<double> belowMHz;
  std::optional<double> aboveMHz;
  std::optional<StepAdvice> step;  // meets the asked frequency...
  bool onlyClosest = false;        // ...or comes as close as any
  std::vector<std::string> limits;
  std::vector<std::string> notes;

  [[nodiscard]] double offsetPpm() const { return askedMHz == 0 ? 0 : offsetHz / askedMHz; }
};

[[nodiscard]] Reach reachOf(const ChipModel& chip, const ReachFields& fields);

// One line each, of tab-separated parts, all with "reach" in front.
[[nodiscard]] std::string describeReach(const Reach& reach);

}  // namespace tessarine::board
