// Settings through the engine, the wires and the board, and back as an output frequency.
//
// Each family draws its settings so that the bounds of the output follow from what was drawn and from the
// rounding rules of its dividers, not from the formulas of the engine.
#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <sstream>

#include "board/VirtualBoard.h"
#include "engine/Module1.h"
#include "engine/PLL.h"
#include "support/FakePlatform.h"
#include "support/PLLProbe.h"

namespace tessarine {
namespace {

constexpr std::uint32_t kSeed = 41'93'40'02;
constexpr int kLoads = 2000;  // per model

// The same numbers on every machine.
class Draw {
 public:
  explicit Draw(std::uint32_t seed) : engine_(seed) {}

  int from(int lowest, int highest) {
    const auto span = static_cast<std::uint32_t>(highest - lowest + 1);
    return lowest + static_cast<int>(engine_() % span);
  }
  // Any of a million places between the bounds.
  double between(double lowest, double highest) {
    return lowest + (highest - lowest) * from(0, 999'999) / 1'000'000.0;
  }
  bool coin() { return from(0, 1) == 1; }
  std::string bits(int width) {
    std::string text;
    while (width-- > 0) text.push_back(coin() ? '1' : '0');
    return text;
  }

 private:
  std::mt19937 engine_;
};

struct Bounds {
  double lowestMHz = 0;
  double highestMHz = 0;
};

// `Fvco` may come out this much to either side.
Bounds around(double Fvco, double below, double above) {
  const double noise = 1e-12 * Fvco;
  return {Fvco - below - noise, Fvco + above + noise};
}

// ---- Integer-N. The detector runs faster than Fcomp by what the floor took from R.

// R with a fraction that the floor drops, or an exact one on the usual grid. Gives detector / Fcomp.
double drawReference(Draw& draw, PLL& pll) {
  if (draw.coin()) {
    constexpr double kSteps[] = {1000, 500, 250, 200, 125, 100, 50, 25, 20, 12.5};
    pll.Fcomp = kSteps[draw.from(0, 9)];
    pll.Fosc = draw.from(1, 100);
    return 1;
  }
  const int R = draw.from(1, 16383);
  const double fraction = draw.between(0.001, 0.999);
  pll.Fcomp = draw.between(5, 1000);
  pll.Fosc = pll.Fcomp * (R + fraction) / 1000;
  return (R + fraction) / R;
}

// N = P x B + A, and a fraction that A loses in the rounding.
Bounds drawRatio(Draw& draw, PLL& pll, int highestB, int highestA, double lowestFraction,
                 double highestFraction) {
  const double scale = drawReference(draw, pll);
  const int A = draw.from(0, highestA);
  const int B = draw.from(A == 0 ? 1 : 0, highestB);
  const double fraction =
      draw.between(A == 0 ? std::max(0.0, lowestFraction) : lowestFraction, highestFraction);
  const double step = pll.Fcomp / 1000;
  pll.Fvco = step * (pll.PreScalar * B + A + fraction);
  const double written = pll.Fvco * scale;
  return around(written, step * scale * highestFraction, -step * scale * lowestFraction);
}

Bounds drawADF(Draw& draw, PLL& pll) {
  pll.PreScalar = static_cast<Integer>(8 << draw.from(0, 3));
  pll.CPGain = draw.bits(1);
  pll.FuncInit = draw.bits(1);
  pll.FAnalogDevice = draw.bits(20);
  return drawRatio(draw, pll, 8191, pll.PreScalar - 1, -0.499, 0.499);
}

Bounds drawLMX(Draw& draw, PLL& pll) {
  pll.PreScalar = 32;
  pll.GoBit = draw.bits(1);
  return drawRatio(draw, pll, 8191, 31, -0.499, 0.499);
}

Bounds drawLMX2315(Draw& draw, PLL& pll, Integer smallModulus) {
  pll.PreScalar = draw.coin() ? smallModulus : static_cast<Integer>(2 * smallModulus);
  return drawRatio(draw, pll, 2047, pll.PreScalar - 1, 0.001, 0.999);
}

// ---- Fractional-N. The detector frequency passes through a Single, which is good for 1 in 2^24.

constexpr double kSingle = 1.0 / (1 << 24);

struct Fraction {
  double detector;  // MHz
  double step;      // MHz
};

// A detector frequency, a modulus with a fraction that the floor drops, and any ratio.
Fraction drawFraction(Draw& draw, PLL& pll, double multiple, int highestINT) {
  const int MOD = draw.from(1, 4095);
  pll.Fosc = draw.coin() ? draw.from(1, 250) : draw.between(1, 250);
  const double detector = pll.Fosc * multiple;
  pll.Fcomp = detector * 1000 / (MOD + draw.between(0.001, 0.999));
  pll.Fvco = detector * (draw.from(1, highestINT) + draw.between(0.0001, 0.9999));
  return {detector, detector / MOD};
}

Bounds drawADF4252(Draw& draw, PLL& pll) {
  const int R = draw.from(1, 15);
  const bool doubled = draw.coin();
  pll.RF_R_Counter = std::to_string(R);
  pll.RFRefDoubler = doubled ? "1" : "0";
  pll.RFcontrolREG = "010" + draw.bits(13);
  pll.MasterReg = "110" + draw.bits(8);
  pll.PreScalar = draw.coin() ? 4 : 8;
  const auto [detector, step] = drawFraction(draw, pll, (doubled ? 2.0 : 1.0) / R, 254);
  return around(pll.Fvco, step / 2 + pll.Fvco * kSingle, step / 2 + pll.Fvco * kSingle);
}

Bounds drawADF4153(Draw& draw, PLL& pll) {
  pll.RCounter_4531 = static_cast<Integer>(draw.from(1, 15));
  pll.DoublerEnabled_4531 = draw.coin() ? 1 : 0;
  pll.Normal_LCD_Mode_4531 = draw.coin() ? 1 : 0;
  pll.FastLock_4531 = draw.coin() ? 1 : 0;
  pll.LoadControlEnabled_4531 = draw.coin() ? 1 : 0;
  pll.Resync_4531 = static_cast<Integer>(draw.from(0, 15));
  pll.CPCurrentSetting_4531 = draw.bits(4);
  pll.MuxOut_4531 = draw.bits(3);
  pll.NoiseSpurMode_4531 = static_cast<Integer>(draw.from(0, 2));
  pll.PreScalar = draw.coin() ? 4 : 8;
  const double multiple = (1.0 + pll.DoublerEnabled_4531) / pll.RCounter_4531;
  const auto [detector, step] = drawFraction(draw, pll, multiple, 510);
  return around(pll.Fvco, step / 2 + pll.Fvco * kSingle, step / 2 + pll.Fvco * kSingle);
}

// FRAC is floored, with a hundred-thousandth of a step in favour of the next one.
Bounds drawADF4193(Draw& draw, PLL& pll, bool fromFile) {
  const int R = draw.from(1, 15);
  const bool doubled = draw.coin();
  const bool halved = draw.coin();
  pll.Model = "ADF4193";
  pll.R1_RFCounter = std::bitset<4>(static_cast<unsigned>(R)).to_string();
  pll.R1_DoublerEnable = doubled ? "1" : "0";
  pll.R1_REF2 = halved ? "1" : "0";
  pll.R1_CP = draw.bits(1);
  pll.R2_PhaseValue = draw.bits(12);
  pll.R3_CPO = draw.bits(1);
  pll.R3_PFD = draw.bits(1);
  pll.R4_TimerSelect = draw.bits(2);
  pll.R4_TimerSelect_2 = draw.bits(2);
  pll.R4_TimerSelect_3 = draw.bits(2);
  pll.R4_TimeOutCounter = draw.bits(9);
  pll.R4_TimeOutCounter_2 = draw.bits(9);
  pll.R4_TimeOutCounter_3 = draw.bits(9);
  pll.R5_PDDiffAmp = "00";
  pll.R5_PDChargePump = "0";
  pll.R5_CP3State = "0";
  pll.R5_CounterReset = "0";
  pll.R6_SigmaDelte = draw.bits(4);
  pll.R6_MuxOut = draw.bits(4);
  pll.PreScalar = draw.coin() ? 4 : 8;
  const double multiple = (doubled ? 2.0 : 1.0) / (R * (halved ? 2.0 : 1.0));
  const auto [detector, step] = drawFraction(draw, pll, multiple, 254);
  if (fromFile) {
    pll.SetupFileName = "drawn";
    pll.PFDFromFile = static_cast<Single>(detector);
    pll.ModFromFile = static_cast<Integer>(std::lround(detector / step));
    pll.PreScalarFromFile = pll.PreScalar;
    pll.ICPFromFile = static_cast<Integer>(draw.from(0, 511));
    pll.SW12FromFile = static_cast<Integer>(draw.from(0, 511));
    pll.SW3FromFile = static_cast<Integer>(draw.from(0, 511));
    PLLProbe::phaseTable(pll).assign(4096, static_cast<Integer>(draw.from(0, 4095)));
    pll.Fcomp = 0;  // plays no part
  }
  return around(pll.Fvco, step + pll.Fvco * kSingle, 1e-5 * step + pll.Fvco * kSingle);
}

// ---- SKY72300-362: six decimals of the fraction, then 18 bits of it. A fraction within half a millionth
// below one half is none that 18 bits in two's complement can hold.
Bounds drawSKY(Draw& draw, PLL& pll) {
  pll.PreScalar = 8;
  pll.Main_RefDiv = static_cast<Integer>(draw.from(1, 32));
  pll.Main_ChrgPump = static_cast<Integer>(draw.from(0, 31));
  pll.Aux_ChrgPump = static_cast<Integer>(draw.from(0, 31));
  pll.Main_LDEnable = draw.bits(1);
  pll.Aux_LDEnable = draw.bits(1);
  pll.MultiplexerReg = draw.bits(6) + "00" + draw.bits(2);  // fractional mode, all 18 bits
  pll.ModulationControlReg = draw.bits(10);
  pll.ModulationDataReg = draw.bits(12);
  pll.Fosc = draw.coin() ? draw.from(1, 50) : draw.between(1, 50);
  const double detector = pll.Fosc / pll.Main_RefDiv;
  const double fraction = draw.coin() ? draw.from(-500, 499) / 1000.0 : draw.between(-0.499999, 0.499999);
  pll.Fvco = detector * (draw.from(33, 543) + fraction);
  const double step = detector * (0.5e-6 + 0.5 / (1 << 18));
  return around(pll.Fvco, step, step);
}

// ---- UMC. The module counts channels of one step above the start; values in decimal, exact in Singles.
Bounds drawUMC(Draw& draw, PLL& pll) {
  const double start = draw.from(16, 26'000) / 16.0;
  const double stepKHz = draw.from(1, 4000) / 8.0;
  pll.Fosc = draw.from(1, 100);
  pll.RefFreq = static_cast<Single>(pll.Fosc);
  pll.StartFreq = static_cast<Single>(start);
  pll.StopFreq = static_cast<Single>(draw.from(1, 10'000));
  pll.StepSize = static_cast<Single>(stepKHz);
  pll.CalcChannel = true;
  pll.Fvco = start + (draw.from(1, 32'767) + draw.between(-0.499, 0.499)) * stepKHz / 1000;
  return around(pll.Fvco, stepKHz / 2000, stepKHz / 2000);
}

// ---- The bench

struct Family {
  const char* model;
  const char* chip;  // on the board
  std::function<Bounds(Draw&, PLL&)> draw;
  const char* name;
  bool oneLoadLate = false;

  friend std::ostream& operator<<(std::ostream& out, const Family& family) { return out << family.name; }
};

std::string nameOf(const testing::TestParamInfo<Family>& info) { return info.param.name; }

class RoundTrip : public testing::TestWithParam<Family> {
 protected:
  RoundTrip() {
    module_.PortAddress = 0x378;
    module_.UseDlPort = kTrue;
    module_.CurrentModel = GetParam().model;
    wires_.board().plug(GetParam().chip);
    RecordProperty("seed", std::to_string(kSeed));
  }

  void load(bool overUsb, bool onlyChanged) {
    module_.PortType = overUsb ? "USB" : "LPT";
    pll_.CLOCKbit = overUsb ? 8 : 1;
    pll_.DATAbit = overUsb ? 4 : 2;
    pll_.LEbit = overUsb ? 2 : 4;
    pll_.SetPLL(onlyChanged);
  }

  [[nodiscard]] std::string settings() const {
    std::ostringstream text;
    text.precision(17);
    text << "seed " << kSeed << ", Fosc " << pll_.Fosc << " MHz, Fcomp " << pll_.Fcomp << " kHz, Fvco "
         << pll_.Fvco << " MHz, P " << pll_.PreScalar << ", over " << module_.PortType << "\n"
         << wires_.describe();
    return text.str();
  }

  FakePlatform fakes_;
  double crystalMHz_ = 0;
  board::VirtualBoard wires_{{.microseconds = [this] { return fakes_.clock.elapsed; },
                              .referenceMHz = [this] { return crystalMHz_; }},
                             [] { return board::Cable{}; }};
  Platform platform_{wires_, wires_, wires_, fakes_.host, fakes_.clock, fakes_.screen};
  Module1 module_{platform_};
  PLL& pll_ = module_.ThePLL();
};

TEST_P(RoundTrip, TheBoardRunsAtTheWantedFrequency) {
  Draw draw(kSeed);
  Bounds before;
  for (int i = 0; i < kLoads; ++i) {
    const double crystalBefore = pll_.Fosc;
    const Bounds now = GetParam().draw(draw, pll_);
    const Bounds wanted = GetParam().oneLoadLate ? before : now;
    crystalMHz_ = GetParam().oneLoadLate ? crystalBefore : pll_.Fosc;
    before = now;
    load(draw.coin(), i != 0 && draw.coin());
    if (GetParam().oneLoadLate && i == 0) continue;  // the chip has not heard of anything yet

    const auto output = wires_.board().tuning().outputMHz;
    ASSERT_TRUE(output) << "load " << i << ", " << settings();
    ASSERT_GE(*output, wanted.lowestMHz) << "load " << i << ", " << settings();
    ASSERT_LE(*output, wanted.highestMHz) << "load " << i << ", " << settings();
    ASSERT_TRUE(fakes_.screen.messages.empty());
  }
}

const Family kFamilies[] = {
    {"ADF4110", "ADF4110", drawADF, "ADF4110"},
    {"ADF4111", "ADF4111", drawADF, "ADF4111"},
    {"ADF4112", "ADF4112", drawADF, "ADF4112"},
    {"ADF4113", "ADF4113", drawADF, "ADF4113"},
    {"ADF4113", "ADF4106", drawADF, "ADF4106"},
    {"LMX2306", "LMX2306", drawLMX, "LMX2306"},
    {"LMX2316", "LMX2316", drawLMX, "LMX2316"},
    {"LMX2326", "LMX2326", drawLMX, "LMX2326"},
    {"ADF4118", "ADF4118", drawLMX, "ADF4118"},
    {"LMX2315", "LMX2315", [](auto& draw, auto& pll) { return drawLMX2315(draw, pll, 64); }, "LMX2315"},
    {"LMX2320", "LMX2320", [](auto& draw, auto& pll) { return drawLMX2315(draw, pll, 64); }, "LMX2320"},
    {"LMX2325", "LMX2325", [](auto& draw, auto& pll) { return drawLMX2315(draw, pll, 32); }, "LMX2325"},
    {"ADF4251", "ADF4251", drawADF4252, "ADF4251"},
    {"ADF4252", "ADF4252", drawADF4252, "ADF4252"},
    {"ADF4153", "ADF4153", drawADF4153, "ADF4153"},
    {"ADF4156", "ADF4156", drawADF4153, "ADF4156"},
    {"ADF4193", "ADF4193", [](auto& draw, auto& pll) { return drawADF4193(draw, pll, false); },
     "ADF4193Panel"},
    {"ADF4193", "ADF4193", [](auto& draw, auto& pll) { return drawADF4193(draw, pll, true); }, "ADF4193File"},
    {"SKY72300-362", "SKY72300-362", drawSKY, "SKY72300", true},
    {"UMC", "UMC", drawUMC, "UMC"},
};
INSTANTIATE_TEST_SUITE_P(Families, RoundTrip, testing::ValuesIn(kFamilies), nameOf);

}  // namespace
}  // namespace tessarine
