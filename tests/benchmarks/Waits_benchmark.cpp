// How long a load with its six waits of 10 ms takes in real time, on the desktop and in the script runner,
// beside six bare waits of the kernel's. Wanted: at most 60.6 ms.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <ctime>
#include <iostream>

#include "NullBench.h"
#include "desktop/Desktop.h"
#include "platform/linux/LinuxClock.h"
#include "script/ScriptScreen.h"

namespace tessarine {
namespace {

void loads(benchmark::State& state, Screen& screen) {
  LinuxClock clock;
  NullBench bench("ADF4113", screen, clock);
  for (auto _ : state) bench.pll.SetPLL();
}

void onTheDesktop(benchmark::State& state) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int count = 1;
  char name[] = "benchmark";
  char* words[] = {name, nullptr};
  const QApplication application(count, words);
  desktop::Desktop desktop;
  loads(state, desktop);
}

void inTheScriptRunner(benchmark::State& state) {
  script::RealTime time;
  script::ScriptScreen screen(time, std::cout);
  loads(state, screen);
}

void bareWaits(benchmark::State& state) {
  const timespec wait{0, 10'000'000};
  for (auto _ : state)
    for (int i = 0; i < 6; ++i) ::clock_nanosleep(CLOCK_MONOTONIC, 0, &wait, nullptr);
}

void inRealTime(benchmark::internal::Benchmark* all) { all->Unit(benchmark::kMillisecond)->UseRealTime(); }

BENCHMARK(bareWaits)->Name("Waits/six bare ones of 10 ms")->Apply(inRealTime);
BENCHMARK(onTheDesktop)->Name("Waits/a load on the desktop")->Apply(inRealTime);
BENCHMARK(inTheScriptRunner)->Name("Waits/a load in the script runner")->Apply(inRealTime);

}  // namespace
}  // namespace tessarine
