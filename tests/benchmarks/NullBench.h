// The program on a port that echoes and costs next to nothing, with waits that cost nothing.
#pragma once

#include <benchmark/benchmark.h>

#include "engine/PLL.h"
#include "support/FakePlatform.h"
#include "support/Hand.h"
#include "window/Program.h"

namespace tessarine {

struct NullPort : PortDriver, PortLibrary {
  void DlPortWritePortUchar(std::uint16_t, std::uint8_t value) override { latch = value; }
  std::uint8_t DlPortReadPortUchar(std::uint16_t) override { return latch; }
  void OutputByte1(std::uint16_t, std::uint8_t value) override { latch = value; }
  std::uint8_t InputByte1(std::uint16_t) override { return latch; }

  std::uint8_t latch = 0;
};

// Waits that cost nothing: the time passes with each.
struct NullTime : FakeScreen, Clock {
  using FakeScreen::FakeScreen;
  void sleepUntilEvent(double seconds) override { now += seconds; }
  void processEvents() override {}
  double secondsSinceMidnight() override { return now; }
  void beep() override {}

  double now = 0;
};

// The port accesses of an ADF4113 load without the program around them.
inline void bareLoad(PortDriver& port) {
  // 3 words of 73 writes, 3 strobes of 2 and the last 0, each with its read-back, and a read per clock pulse.
  constexpr int kWrites = 3 * 73 + 3 * 2 + 1;
  constexpr int kReads = kWrites + 3 * 24;
  PortDriver* driver = &port;
  benchmark::DoNotOptimize(driver);  // so that no call is folded into the loop
  for (int i = 0; i < kWrites; ++i) driver->DlPortWritePortUchar(888, static_cast<std::uint8_t>(i));
  for (int i = 0; i < kReads; ++i) benchmark::DoNotOptimize(driver->DlPortReadPortUchar(888));
}

// The working screen with a chip picked, tuned to 1800 MHz with the panels as they start up.
struct NullBench : Hand {
  explicit NullBench(const std::string& model) : NullBench(model, time, time) {}
  NullBench(const std::string& model, Screen& screen, Clock& clock)
      : Hand(program), platform{port, port, host.usb, host.host, clock, screen} {
    program.start();
    open();
    pick(model);
    program.module.CurrentModel = model;  // for those without an entry
    tune("1800", "32/33", "40", "100");
    program.window.CalculateCommand_Click();
  }

  NullPort port;
  FakePlatform host;
  NullTime time{host.clock};
  Platform platform;
  Program program{platform};
  PLL& pll = program.module.ThePLL();
};

}  // namespace tessarine
