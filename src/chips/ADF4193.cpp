// The words of the ADF4193, its power-up sequence and its phase table.
//
// Two ways lead to the words: without a setup file detector frequency and modulus follow from the panel; with
// one they come from the file, together with prescaler, timers and a phase per FRAC.
#include <cstddef>
#include <string>
#include <string_view>

#include "chips/Words.h"
#include "engine/BitStrings.h"
#include "engine/Module1.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "platform/Platform.h"
#include "transport/PortAccess.h"

namespace tessarine {

namespace {

struct Detector {
  Single PFD;  // MHz
  double MOD;
};

Detector detectorOfFile(const PLL& pll) {
  requireAboveZero("PFD of the setup file", pll.PFDFromFile, " MHz");
  return {pll.PFDFromFile, static_cast<double>(pll.ModFromFile)};
}

Detector detectorOfPanel(const PLL& pll, double R) {
  requireAboveZero("R counter", R);
  requireAboveZero("Reference Frequency", pll.Fosc, " MHz");
  requireAboveZero("Step Resolution", pll.Fcomp, " kHz");
  const double D = leadingNumber(pll.R1_DoublerEnable);
  const double T = leadingNumber(pll.R1_REF2);
  const Single PFD = detectorFrequency(pll.Fosc, (1 + D) / (R * (1 + T)));
  return {PFD, roundDown(PFD * 1000.0 / pll.Fcomp + 0.00001)};
}

// One value of register 4: a counter and the timer that it is for.
String timerWord(std::string_view counter, std::string_view select) {
  return ReverseStr(joined({
      "0000000001",  // DB14-23
      counter,       // DB5-13: time-out counter
      select,        // DB3-4: timer select
      "100",         // DB0-2: control
  }));
}

}  // namespace

void PLL::Calculate_ADF_4193() {
  const bool fromFile = !SetupFileName.empty();
  const double R = BinToInt(R1_RFCounter);
  const Detector detector = fromFile ? detectorOfFile(*this) : detectorOfPanel(*this, R);
  const double N = roundDown(Fvco / detector.PFD);
  const double FRAC = roundDown((Fvco / detector.PFD - N) * detector.MOD + 0.00001);

  const String wholeField = shiftingField("N", N, 8);
  const String fracField = shiftingField("FRAC", FRAC, 12);
  const String modField = shiftingField("MOD", detector.MOD, 12);
  const String counterField = shiftingField("R counter", R, 4);
  // Nothing can be refused from here on.

  RTotal = R;
  module_.view->showDetectorFrequency(detectorCaption(detector.PFD));
  const auto show = [this](int index, std::string_view name, const String& word) {
    module_.view->showWord(index, joined({name, word}));
  };

  Astr = wholeField;
  Bstr = fracField;
  word(Nstr) = {
      "000",  // DB0-2: control
      Bstr,   // DB3-14: FRAC
      Astr,   // DB15-22: N
      "0",    // DB23
  };
  R0 = Nstr;
  show(0, "R0: ", R0);

  if (fromFile) PreScalar = PreScalarFromFile;
  word(Rstr) = {
      "100",                    // DB0-2: control
      modField,                 // DB3-14: MOD
      counterField,             // DB15-18: R
      R1_DoublerEnable,         // DB19: reference doubler
      prescalerBit(PreScalar),  // DB20: prescaler
      "0",                      // DB21
      R1_REF2,                  // DB22: reference halved
      R1_CP,                    // DB23: charge-pump adjustment
  };
  r1 = Rstr;
  show(1, "R1: ", r1);

  if (fromFile) R2_PhaseValue = PadBits(PhasePerFrac(toInteger(FRAC, "FRAC")), 12);
  word(R2) = {
      "0",            // DB15
      R2_PhaseValue,  // DB3-14: phase
      "010",          // DB0-2: control
  };
  show(2, "R2: ", R2);  // the one label in natural order
  UpsideSTR(R2);

  R3 = ReverseStr(joined({
      "0000000001",  // DB6-15
      R3_CPO,        // DB5: charge-pump output to ground
      "0",           // DB4
      R3_PFD,        // DB3: detector polarity
      "011",         // DB0-2: control
  }));
  show(3, "R3: ", R3);

  buildTimerWords(fromFile);
  show(4, "R4: ", R4);
  show(7, "R4_2: ", R4_2);
  show(8, "R4_3: ", R4_3);

  R5 = ReverseStr(joined({
      R5_PDDiffAmp,     // DB6-7: power down, differential amplifier
      R5_PDChargePump,  // DB5: power down, charge pump
      R5_CP3State,      // DB4: charge pump three-state
      R5_CounterReset,  // DB3: counter reset
      "101",            // DB0-2: control
  }));
  show(5, "R5: ", R5);

  R6 = ReverseStr(joined({
      R6_SigmaDelte,  // DB12-15: sigma-delta and lock detect modes
      "00000",        // DB7-11
      R6_MuxOut,      // DB3-6: mux output
      "110",          // DB0-2: control
  }));
  show(6, "R6: ", R6);
}

// The chip has one address for three timers, so each timer takes a word of its own.
void PLL::buildTimerWords(bool fromFile) {
  if (fromFile) {
    R4_TimeOutCounter = PadBits(ICPFromFile, 9);
    R4_TimeOutCounter_2 = PadBits(SW12FromFile, 9);
    R4_TimeOutCounter_3 = PadBits(SW3FromFile, 9);
    R4 = timerWord(R4_TimeOutCounter, "10");      // ICP
    R4_2 = timerWord(R4_TimeOutCounter_2, "00");  // SW1/SW2
    R4_3 = timerWord(R4_TimeOutCounter_3, "01");  // SW3
    return;
  }
  const bool noTimer = R4_TimerSelect == "11";
  R4 = timerWord(R4_TimeOutCounter, R4_TimerSelect);
  R4_2 = noTimer ? String() : timerWord(R4_TimeOutCounter_2, R4_TimerSelect_2);
  R4_3 = noTimer ? String() : timerWord(R4_TimeOutCounter_3, R4_TimerSelect_3);
}

Integer PLL::PhasePerFrac(const Integer& Frac) {
  const bool inside = Frac >= 0 && static_cast<std::size_t>(Frac) < PhaseTable.size();
  if (inside) return PhaseTable[static_cast<std::size_t>(Frac)];
  const String why = PhaseTable.empty()
                         ? String("The phase table is empty: no setup file has filled it")
                         : joined({"FRAC = ", std::to_string(Frac), " lies outside the phase table (0 to ",
                                   std::to_string(PhaseTable.size() - 1), ")"});
  module_.platform.screen.messageBox("Error in Get Phase Value", Icon::critical, why);
  return 0;
}

void PLL::PowerUpInit() {
  if (Model == "ADF4193") PowerUpInit_ADF4193();
}

// The fixed words stay in their members: R3, R5 and R6 hold those of the release when it ends.
void PLL::PowerUpInit_ADF4193() {
  // Held: powered down, charge pump in three-state, counters in reset.
  R5 = shiftingField("R5", 0xFD, 8);
  LoadR5();
  R3 = shiftingField("R3", 0x005B, 16);
  LoadR3();
  DelayMs(module_, 100);
  R7 = shiftingField("R7", 0x0007, 16);
  LoadR7();
  R6 = shiftingField("R6", 0x000E, 16);
  LoadR6();
  R6 = shiftingField("R6", 0x900E, 16);
  LoadR6();

  // The calculated words. A timer that is not in use still gets its strobe.
  LoadR4(3);
  LoadR4(2);
  LoadR4(1);
  LoadR2();
  LoadR1();
  LoadR0();

  // Released, and R0 once more to start the loop.
  R3 = shiftingField("R3", 0x007B, 16);
  LoadR3();
  R5 = shiftingField("R5", 0x05, 8);
  LoadR5();
  LoadR0();
}

}  // namespace tessarine
