// One word of a load as it stands on the wire, for pictures of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "board/ChipMap.h"

namespace tessarine::board {

// What one load pulse latched. Times are those of the trace.
struct LoadedWord {
  static constexpr std::size_t kTimedBits = 32;

  std::string bits;                    // since the pulse before, first on the wire first; possibly none
  std::vector<std::int64_t> bitTimes;  // rising clock edges of the last of these bits, at most kTimedBits
  std::int64_t latchTime = 0;          // rising load-enable edge
  std::optional<std::size_t> registerIndex;  // the register of the map that took the word
  std::uint32_t word = 0;                    // what it holds since then
};

// The bits of one field on the wire: from the rising clock edge of its first bit to that of its last.
struct FieldSpan {
  const Field* field = nullptr;
  std::uint32_t value = 0;
  std::int64_t firstBit = 0;
  std::int64_t lastBit = 0;
};

// The fields of `spec` that came with this word, in the order of the wire. Fields that a short word did not
// reach are left out.
[[nodiscard]] std::vector<FieldSpan> fieldSpans(const LoadedWord& word, const Register& spec);

}  // namespace tessarine::board
