#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <tuple>

#include "SetupRun.h"

namespace tessarine {
namespace {

constexpr std::string_view kGood = "PFD= 26 MOD= 1625 ICP= 7 SW12= 2 SW3= 3 $P= 4 FRAC\n0 130\n1 254\n";

auto state(PLL& pll) {
  return std::make_tuple(pll.PFDFromFile, pll.ModFromFile, pll.ICPFromFile, pll.SW12FromFile, pll.SW3FromFile,
                         pll.PreScalarFromFile, PLLProbe::phaseTable(pll));
}

void check(EngineBench& bench) {
  const auto entries = PLLProbe::phaseTable(bench.pll).size();
  const bool warned = !bench.host.screen.messages.empty();
  // The phases of the good file stay where the body is empty.
  if (entries < 2 || warned != (entries - 1 < 64)) std::abort();
}

}  // namespace
}  // namespace tessarine

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessarine;
  return fuzzReader(data, size, kGood, PLLProbe::takeFracSetup, state, check);
}
