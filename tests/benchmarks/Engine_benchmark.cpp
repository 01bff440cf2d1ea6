// How fast words are calculated and loaded. Wanted: a calculation at most 5 us for the integer-N chips and 10
// us for the others; a load at most twice the bare loop; a setup file of 4096 phases at most 2 ms; the
// panels in at most 20 us.
#include <benchmark/benchmark.h>

#include <string>

#include "NullPlatform.h"
#include "support/PLLProbe.h"
#include "support/TempFile.h"

namespace tessarine {
namespace {

void calculate(benchmark::State& state, const std::string& model) {
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
  PortDriver* driver = &port;
  benchmark::DoNotOptimize(driver);
  for (auto _ : state) bareLoad(*driver);
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

const bool registered = [] {
  for (const std::string model :
       {"ADF4113", "LMX2306", "ADF4118", "LMX2325", "ADF4252", "ADF4153", "ADF4193", "SKY72300-362"}) {
    benchmark::RegisterBenchmark(("CalcRegisters/" + model).c_str(),
                                 [model](benchmark::State& state) { calculate(state, model); });
  }
  return true;
}();

BENCHMARK(loadADF4113)->Name("SetPLL/ADF4113 on a null port");
BENCHMARK(copyPanels)->Name("FracRegister/no files");
BENCHMARK(bareLoop)->Name("SetPLL/bare loop of the same port accesses");
BENCHMARK(readPhases)->Name("UpdateSetup_Frac/4096 phases")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tessarine
