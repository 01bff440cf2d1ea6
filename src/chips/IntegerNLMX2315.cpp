// The words of the LMX2315, LMX2320 and LMX2325: 19 bits, DB0 first, one control bit at the low end. They
// have no function word.
#include <algorithm>
#include <string_view>

#include "chips/Words.h"
#include "engine/BitStrings.h"
#include "engine/Module1.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"

namespace tessarine {
namespace {

// "1" for the lower of the chip's two prescalers, "0" for the upper; no bit for any other modulus.
std::string_view prescalerSelect(std::string_view model, Integer PreScalar) {
  const int lower = model == "LMX2325" ? 32 : 64;
  const int upper = 2 * lower;
  if (PreScalar == lower || PreScalar == lower + 1) return "1";
  if (PreScalar == upper || PreScalar == upper + 1) return "0";
  return "";
}

}  // namespace

void PLL::CalcLMX2315Words() {
  // Below 0 only by the hair that the guard of the division leaves.
  const String A = shiftingField("A", std::max(0.0, roundDown(ACount)), 7);
  const String B = shiftingField("B", BCount, 11);
  const String R = shiftingField("R", roundDown(RTotal), 14);
  // Nothing can be refused from here on.

  Astr = A;
  Bstr = B;
  word(Rstr) = {
      "1",  // control
      R,
      prescalerSelect(module_.CurrentModel, PreScalar),
      "000",
  };
  word(Nstr) = {
      "0",  // control
      Astr,
      Bstr,
  };
}

}  // namespace tessarine
