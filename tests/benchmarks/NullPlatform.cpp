#include "NullPlatform.h"

#include <benchmark/benchmark.h>

#include <cstdint>

// Apart from the benchmarks, so that no call can be folded into the loop that makes it.
namespace tessarine {

void NullPort::DlPortWritePortUchar(std::uint16_t, std::uint8_t value) { latch_ = value; }
std::uint8_t NullPort::DlPortReadPortUchar(std::uint16_t) { return latch_; }
void NullPort::OutputByte1(std::uint16_t, std::uint8_t value) { latch_ = value; }
std::uint8_t NullPort::InputByte1(std::uint16_t) { return latch_; }

void bareLoad(PortDriver& driver) {
  // 3 words of 73 writes, 3 strobes of 2 and the last 0, each with its read-back, and a read per clock pulse.
  constexpr int kWrites = 3 * 73 + 3 * 2 + 1;
  constexpr int kReads = kWrites + 3 * 24;
  for (int i = 0; i < kWrites; ++i) driver.DlPortWritePortUchar(888, static_cast<std::uint8_t>(i));
  for (int i = 0; i < kReads; ++i) benchmark::DoNotOptimize(driver.DlPortReadPortUchar(888));
}

}  // namespace tessarine
