// From frequencies to counter values, and on to the words of the chip in use.
#include <cmath>
#include <string>

#include "engine/ChipType.h"
#include "engine/Module1.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "platform/Platform.h"

namespace tessarine {
namespace {

// Lifts a quotient that misses a whole number by the noise of the division.
constexpr double kQuotientGuard = 0.000000001;

// A text of some hundred digits is read as infinite.
void requireFinite(const char* name, double MHz) {
  if (!std::isfinite(MHz)) throw Fault(std::string(name) + " is too large");
}

}  // namespace

bool PLL::CalcRegisters() {
  if (PreScalar == 0) {
    module_.platform.screen.messageBox("Pls. set Prescalar", Icon::plain);
    return false;
  }
  const ChipType* const type = chip();
  // A model without words gets its dividers all the same.
  if (!type || type->family->dual) splitTotal();
  if (type && type->family->calculate) type->family->calculate(*this);
  return true;
}

// N = P * B + A; A keeps its fraction, and may lie a hair below 0 where the guard has lifted B.
void PLL::splitTotal() {
  if (PreScalar < 0) throw Fault("PreScalar = " + messageNumber(PreScalar) + " must be above 0");
  requireFinite("VCO Output Frequency", Fvco);
  requireFinite("Reference Frequency", Fosc);
  const double total = Fvco * 1000 / Fcomp;  // MHz against kHz
  const double reference = Fosc * 1000 / Fcomp;
  if (!std::isfinite(total) || !std::isfinite(reference)) {
    throw Fault("Step Resolution = " + messageNumber(Fcomp) + " kHz cannot divide " + messageNumber(Fvco) +
                " MHz and " + messageNumber(Fosc) + " MHz");
  }
  NTotal = total;
  RTotal = reference;
  BCount = roundDown(NTotal / PreScalar + kQuotientGuard);
  ACount = NTotal - PreScalar * BCount;
}

}  // namespace tessarine
