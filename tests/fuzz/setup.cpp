// A reader of setup files over a text of any bytes, on an engine that has taken a good one before. Aborts,
// which the fuzzer reports with the input, unless the text is either taken or refused as a whole. FORMAT is
// frac or band.
#include <cstdlib>
#include <tuple>

#include "support/EngineBench.h"
#include "support/PLLProbe.h"

namespace tessarine {

struct frac {
  static constexpr std::string_view kGood =
      "PFD= 26 MOD= 1625 ICP= 7 SW12= 2 SW3= 3 $P= 4 FRAC\n0 130\n1 254\n";
  static constexpr auto take = PLLProbe::takeFracSetup;

  // All that it may change.
  static auto state(PLL& pll) {
    return std::make_tuple(pll.PFDFromFile, pll.ModFromFile, pll.ICPFromFile, pll.SW12FromFile,
                           pll.SW3FromFile, pll.PreScalarFromFile, PLLProbe::phaseTable(pll));
  }
  // Of what was taken.
  static bool isWell(EngineBench& bench) {
    const auto entries = PLLProbe::phaseTable(bench.pll).size();
    const bool warned = !bench.host.screen.messages.empty();
    // The phases of the good file stay where the body is empty.
    return entries >= 2 && warned == (entries - 1 < 64);
  }
};

struct band {
  static constexpr std::string_view kGood = "800 900 011\n900 1000 101\n! end\n";
  static constexpr auto take = PLLProbe::takeBandSetup;

  static auto state(PLL& pll) {
    return std::make_tuple(pll.Setup_ADF4113_NoOfCurrentSet2, PLLProbe::bandLow(pll), PLLProbe::bandHigh(pll),
                           PLLProbe::bandCode(pll));
  }
  // Whatever the table holds, a word of 24 bits comes out of it.
  static bool isWell(EngineBench& bench) {
    PLL& pll = bench.pll;
    pll.SetupFile_ADF4113 = "bands.txt";
    bench.module.CurrentModel = "ADF4113";
    pll.Fvco = 900, pll.Fosc = 10, pll.Fcomp = 200, pll.PreScalar = 8;
    pll.CPGain = pll.FuncInit = "0";
    pll.FAnalogDevice = "00100100000001110000";
    return PLLProbe::calcRegisters(pll) && pll.FStr.size() == 24 &&
           pll.FStr.find_first_not_of("01") == String::npos;
  }
};

}  // namespace tessarine

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessarine;
  EngineBench bench;
  FORMAT::take(bench.pll, FORMAT::kGood);
  bench.host.screen.messages.clear();
  const auto before = FORMAT::state(bench.pll);
  try {
    FORMAT::take(bench.pll, {reinterpret_cast<const char*>(data), size});
    if (!FORMAT::isWell(bench)) std::abort();
  } catch (const Fault&) {
    if (FORMAT::state(bench.pll) != before) std::abort();
  }
  return 0;
}
