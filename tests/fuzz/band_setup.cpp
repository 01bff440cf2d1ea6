#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <tuple>

#include "SetupRun.h"

namespace tessarine {
namespace {

constexpr std::string_view kGood = "800 900 011\n900 1000 101\n! end\n";

auto state(PLL& pll) {
  return std::make_tuple(pll.Setup_ADF4113_NoOfCurrentSet2, PLLProbe::bandLow(pll), PLLProbe::bandHigh(pll),
                         PLLProbe::bandCode(pll));
}

// Whatever the table holds, a word of 24 bits comes out of it.
void check(EngineBench& bench) {
  PLL& pll = bench.pll;
  pll.SetupFile_ADF4113 = "bands.txt";
  bench.module.CurrentModel = "ADF4113";
  pll.PreScalar = 8;
  pll.Fvco = 900;
  pll.Fosc = 10;
  pll.Fcomp = 200;
  pll.CPGain = pll.FuncInit = "0";
  pll.FAnalogDevice = "00100100000001110000";
  if (!PLLProbe::calcRegisters(pll) || pll.FStr.size() != 24) std::abort();
  if (pll.FStr.find_first_not_of("01") != String::npos) std::abort();
}

}  // namespace
}  // namespace tessarine

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessarine;
  return fuzzReader(data, size, kGood, PLLProbe::takeBandSetup, state, check);
}
