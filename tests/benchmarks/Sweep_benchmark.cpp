// What a click costs beside the port: copying the panels, and a step of a sweep. Wanted: the panels in at
// most 20 us.
#include <benchmark/benchmark.h>

#include <string>

#include "NullPlatform.h"

namespace tessarine {
namespace {

void copyPanels(benchmark::State& state) {
  NullBench bench("ADF4113");
  for (auto _ : state) bench.program.window.FracRegister();
}

// Items are steps: "items_per_second" is the pace of a sweep without a delay.
void sweep(benchmark::State& state) {
  NullBench bench("ADF4113");
  const auto steps = state.range(0);
  bench.program.door.click(bench.program.window.Sweep1);
  bench.program.door.click(bench.program.window.AutoOption1);
  bench.type("StartText1", "1000");
  bench.type("StepText1", "0.1");
  bench.type("StopText1", std::to_string(1000 + static_cast<double>(steps - 1) / 1e4));
  for (auto _ : state) bench.program.door.click(bench.program.window.StartSweepCommand(0));
  state.SetItemsProcessed(state.iterations() * steps);
}

BENCHMARK(copyPanels)->Name("FracRegister/no files");
BENCHMARK(sweep)
    ->Name("Sweep/ADF4113 on a null port")
    ->Arg(1000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarine
