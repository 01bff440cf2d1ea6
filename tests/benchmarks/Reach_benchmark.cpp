// What a reach costs while the operator types. Wanted: at most 1 ms, whatever the fields hold.
#include <benchmark/benchmark.h>

#include <string>

#include "board/ChipMap.h"
#include "board/Reach.h"

namespace tessarine {
namespace {

board::ReachFields fields(double vcoMHz, double referenceMHz, double stepKHz, int prescaler) {
  board::ReachFields all;
  all.vcoMHz = vcoMHz, all.referenceMHz = referenceMHz, all.stepKHz = stepKHz, all.prescaler = prescaler;
  return all;
}

void reachOf(benchmark::State& state, const std::string& chip, const board::ReachFields& all) {
  const board::ChipModel* const model = board::findChipModel(chip);
  for (auto _ : state) benchmark::DoNotOptimize(board::reachOf(*model, all));
}

const bool registered = [] {
  const struct {
    const char* name;
    const char* chip;
    board::ReachFields all;
  } cases[] = {
      {"a usual step", "ADF4113", fields(900, 10, 200, 32)},
      {"nothing meets it", "ADF4113", fields(812.3456789, 26, 30, 32)},
      {"R up to its end", "ADF4112", fields(3.57660627078e-05, 0.00294167415772, 12.5, 64)},
      {"low ratio, large R", "ADF4113", fields(0.987654321, 104, 6.5, 8)},
      {"above the rated output", "ADF4110", fields(3999.9999999, 10, 200, 64)},
      {"A is cut down", "LMX2325", fields(1234.5678901, 13, 12.5, 32)},
      {"nothing meets it", "ADF4153", fields(1747.2345678, 19.2, 200, 8)},
      {"nothing meets it", "ADF4193", fields(1747.2, 19.2, 100, 8)},
      {"above the rated output", "ADF4251", fields(3456.789, 40, 30, 8)},
      {"a fraction", "SKY72300-362", fields(1234.567, 10, 1, 8)},
  };
  for (const auto& each : cases)
    benchmark::RegisterBenchmark((std::string("Reach/") + each.chip + ", " + each.name).c_str(),
                                 [each](benchmark::State& state) { reachOf(state, each.chip, each.all); })
        ->Unit(benchmark::kMicrosecond);
  return true;
}();

}  // namespace
}  // namespace tessarine
