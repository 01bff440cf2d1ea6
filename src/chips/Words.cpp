#include "chips/Words.h"

#include <cmath>

#include "engine/Numbers.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"

namespace tessarine {

void requireAboveZero(std::string_view name, double value, std::string_view unit) {
  if (value > 0 && std::isfinite(value)) return;
  throw Fault(
      joined({name, " = ", messageNumber(value), unit, value > 0 ? " is too large" : " must be above 0"}));
}

std::string_view prescalerBit(Integer PreScalar) { return PreScalar == 8 || PreScalar == 9 ? "1" : "0"; }

Single detectorFrequency(double Fosc, double factor) {
  const Single PFD = toSingle(Fosc * factor);
  if (!std::isfinite(PFD)) throw Fault("Reference Frequency = " + messageNumber(Fosc) + " MHz is too large");
  return PFD;
}

String detectorCaption(Single PFD) { return plainDecimal(toSingle(PFD * 1000.0), 7); }

}  // namespace tessarine
