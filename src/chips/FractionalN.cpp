// The words of the ADF4251, ADF4252, ADF4153 and ADF4156, which divide by INT + FRAC / MOD.
//
// The detector frequency is a Single: it is rounded once, and every later step works with that value widened.
// FRAC is rounded half up and may come out equal to MOD; nothing is carried into INT.
#include <exception>
#include <initializer_list>
#include <string_view>

#include "chips/Words.h"
#include "engine/BitStrings.h"
#include "engine/Module1.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "platform/Platform.h"

namespace tessarine {

void PLL::CalcADF4252() {
  const double D = leadingNumber(RFRefDoubler);
  const double R = leadingNumber(RF_R_Counter);
  const Integer counter = leadingInteger(RF_R_Counter, "R counter");
  requireAboveZero("R counter", counter);
  requireAboveZero("Reference Frequency", Fosc, " MHz");
  requireAboveZero("Step Resolution", Fcomp, " kHz");

  const Single PFD = detectorFrequency(Fosc, (1 + D) / R);
  const double INT = roundDown(Fvco / PFD);
  const double MOD = roundDown(PFD * 1000.0 / Fcomp + 0.00001);
  const double FRAC = roundHalfUp((Fvco / PFD - INT) * MOD);

  const String counterField = shiftingField("R counter", counter, 4);
  const String wholeField = shiftingField("INT", INT, 8);
  const String fracField = shiftingField("FRAC", FRAC, 12);
  const String modField = shiftingField("MOD", MOD, 12);
  // Nothing can be refused from here on.

  RTotal = R;
  module_.view->showDetectorFrequency(detectorCaption(PFD));
  word(Nstr) = {
      "000",       // DB0-2: control
      fracField,   // DB3-14: FRAC
      wholeField,  // DB15-22: INT
      "0",         // DB23
  };
  Astr = modField;
  Bstr = counterField;
  word(Rstr) = {
      "100",                    // DB0-2: control
      Astr,                     // DB3-14: MOD
      Bstr,                     // DB15-18: R
      RFRefDoubler,             // DB19: reference doubler
      prescalerBit(PreScalar),  // DB20: prescaler
  };
  MStr = MasterReg;
  FStr = RFcontrolREG;
}

namespace {

// The two bit groups of the noise and spur word; a mode that the chip does not know has none.
struct NoiseSpurBits {
  std::string_view X;
  std::string_view Y;
};

NoiseSpurBits noiseSpurBits(Integer mode) {
  switch (mode) {
    case 0:
      return {"0000", "0"};  // lowest spur
    case 1:
      return {"1110", "0"};  // low noise and spur
    case 2:
      return {"1111", "1"};  // lowest noise
    default:
      return {};
  }
}

// The last step of a word that was joined with its highest field first.
String inShiftingOrder(std::initializer_list<std::string_view> fields) { return ReverseStr(joined(fields)); }

}  // namespace

// The panel of these chips has a fault box of its own: what was built before a fault stays new, each word
// whole, and the load goes on.
void PLL::CalcADF4153() {
  try {
    calcADF4153Words();
  } catch (const std::exception& fault) {
    module_.platform.screen.messageBox(fault.what(), Icon::critical);
  }
}

void PLL::calcADF4153Words() {
  const double D = DoublerEnabled_4531;
  RTotal = RCounter_4531;
  requireAboveZero("R counter", RTotal);
  const Single PFD = detectorFrequency(Fosc, (1 + D) / RTotal);
  module_.view->showDetectorFrequency(detectorCaption(PFD));
  requireAboveZero("Reference Frequency", Fosc, " MHz");
  requireAboveZero("Step Resolution", Fcomp, " kHz");

  const double INT = roundDown(Fvco / PFD);
  double MOD = roundDown(PFD * 1000.0 / Fcomp + 0.0001);
  double FRAC = roundHalfUp((Fvco / PFD - INT) * MOD);
  if (Normal_LCD_Mode_4531 == 1) {
    Integer numerator = toInteger(FRAC, "FRAC");
    Integer denominator = toInteger(MOD, "MOD");
    MakeLCD(numerator, denominator);
    FRAC = numerator;
    MOD = denominator;
  }

  Nstr = inShiftingOrder({
      naturalField("Fast Lock", FastLock_4531, 1),  // DB23
      naturalField("INT", INT, 9),                  // DB14-22
      naturalField("FRAC", FRAC, 12),               // DB2-13
      "00",                                         // DB0-1: control
  });

  Bstr = naturalField("R counter", RCounter_4531, 4);
  Rstr = inShiftingOrder({
      naturalField("Load Control", LoadControlEnabled_4531, 1),  // DB23
      MuxOut_4531,                                               // DB20-22: mux output
      "0",                                                       // DB19
      prescalerBit(PreScalar),                                   // DB18: prescaler
      Bstr,                                                      // DB14-17: R
      naturalField("MOD", MOD, 12),                              // DB2-13
      "01",                                                      // DB0-1: control
  });

  Astr = naturalField("Resync", Resync_4531, 4);
  const bool precise = module_.view->lockDetectPrecisionChecked();
  MStr = inShiftingOrder({
      Astr,                                                    // DB12-15: resync
      naturalField("Doubler", DoublerEnabled_4531, 1),         // DB11: reference doubler
      CPCurrentSetting_4531,                                   // DB7-10: charge-pump current
      naturalField("Polarity", RFPDPolarityPositive_4531, 1),  // DB6: detector polarity
      precise ? "1" : "0",                                     // DB5: lock detect precision
      naturalField("Power Down", RFPowerDownEnabled_4531, 1),  // DB4
      naturalField("CP 3-State", CP3StateON_4531, 1),          // DB3: charge pump three-state
      naturalField("Reset", CounterResetEnabled_4531, 1),      // DB2: counter reset
      "10",                                                    // DB0-1: control
  });

  const NoiseSpurBits bits = noiseSpurBits(NoiseSpurMode_4531);
  FStr = inShiftingOrder({
      "0",     // DB10
      bits.X,  // DB6-9: noise and spur
      "000",   // DB3-5
      bits.Y,  // DB2: noise and spur
      "11",    // DB0-1: control
  });
}

void PLL::MakeLCD(Integer& Fruc1, Integer& Mod1) {
  if (Fruc1 == 0) return;
  Integer divisor = 0;
  GreatestDivisor(Fruc1, Mod1, divisor);
  const int fraction = Fruc1 / divisor;
  const int modulus = Mod1 / divisor;
  Fruc1 = toInteger(fraction, "FRAC");
  Mod1 = toInteger(modulus, "MOD");
}

void PLL::GreatestDivisor(Integer& A, Integer& B, Integer& Result) {
  Integer remainder = toInteger(B % A, "remainder");
  if (remainder == 0) {
    Result = A;
    return;
  }
  GreatestDivisor(remainder, A, Result);
}

namespace {

Single quotient(double dividend, double divisor) { return toSingle(dividend / divisor); }

bool isWhole(Single value) { return value == roundDown(value); }

}  // namespace

void PLL::MakeLCD_Orvel(Integer& Fruc1, Integer& Mod1) {
  if (Fruc1 == 0) return;
  const Single steps = quotient(Mod1, Fruc1);
  if (isWhole(steps)) {
    Mod1 = toInteger(steps, "MOD");
    Fruc1 = 1;
    return;
  }
  bool changed = true;
  while (changed) {
    changed = false;
    for (Integer d = toInteger(Fruc1 / 2.0 + 1, "divisor"); d >= 2; --d) {
      const Single a = quotient(Fruc1, d);
      const Single b = quotient(Mod1, d);
      if (!isWhole(a) || !isWhole(b) || a <= 0) continue;
      Fruc1 = toInteger(a, "FRAC");
      Mod1 = toInteger(b, "MOD");
      changed = true;
    }
  }
}

}  // namespace tessarine
