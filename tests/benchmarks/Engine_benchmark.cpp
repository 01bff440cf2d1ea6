// How fast words are calculated and loaded. Wanted: a calculation at most 5 us for the integer-N chips and 10
// us for the others; a load at most twice the bare loop; a setup file of 4096 phases at most 2 ms.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "NullPlatform.h"
#include "engine/Module1.h"
#include "engine/PLL.h"
#include "setup/FracSetupFile.h"
#include "support/PLLProbe.h"
#include "support/TempFile.h"

namespace tessarine {
namespace {

// Any chip, with the panels as they start up.
struct Engine : NullPlatform {
  explicit Engine(const std::string& model) {
    module.view = &view;
    module.PortAddress = 888;
    module.PortType = "LPT";
    module.UseDlPort = kTrue;
    module.CurrentModel = model;
    pll.CLOCKbit = 1, pll.DATAbit = 2, pll.LEbit = 4;
    pll.Fvco = 1800, pll.Fosc = 10, pll.Fcomp = 200, pll.PreScalar = 32;
    pll.CPGain = pll.FuncInit = pll.GoBit = "0";
    pll.FAnalogDevice = "00100100000001110000";
    pll.RFcontrolREG = "0100000000000000", pll.MasterReg = "11000000000", pll.RFRefDoubler = "0";
    pll.RF_R_Counter = "1", pll.RCounter_4531 = 1;
    pll.CPCurrentSetting_4531 = "0000", pll.MuxOut_4531 = "000";
    pll.R1_CP = pll.R1_REF2 = pll.R1_DoublerEnable = "0", pll.R1_RFCounter = "0001";
    pll.R2_PhaseValue = "000000000000", pll.R3_CPO = pll.R3_PFD = "1";
    pll.R4_TimerSelect = "00", pll.R4_TimerSelect_2 = "01", pll.R4_TimerSelect_3 = "10";
    pll.R4_TimeOutCounter = pll.R4_TimeOutCounter_2 = pll.R4_TimeOutCounter_3 = "000000111";
    pll.R5_PDDiffAmp = "00", pll.R5_PDChargePump = pll.R5_CP3State = pll.R5_CounterReset = "0";
    pll.R6_SigmaDelte = pll.R6_MuxOut = "0001";
    pll.Main_RefDiv = 1, pll.Main_ChrgPump = pll.Aux_ChrgPump = 3;
    pll.Main_LDEnable = pll.Aux_LDEnable = "0";
    pll.MultiplexerReg = pll.ModulationControlReg = "0000000001", pll.ModulationDataReg = "100000000000";
  }
  Module1 module{platform};
  PLL& pll = module.ThePLL();
};

void calculate(benchmark::State& state, const std::string& model) {
  Engine engine(model);
  for (auto _ : state) benchmark::DoNotOptimize(PLLProbe::calcRegisters(engine.pll));
}

// Two frequencies in turn, as a hop makes them.
void loadADF4113(benchmark::State& state) {
  Engine engine("ADF4113");
  for (auto _ : state) {
    engine.pll.Fvco = engine.pll.Fvco == 1800 ? 1700 : 1800;
    engine.pll.SetPLL();
  }
}

// The writes and reads of one such load: 3 words of 73 writes, 3 strobes of 2 and the last 0, each with its
// read-back, and a read per clock pulse.
constexpr int kWrites = 3 * 73 + 3 * 2 + 1;
constexpr int kReads = kWrites + 3 * 24;

void bareLoop(benchmark::State& state) {
  Engine engine("");
  PortDriver* driver = &engine.port;
  benchmark::DoNotOptimize(driver);
  for (auto _ : state) {
    for (int i = 0; i < kWrites; ++i) driver->DlPortWritePortUchar(888, static_cast<std::uint8_t>(i));
    for (int i = 0; i < kReads; ++i) benchmark::DoNotOptimize(driver->DlPortReadPortUchar(888));
  }
}

// The file comes anew at each command.
void readPhases(benchmark::State& state) {
  std::string text = "PFD= 26.0\nMOD= 1625\nICP= 7\nSW12= 2\nSW3= 3\n$P= 8\nFRAC\n";
  for (int i = 0; i < 4096; ++i) text += std::to_string(i % 10) + " " + std::to_string(i) + "\n";
  const TempFile file(text);
  Engine engine("ADF4193");
  engine.pll.SetupFileName = file.path();
  for (auto _ : state) engine.pll.UpdateSetup_Frac();
}

const bool registered = [] {
  for (const char* model :
       {"ADF4113", "LMX2306", "ADF4118", "LMX2325", "ADF4252", "ADF4153", "ADF4193", "SKY72300-362"}) {
    benchmark::RegisterBenchmark((std::string("CalcRegisters/") + model).c_str(),
                                 [model](benchmark::State& state) { calculate(state, model); });
  }
  return true;
}();

BENCHMARK(loadADF4113)->Name("SetPLL/ADF4113 on a null port");
BENCHMARK(bareLoop)->Name("SetPLL/bare loop of the same port accesses");
BENCHMARK(readPhases)->Name("UpdateSetup_Frac/4096 phases")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tessarine
