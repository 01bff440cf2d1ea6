// Settings through the engine, the wires and the board, and back as an output frequency.
//
// Each family draws its settings so that the bounds of the output follow from what was drawn and from the
// rounding rules of its dividers, not from the formulas of the engine.
#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <ostream>
#include <random>
#include <string>

#include "board/VirtualBoard.h"
#include "engine/Module1.h"
#include "engine/PLL.h"
#include "support/FakePlatform.h"
#include "support/PLLProbe.h"

namespace tessarine {
namespace {

constexpr std::uint32_t kSeed = 41'93'40'02;
constexpr int kLoads = 2000;                 // per model
constexpr double kSingle = 1.0 / (1 << 24);  // what a Single is good for

// The same settings on every machine.
struct Draw {
  PLL& pll;
  std::mt19937 engine{kSeed};

  int from(int lowest, int highest) {
    return lowest + static_cast<int>(engine() % static_cast<std::uint32_t>(highest - lowest + 1));
  }
  Integer integer(int lowest, int highest) { return static_cast<Integer>(from(lowest, highest)); }
  // Any of a million places between the bounds.
  double between(double lowest, double highest) {
    return lowest + (highest - lowest) * from(0, 999'999) / 1e6;
  }
  bool coin() { return from(0, 1) == 1; }
  void bits(int width, std::initializer_list<String PLL::*> fields) {
    for (const auto field : fields) {
      (pll.*field).clear();
      for (int i = 0; i < width; ++i) (pll.*field).push_back(coin() ? '1' : '0');
    }
  }
  void integers(int highest, std::initializer_list<Integer PLL::*> fields) {
    for (const auto field : fields) pll.*field = integer(0, highest);
  }
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

// R with a fraction that the floor drops, or an exact one on the usual grid. Gives detector / Fcomp.
double drawReference(Draw& draw) {
  if (draw.coin()) {
    constexpr double kSteps[] = {1000, 500, 250, 200, 125, 100, 50, 25, 20, 12.5};
    draw.pll.Fcomp = kSteps[draw.from(0, 9)];
    draw.pll.Fosc = draw.from(1, 100);
    return 1;
  }
  const int R = draw.from(1, 16383);
  const double fraction = draw.between(0.001, 0.999);
  draw.pll.Fcomp = draw.between(5, 1000);
  draw.pll.Fosc = draw.pll.Fcomp * (R + fraction) / 1000;
  return (R + fraction) / R;
}

// N = P x B + A, and a fraction that A loses in the rounding.
Bounds drawRatio(Draw& draw, int highestB, double lowestFraction, double highestFraction) {
  const double scale = drawReference(draw);
  const int P = draw.pll.PreScalar;
  const int A = draw.from(0, P - 1);
  const int B = draw.from(A == 0 ? 1 : 0, highestB);
  const double least = A == 0 ? std::max(0.0, lowestFraction) : lowestFraction;
  const double step = draw.pll.Fcomp / 1000;
  draw.pll.Fvco = step * (P * B + A + draw.between(least, highestFraction));
  return around(draw.pll.Fvco * scale, step * scale * highestFraction, -step * scale * lowestFraction);
}

Bounds drawADF(Draw& draw) {
  draw.pll.PreScalar = static_cast<Integer>(8 << draw.from(0, 3));
  draw.bits(1, {&PLL::CPGain, &PLL::FuncInit});
  draw.bits(20, {&PLL::FAnalogDevice});
  return drawRatio(draw, 8191, -0.499, 0.499);
}

Bounds drawLMX(Draw& draw) {
  draw.pll.PreScalar = 32;
  draw.bits(1, {&PLL::GoBit});
  return drawRatio(draw, 8191, -0.499, 0.499);
}

template <Integer lowerModulus>
Bounds drawLMX2315(Draw& draw) {
  draw.pll.PreScalar = draw.coin() ? lowerModulus : 2 * lowerModulus;
  return drawRatio(draw, 2047, 0.001, 0.999);
}

// A detector frequency, a modulus with a fraction that the floor drops, and any ratio.
struct Fraction {
  double detector;  // MHz
  double step;      // MHz
};

Fraction drawFraction(Draw& draw, double multiple, int highestINT) {
  draw.pll.PreScalar = draw.coin() ? 4 : 8;
  const int MOD = draw.from(1, 4095);
  draw.pll.Fosc = draw.coin() ? draw.from(1, 250) : draw.between(1, 250);
  const double detector = draw.pll.Fosc * multiple;
  draw.pll.Fcomp = detector * 1000 / (MOD + draw.between(0.001, 0.999));
  draw.pll.Fvco = detector * (draw.from(1, highestINT) + draw.between(0.0001, 0.9999));
  return {detector, detector / MOD};
}

Bounds nearestStep(const PLL& pll, double step) {
  return around(pll.Fvco, step / 2 + pll.Fvco * kSingle, step / 2 + pll.Fvco * kSingle);
}

Bounds drawADF4252(Draw& draw) {
  const int R = draw.from(1, 15);
  const int doubled = draw.from(0, 1);
  draw.pll.RF_R_Counter = std::to_string(R);
  draw.pll.RFRefDoubler = std::to_string(doubled);
  draw.bits(13, {&PLL::RFcontrolREG});
  draw.bits(8, {&PLL::MasterReg});
  draw.pll.RFcontrolREG.insert(0, "010");
  draw.pll.MasterReg.insert(0, "110");
  return nearestStep(draw.pll, drawFraction(draw, (1.0 + doubled) / R, 254).step);
}

Bounds drawADF4153(Draw& draw) {
  PLL& pll = draw.pll;
  pll.RCounter_4531 = draw.integer(1, 15);
  draw.integers(1, {&PLL::DoublerEnabled_4531, &PLL::Normal_LCD_Mode_4531, &PLL::FastLock_4531,
                    &PLL::LoadControlEnabled_4531});
  draw.integers(2, {&PLL::NoiseSpurMode_4531});
  draw.integers(15, {&PLL::Resync_4531});
  draw.bits(4, {&PLL::CPCurrentSetting_4531});
  draw.bits(3, {&PLL::MuxOut_4531});
  const double multiple = (1.0 + pll.DoublerEnabled_4531) / pll.RCounter_4531;
  return nearestStep(pll, drawFraction(draw, multiple, 510).step);
}

// FRAC is floored, with a hundred-thousandth of a step in favour of the next one.
template <bool fromFile>
Bounds drawADF4193(Draw& draw) {
  PLL& pll = draw.pll;
  const int R = draw.from(1, 15);
  pll.Model = "ADF4193";
  pll.R1_RFCounter = std::bitset<4>(static_cast<unsigned>(R)).to_string();
  draw.bits(1, {&PLL::R1_DoublerEnable, &PLL::R1_REF2, &PLL::R1_CP, &PLL::R3_CPO, &PLL::R3_PFD});
  draw.bits(2, {&PLL::R4_TimerSelect, &PLL::R4_TimerSelect_2, &PLL::R4_TimerSelect_3});
  draw.bits(9, {&PLL::R4_TimeOutCounter, &PLL::R4_TimeOutCounter_2, &PLL::R4_TimeOutCounter_3});
  draw.bits(12, {&PLL::R2_PhaseValue});
  draw.bits(4, {&PLL::R6_SigmaDelte, &PLL::R6_MuxOut});
  pll.R5_PDDiffAmp = "00";
  pll.R5_PDChargePump = pll.R5_CP3State = pll.R5_CounterReset = "0";
  const double multiple = (pll.R1_DoublerEnable == "1" ? 2.0 : 1.0) / (pll.R1_REF2 == "1" ? 2 * R : R);
  const auto [detector, step] = drawFraction(draw, multiple, 254);
  if (fromFile) {
    pll.SetupFileName = "drawn";
    pll.PFDFromFile = static_cast<Single>(detector);
    pll.ModFromFile = static_cast<Integer>(std::lround(detector / step));
    pll.PreScalarFromFile = pll.PreScalar;
    draw.integers(511, {&PLL::ICPFromFile, &PLL::SW12FromFile, &PLL::SW3FromFile});
    PLLProbe::phaseTable(pll).assign(4096, draw.integer(0, 4095));
    pll.Fcomp = 0;  // plays no part
  }
  return around(pll.Fvco, step + pll.Fvco * kSingle, 1e-5 * step + pll.Fvco * kSingle);
}

// Six decimals of the fraction, then 18 bits of it. A fraction within half a millionth below one half is none
// that 18 bits in two's complement can hold.
Bounds drawSKY(Draw& draw) {
  PLL& pll = draw.pll;
  pll.PreScalar = 8;
  pll.Main_RefDiv = draw.integer(1, 32);
  draw.integers(31, {&PLL::Main_ChrgPump, &PLL::Aux_ChrgPump});
  draw.bits(1, {&PLL::Main_LDEnable, &PLL::Aux_LDEnable});
  draw.bits(10, {&PLL::MultiplexerReg, &PLL::ModulationControlReg});
  pll.MultiplexerReg.replace(6, 2, "00");  // fractional mode, all 18 bits
  draw.bits(12, {&PLL::ModulationDataReg});
  pll.Fosc = draw.coin() ? draw.from(1, 50) : draw.between(1, 50);
  const double detector = pll.Fosc / pll.Main_RefDiv;
  const double fraction = draw.coin() ? draw.from(-500, 499) / 1000.0 : draw.between(-0.499999, 0.499999);
  pll.Fvco = detector * (draw.from(33, 543) + fraction);
  const double step = detector * (0.5e-6 + 0.5 / (1 << 18));
  return around(pll.Fvco, step, step);
}

// The module counts channels of one step above the start; decimal values that Singles hold exactly.
Bounds drawUMC(Draw& draw) {
  PLL& pll = draw.pll;
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

struct Family {
  const char* name;
  Bounds (*draw)(Draw&);
  const char* model = name;
  const char* chip = model;  // on the board
  bool oneLoadLate = false;

  friend std::ostream& operator<<(std::ostream& out, const Family& family) { return out << family.name; }
};

class RoundTrip : public testing::TestWithParam<Family> {};

TEST_P(RoundTrip, TheBoardRunsAtTheWantedFrequency) {
  const Family& family = GetParam();
  FakePlatform fakes;
  double crystalMHz = 0;
  board::VirtualBoard wires{
      {.microseconds = [&] { return fakes.clock.elapsed; }, .referenceMHz = [&] { return crystalMHz; }},
      [] { return board::Cable{}; }};
  wires.board().plug(family.chip);
  Platform platform{wires, wires, wires, fakes.host, fakes.clock, fakes.screen};
  Module1 module{platform};
  module.PortAddress = 0x378;
  module.UseDlPort = kTrue;
  module.CurrentModel = family.model;
  PLL& pll = module.ThePLL();
  Draw draw{pll};
  Bounds before;
  for (int i = 0; i < kLoads; ++i) {
    const double crystalBefore = pll.Fosc;
    const Bounds now = family.draw(draw);
    const Bounds wanted = family.oneLoadLate ? before : now;
    crystalMHz = family.oneLoadLate ? crystalBefore : pll.Fosc;
    before = now;
    const bool overUsb = draw.coin();
    module.PortType = overUsb ? "USB" : "LPT";
    pll.CLOCKbit = overUsb ? 8 : 1;
    pll.DATAbit = overUsb ? 4 : 2;
    pll.LEbit = overUsb ? 2 : 4;
    pll.SetPLL(i != 0 && draw.coin());
    if (family.oneLoadLate && i == 0) continue;  // the chip has not heard of anything yet

    SCOPED_TRACE(testing::Message() << "load " << i << ", Fosc " << pll.Fosc << ", Fcomp " << pll.Fcomp
                                    << ", Fvco " << pll.Fvco << ", P " << pll.PreScalar << ", "
                                    << module.PortType);
    const auto output = wires.board().tuning().outputMHz;
    ASSERT_TRUE(output) << wires.describe();
    ASSERT_GE(*output, wanted.lowestMHz) << wires.describe();
    ASSERT_LE(*output, wanted.highestMHz) << wires.describe();
    ASSERT_TRUE(fakes.screen.messages.empty());
  }
}

const Family kFamilies[] = {
    {"ADF4110", drawADF},
    {"ADF4111", drawADF},
    {"ADF4112", drawADF},
    {"ADF4113", drawADF},
    {"ADF4106", drawADF, "ADF4113", "ADF4106"},
    {"LMX2306", drawLMX},
    {"LMX2316", drawLMX},
    {"LMX2326", drawLMX},
    {"ADF4118", drawLMX},
    {"LMX2315", drawLMX2315<64>},
    {"LMX2320", drawLMX2315<64>},
    {"LMX2325", drawLMX2315<32>},
    {"ADF4251", drawADF4252},
    {"ADF4252", drawADF4252},
    {"ADF4153", drawADF4153},
    {"ADF4156", drawADF4153},
    {"ADF4193Panel", drawADF4193<false>, "ADF4193"},
    {"ADF4193File", drawADF4193<true>, "ADF4193"},
    {"SKY72300", drawSKY, "SKY72300-362", "SKY72300-362", true},
    {"UMC", drawUMC},
};
INSTANTIATE_TEST_SUITE_P(Families, RoundTrip, testing::ValuesIn(kFamilies),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace tessarine
