// The words of the LMX2306, LMX2316, LMX2326 and ADF4118: 21 bits, DB0 first, two control bits at the low
// end.
#include "chips/Words.h"
#include "engine/BitStrings.h"
#include "engine/Module1.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"

namespace tessarine {

void PLL::CalcLMXWords() {
  const String A = shiftingField("A", roundHalfUp(ACount), 5);
  const String B = shiftingField("B", BCount, 13);
  const String R = shiftingField("R", roundDown(RTotal), 14);
  // Nothing can be refused from here on.

  Astr = A;
  Bstr = B;
  word(Rstr) = {
      "00",  // control
      R,
      "0000",
      LDPrecision,
  };
  word(Nstr) = {
      "10",  // control
      Astr, Bstr,
      GoBit,  // empty until the operator has chosen a gain
  };
  word(FStr) = {
      "01",  // control
      "00100",
      module_.PolarityNegative != 0 ? "0" : "1",
      "0000100000000",
  };
}

}  // namespace tessarine
