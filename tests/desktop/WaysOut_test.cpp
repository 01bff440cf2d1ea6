// The window on each way out of a real platform, down to the system calls: first screen, Continue, send.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "board/Cable.h"
#include "board/WireReceiver.h"
#include "desktop/Bench.h"
#include "linux/FakeKernel.h"
#include "linux/FakeModule.h"
#include "linux/GpioKernel.h"
#include "platform/linux/GpioPlatform.h"
#include "platform/linux/LinuxPlatform.h"

namespace tessarine::desktop {
namespace {

// The worked example by the operator's hands; `levels` are then those that came out.
void sendsTheWorkedExample(const WaysOut& ways, bool onUsb, const board::Cable& cable,
                           const std::vector<std::uint8_t>& levels) {
  Bench bench(&ways);
  bench.startTuned(onUsb);
  bench.click("AllCommand");
  board::WireReceiver receiver;
  std::vector<std::string> words;
  for (const std::uint8_t lines : levels) {
    if (!receiver.drive(cable.levels(lines)).latch) continue;
    const std::string bits = receiver.takeBits();
    if (!bits.empty()) words.push_back(bits);
  }
  EXPECT_THAT(words, ::testing::ElementsAre("000000111000000010010010", "000000000000000011001000",
                                            "000000100011001000010001"));
}

// The bytes that were written to the port.
struct PortKernel : FakeKernel {
  int ioctl(int descriptor, unsigned long request, void* argument) override {
    if (request == PPWDATA) levels.push_back(*static_cast<std::uint8_t*>(argument));
    return FakeKernel::ioctl(descriptor, request, argument);
  }
  std::vector<std::uint8_t> levels;
};

TEST(WaysOut, TheWindowSendsOverThePortAndTheModule) {
  PortKernel kernel;
  kernel.addPort(0x378, "parport0");
  plugModule(kernel, "1-2", "6014", "4");
  FakeModule module;
  LinuxPlatform host(kernel, module, [] {});
  const WaysOut ways{host.driver, host.driver, host.usb};
  sendsTheWorkedExample(ways, false, board::Cable{}, kernel.levels);
  sendsTheWorkedExample(ways, true, board::kUsbCable, module.levels);
}

TEST(WaysOut, TheWindowSendsOverGpioLinesAsPortAndAsModule) {
  for (const bool onUsb : {false, true}) {
    GpioKernel kernel;
    kernel.add("gpiochip0", {"GPIO17", "DATA", "LOAD"});
    GpioPlatform host(
        kernel, {"GPIO17", "DATA", "LOAD"}, [] { return std::uint8_t{4}; }, [] {});
    sendsTheWorkedExample({host.driver, host.driver, host.usb}, onUsb, board::Cable{}, kernel.levels);
  }
}

}  // namespace
}  // namespace tessarine::desktop
