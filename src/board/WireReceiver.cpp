#include "board/WireReceiver.h"

#include <cstddef>
#include <utility>

namespace tessarine::board {

namespace {

// Far more than any word: reached only when load enable never rises.
constexpr std::size_t kMostBits = 65536;

}  // namespace

WireReceiver::Edges WireReceiver::drive(Levels next) {
  const Edges edges{.bit = next.clock && !levels_.clock, .latch = next.loadEnable && !levels_.loadEnable};
  levels_ = next;
  if (edges.bit) {
    if (bits_.size() == kMostBits) bits_.erase(0, kMostBits / 2);
    bits_.push_back(next.data ? '1' : '0');
    shiftRegister_ = shiftRegister_ << 1 | (next.data ? 1U : 0U);
  }
  return edges;
}

std::string WireReceiver::takeBits() { return std::exchange(bits_, {}); }

}  // namespace tessarine::board
