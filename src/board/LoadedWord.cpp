#include "board/LoadedWord.h"

#include <algorithm>

namespace tessarine::board {

std::vector<FieldSpan> fieldSpans(const LoadedWord& word, const Register& spec) {
  const std::size_t count = word.bitTimes.size();
  std::vector<FieldSpan> spans;
  for (const Field& field : spec.fields) {
    if (field.offset >= count) continue;
    const std::size_t top = std::min<std::size_t>(field.offset + field.width, count);
    spans.push_back({&field, field.value(word.word), word.bitTimes[count - top],
                     word.bitTimes[count - 1 - field.offset]});
  }
  std::ranges::sort(spans, {}, &FieldSpan::firstBit);
  return spans;
}

}  // namespace tessarine::board
