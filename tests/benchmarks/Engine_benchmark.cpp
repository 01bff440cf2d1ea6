// How fast words are calculated and loaded. Wanted: a calculation at most 5 us for the integer-N chips and 10
// us for the others; a load at most twice the bare loop; a setup file of 4096 phases at most 2 ms; the
// panels in at most 20 us; a reach, which is worked out while the operator types, at most 1 ms.
#include <benchmark/benchmark.h>

#include <string>

#include "NullBench.h"
#include "board/ChipMap.h"
#include "board/Reach.h"
#include "support/PLLProbe.h"
#include "support/TempFile.h"

namespace tessarine {
namespace {

void CalcRegisters(benchmark::State& state, const char* model) {
  NullBench bench(model);
  for (auto _ : state) benchmark::DoNotOptimize(PLLProbe::calcRegisters(bench.pll));
}

// Two frequencies in turn, as a hop makes them.
void loadADF4113(benchmark::State& state) {
  NullBench bench("ADF4113");
  for (auto _ : state) {
    bench.pll.Fvco = bench.pll.Fvco == 1800 ? 1700 : 1800;
    bench.pll.SetPLL();
  }
}

// What a click costs beside the port.
void copyPanels(benchmark::State& state) {
  NullBench bench("ADF4113");
  for (auto _ : state) bench.program.window.FracRegister();
}

void bareLoop(benchmark::State& state) {
  NullPort port;
  for (auto _ : state) bareLoad(port);
}

// The file comes anew at each command.
void readPhases(benchmark::State& state) {
  std::string text = "PFD= 26.0\nMOD= 1625\nICP= 7\nSW12= 2\nSW3= 3\n$P= 8\nFRAC\n";
  for (int i = 0; i < 4096; ++i) text += std::to_string(i % 10) + " " + std::to_string(i) + "\n";
  const TempFile file(text);
  NullBench bench("ADF4193");
  bench.pll.SetupFileName = file.path();
  for (auto _ : state) bench.pll.UpdateSetup_Frac();
}

void Reach(benchmark::State& state, const char* chip, double vcoMHz, double referenceMHz, double stepKHz) {
  board::ReachFields all;
  all.vcoMHz = vcoMHz, all.referenceMHz = referenceMHz, all.stepKHz = stepKHz, all.prescaler = 8;
  const board::ChipModel* const model = board::findChipModel(chip);
  for (auto _ : state) benchmark::DoNotOptimize(board::reachOf(*model, all));
}

BENCHMARK_CAPTURE(CalcRegisters, LMX2306, "LMX2306");
BENCHMARK_CAPTURE(CalcRegisters, ADF4113, "ADF4113");
BENCHMARK_CAPTURE(CalcRegisters, ADF4252, "ADF4252");
BENCHMARK_CAPTURE(CalcRegisters, ADF4153, "ADF4153");
BENCHMARK_CAPTURE(CalcRegisters, ADF4193, "ADF4193");
BENCHMARK_CAPTURE(CalcRegisters, SKY72300, "SKY72300-362");
BENCHMARK(loadADF4113)->Name("SetPLL/ADF4113 on a null port");
BENCHMARK(copyPanels)->Name("FracRegister/no files");
BENCHMARK(bareLoop)->Name("SetPLL/bare loop of the same port accesses");
BENCHMARK(readPhases)->Name("UpdateSetup_Frac/4096 phases")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Reach, ADF4193_that_nothing_meets, "ADF4193", 1747.2, 19.2, 100)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Reach, SKY72300_with_a_fraction, "SKY72300-362", 1234.567, 10, 1)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tessarine
