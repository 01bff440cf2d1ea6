// The fractional setup file: keys in a head that ends with "FRAC", then one phase value a line.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "engine/Types.h"

namespace tessarine {

struct FracSetup {
  std::optional<Single> PFD;  // MHz; what the file does not have stays empty
  std::optional<Integer> MOD;
  std::optional<Integer> ICP;
  std::optional<Integer> SW12;
  std::optional<Integer> SW3;
  std::optional<Integer> P;
  std::vector<Integer> phases;  // one a line
};

// Reads the text of a file. A Fault names `file`, and the line and value that cannot be taken.
[[nodiscard]] FracSetup parseFracSetup(std::string_view text, std::string_view file, bool withKeys = true);

}  // namespace tessarine
