// What a click costs beside the port: copying the panels, and a step of a sweep. Wanted: the panels in at
// most 20 us.
#include <benchmark/benchmark.h>

#include <string>

#include "NullPlatform.h"
#include "window/Program.h"

namespace tessarine {
namespace {

// The working screen of an ADF4113 on a null port.
struct Bench : NullPlatform {
  Bench() {
    program.start();
    program.door.click(program.window.ContinueCommand);
    program.door.click(program.window.pllM(9));
    program.door.type(program.window.RefText, "10");
    program.door.type(program.window.CompText, "100");
    program.door.type(program.window.PrescalarText, "16/17");
    program.door.click(program.window.Sweep1);
    program.door.click(program.window.AutoOption1);
    program.door.type(program.window.StartText1, "1000");
    program.door.type(program.window.StepText1, "0.1");
  }
  Program program{platform};
};

void copyPanels(benchmark::State& state) {
  Bench bench;
  for (auto _ : state) bench.program.window.FracRegister();
}

// Items are steps: "items_per_second" is the pace of a sweep without a delay.
void sweep(benchmark::State& state) {
  Bench bench;
  const auto steps = state.range(0);
  bench.program.door.type(bench.program.window.StopText1,
                          std::to_string(1000 + static_cast<double>(steps - 1) / 1e4));
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
