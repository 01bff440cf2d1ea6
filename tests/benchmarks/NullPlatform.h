// The program on a port that echoes and costs next to nothing, with a clock that jumps to the end of each
// wait.
#pragma once

#include <cstdint>
#include <string>

#include "engine/PLL.h"
#include "support/FakePlatform.h"
#include "support/Hand.h"
#include "window/Program.h"

namespace tessarine {

class NullPort : public PortDriver, public PortLibrary {
 public:
  void DlPortWritePortUchar(std::uint16_t address, std::uint8_t value) override;
  std::uint8_t DlPortReadPortUchar(std::uint16_t address) override;
  void OutputByte1(std::uint16_t address, std::uint8_t value) override;
  std::uint8_t InputByte1(std::uint16_t address) override;

 private:
  std::uint8_t latch_ = 0;
};

// The port accesses of an ADF4113 load without the program around them.
void bareLoad(PortDriver& driver);

// The working screen with a chip picked, tuned to 1800 MHz with the panels as they start up.
struct NullBench : Hand {
  explicit NullBench(const std::string& model) : NullBench(model, ownScreen, ownClock) {}
  NullBench(const std::string& model, Screen& screen, Clock& clock)
      : Hand(program), platform{port, port, usb, host, clock, screen} {
    program.start();
    open();
    pick(model);
    program.module.CurrentModel = model;  // for those without an entry
    tune("1800", "32/33", "40", "100");
    program.window.CalculateCommand_Click();
  }

  NullPort port;
  FakeUsb usb;
  FakeHost host;
  FakeClock ownClock;
  FakeScreen ownScreen{ownClock};
  Platform platform;
  Program program{platform};
  PLL& pll = program.module.ThePLL();
};

}  // namespace tessarine
