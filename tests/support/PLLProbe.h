// The private steps and tables of the engine, for tests and benchmarks of one step.
#pragma once

#include <string_view>
#include <vector>

#include "engine/PLL.h"

namespace tessarine {

struct PLLProbe {
  static bool calcRegisters(PLL& pll) { return pll.CalcRegisters(); }
  static void shiftOut(PLL& pll, const String& word) { pll.ShiftOut(word); }
  static void loadFstr(PLL& pll) { pll.LoadFstr(); }
  static void loadMstr(PLL& pll) { pll.LoadMstr(); }
  static void loadRstr(PLL& pll) { pll.LoadRstr(); }
  static void loadNstr(PLL& pll) { pll.LoadNstr(); }
  static void loadR0(PLL& pll) { pll.LoadR0(); }
  static void loadR1(PLL& pll) { pll.LoadR1(); }
  static void loadR4(PLL& pll, Integer index) { pll.LoadR4(index); }
  static void loadR8(PLL& pll) { pll.LoadR8(); }
  static void takeFracSetup(PLL& pll, std::string_view text) { pll.takeFracSetup(text, true); }
  static void takeBandSetup(PLL& pll, std::string_view text) { pll.takeBandSetup(text); }

  static double nTotal(const PLL& pll) { return pll.NTotal; }
  static double rTotal(const PLL& pll) { return pll.RTotal; }

  static std::vector<Integer>& phaseTable(PLL& pll) { return pll.PhaseTable; }
  static std::vector<Single>& bandLow(PLL& pll) { return pll.CurrentSet2.low; }
  static std::vector<Single>& bandHigh(PLL& pll) { return pll.CurrentSet2.high; }
  static std::vector<String>& bandCode(PLL& pll) { return pll.CurrentSet2.code; }
};

}  // namespace tessarine
