// How fast words are calculated and loaded. Wanted: a calculation at most 5 us for the integer-N chips and 10
// us for the others; a load at most 1.5 times the bare loop; a setup file of 4096 phases at most 2 ms; the
// panels in at most 20 us; a reach, which is worked out while the operator types, at most 1 ms.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <ctime>
#include <fstream>

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

long residentKb() {
  std::ifstream file("/proc/self/statm");
  long size = 0;
  long resident = 0;
  file >> size >> resident;
  return resident * (::sysconf(_SC_PAGESIZE) / 1024);
}

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// Items are steps: "items_per_second" is the pace of a sweep without a delay. "kBGrown" is what the process
// has grown by, "outsidePort" the share of the time that is not port access.
void sweep(benchmark::State& state) {
  NullBench bench("ADF4113");
  const auto steps = static_cast<double>(state.range(0));
  bench.click("Sweep1");
  bench.click("AutoOption1");
  bench.set({{"StartText1", "1000"}, {"StepText1", "0.1"}});
  bench.set("StopText1", std::to_string(1000 + (steps - 1) / 1e4));
  const long before = residentKb();
  const double start = processorSeconds();
  for (auto _ : state) bench.click("StartSweepCommand");
  const double end = processorSeconds();
  state.counters["kBGrown"] = static_cast<double>(residentKb() - before);
  state.SetItemsProcessed(state.iterations() * state.range(0));
  NullPort port;
  for (std::int64_t load = 0; load < state.items_processed(); ++load) bareLoad(port);
  state.counters["outsidePort"] = 1 - (processorSeconds() - end) / (end - start);
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
BENCHMARK_CAPTURE(Reach, ADF4193_that_nothing_meets, "ADF4193", 1747.2, 19.2, 100);
BENCHMARK_CAPTURE(Reach, SKY72300_with_a_fraction, "SKY72300-362", 1234.567, 10, 1);
BENCHMARK(sweep)
    ->Name("Sweep/ADF4113 on a null port")
    ->Arg(1000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarine
