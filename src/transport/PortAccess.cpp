#include "transport/PortAccess.h"

#include <cstdint>
#include <exception>
#include <string>

#include "engine/Rounding.h"
#include "platform/Platform.h"
#include "platform/WaitWatch.h"

namespace tessarine {
namespace {

constexpr int kTries = 110;
constexpr int kFirstPatientTry = 101;  // the port is given time to settle from this try on
constexpr Integer kSettleMs = 50;
constexpr double kSecondsPerDay = 86400;

void writeOnce(const Module1& module, int address, std::uint8_t value) {
  const auto port = static_cast<std::uint16_t>(address);
  if (module.UseDlPort != 0) {
    module.platform.driver.DlPortWritePortUchar(port, value);
  } else {
    module.platform.library.OutputByte1(port, value);
  }
}

// Whether the port gives back what is written to it. A call that fails is a try that failed.
bool tryWrite(Module1& module, int address, std::uint8_t value, bool patient) {
  bool written = true;
  try {
    writeOnce(module, address, value);
  } catch (const std::exception&) {
    written = false;
  }
  if (patient) DelayMs(module, kSettleMs);
  try {
    return written && PortRead(module, address) == value;
  } catch (const std::exception&) {
    return false;
  }
}

double secondsSince(double start, Clock& clock) {
  const double now = clock.secondsSinceMidnight();
  return now < start ? now + kSecondsPerDay - start : now - start;
}

// Tells of a wait for as long as it lasts.
class Watched {
 public:
  Watched(WaitWatch* watch, Integer milliseconds) : watch_(watch) {
    if (watch_ != nullptr) watch_->waitBegins(milliseconds);
  }
  ~Watched() {
    if (watch_ != nullptr) watch_->waitEnds();
  }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;

 private:
  WaitWatch* watch_;
};

}  // namespace

int PortWrite(Module1& module, int Address, int Value) {
  const auto value = static_cast<std::uint8_t>(Value);
  if (usesUsb(module)) {
    module.platform.usb.UsbWritePort("B", value);
    return 0;
  }
  return tryWrite(module, Address, value, false) ? 1 : retryWrite(module, Address, value);
}

int retryWrite(Module1& module, int Address, std::uint8_t value) {
  for (int number = 1; number < kTries; ++number) {
    if (tryWrite(module, Address, value, number >= kFirstPatientTry)) return 1;
  }
  ++module.WritesGivenUp;
  module.platform.clock.beep();
  module.platform.screen.messageBox("Error with Output Port Address " + std::to_string(Address),
                                    Icon::critical, "Ouput port Err");
  return 0;
}

int PortRead(Module1& module, int Address) {
  if (usesUsb(module)) return module.platform.usb.UsbReadPort("B");
  const auto port = static_cast<std::uint16_t>(Address);
  return module.UseDlPort != 0 ? module.platform.driver.DlPortReadPortUchar(port)
                               : module.platform.library.InputByte1(port);
}

void DelayMs(Module1& module, Integer Milliseconds) {
  const Watched watched(module.waitWatch, Milliseconds);
  Clock& clock = module.platform.clock;
  Screen& screen = module.platform.screen;
  // Compared as Singles: the last digits of a time of day in Double are noise, which would let a wait of
  // whole milliseconds end a tick late.
  const Single wait = static_cast<Single>(Milliseconds) / 1000;
  if (wait <= 0) return;
  const double start = clock.secondsSinceMidnight();
  for (double left = wait;;) {
    if (left > 0) screen.sleepUntilEvent(left);
    const double elapsed = secondsSince(start, clock);
    screen.processEvents();
    if (toSingle(elapsed) >= wait) return;
    left = static_cast<double>(wait) - secondsSince(start, clock);  // the events may have taken their time
  }
}

}  // namespace tessarine
