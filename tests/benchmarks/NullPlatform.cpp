#include "NullPlatform.h"

// Apart from the benchmarks, so that no call can be folded into the loop that makes it.
namespace tessarine {

void NullPort::DlPortWritePortUchar(std::uint16_t, std::uint8_t value) { latch_ = value; }
std::uint8_t NullPort::DlPortReadPortUchar(std::uint16_t) { return latch_; }
void NullPort::OutputByte1(std::uint16_t, std::uint8_t value) { latch_ = value; }
std::uint8_t NullPort::InputByte1(std::uint16_t) { return latch_; }

}  // namespace tessarine
