// What a step of a sweep costs beside the port.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdint>
#include <ctime>
#include <fstream>
#include <string>

#include "NullBench.h"

namespace tessarine {
namespace {

long residentKb() {
  std::ifstream file("/proc/self/statm");
  long size = 0;
  long resident = 0;
  file >> size >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

double secondsOfBareLoads(std::int64_t loads) {
  NullPort port;
  const std::clock_t start = std::clock();
  for (std::int64_t i = 0; i < loads; ++i) bareLoad(port);
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// Items are steps: "items_per_second" is the pace of a sweep without a delay. "kBGrown" is what the process
// has grown by, "outsidePort" the share of the time that is not port access.
void sweep(benchmark::State& state) {
  NullBench bench("ADF4113");
  const auto steps = state.range(0);
  bench.click("Sweep1");
  bench.click("AutoOption1");
  bench.set({{"StartText1", "1000"},
             {"StepText1", "0.1"},
             {"StopText1", std::to_string(1000 + static_cast<double>(steps - 1) / 1e4)}});
  const long before = residentKb();
  const std::clock_t start = std::clock();
  for (auto _ : state) bench.click("StartSweepCommand");
  const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  state.counters["kBGrown"] = static_cast<double>(residentKb() - before);
  const std::int64_t loads = state.iterations() * steps;
  state.SetItemsProcessed(loads);
  state.counters["outsidePort"] = 1 - secondsOfBareLoads(loads) / seconds;
}

BENCHMARK(sweep)
    ->Name("Sweep/ADF4113 on a null port")
    ->Arg(1000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessarine
