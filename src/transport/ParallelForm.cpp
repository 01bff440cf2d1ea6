#include "transport/ParallelForm.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "platform/Platform.h"
#include "platform/Text.h"

namespace tessarine {

namespace {

constexpr double kFirstPin = 2;  // the eight data lines of the connector are its pins 2 to 9
constexpr double kLastPin = 9;

// The masks on USB are fixed by its cable: clock B3, data B2, load enable B1.
constexpr Integer kUsbClock = 8;
constexpr Integer kUsbData = 4;
constexpr Integer kUsbLoadEnable = 2;

// Hexadecimal digits at the front of a text, held as a 16-bit signed number.
Integer hexadecimalAddress(std::string_view text) {
  constexpr unsigned kHighest = 0xFFFF;
  unsigned value = 0;
  for (const char c : trimmed(text)) {
    unsigned digit = 0;
    if (c >= '0' && c <= '9') {
      digit = static_cast<unsigned>(c - '0');
    } else if (c >= 'a' && c <= 'f') {
      digit = static_cast<unsigned>(c - 'a') + 10;
    } else if (c >= 'A' && c <= 'F') {
      digit = static_cast<unsigned>(c - 'A') + 10;
    } else {
      break;
    }
    value = value * 16 + digit;
    if (value > kHighest) {
      throw Fault("Parallel port Address = " + std::string(trimmed(text)) +
                  " (hexadecimal) does not fit 16 bits (0 to FFFF)");
    }
  }
  return static_cast<Integer>(static_cast<std::uint16_t>(value));
}

Integer maskOfPin(double pin) { return toInteger(std::pow(2.0, pin - kFirstPin), "Pin Number"); }

}  // namespace

ParallelForm::ParallelForm(forms::FormList& forms, Module1& module)
    : Form(forms, "ParallelForm", "Form1"), module_(module) {
  Place.start(forms::at(0, 0, 6120, 3000));
}

void ParallelForm::OKButton_Click() {
  std::array<double, 3> pins{};
  for (int i = 0; i < 3; ++i) {
    const double pin = leadingNumber(LPTwText(i).Text.get());
    if (pin < kFirstPin || pin > kLastPin) {
      module_.platform.screen.messageBox("Pin number between 2-9 only !!", Icon::critical);
      return;
    }
    pins.at(static_cast<std::size_t>(i)) = pin;
  }
  module_.PortAddress = hexadecimalAddress(ParallelText.Text.get());

  PortDriver& driver = module_.platform.driver;
  const auto port = static_cast<std::uint16_t>(module_.PortAddress);
  if (module_.PortType == "LPT" && module_.UseDlPort != 0) {
    ignoringErrors("a port that is not there shows in the read-back of the next load",
                   [&] { driver.DlPortWritePortUchar(static_cast<std::uint16_t>(port + 2), 0); });
  }
  PLL& pll = module_.ThePLL();
  pll.DATAbit = maskOfPin(pins[1]);
  pll.CLOCKbit = maskOfPin(pins[0]);
  pll.LEbit = maskOfPin(pins[2]);
  if (module_.PortType == "USB") {
    pll.DATAbit = kUsbData;
    pll.CLOCKbit = kUsbClock;
    pll.LEbit = kUsbLoadEnable;
  }
  if (module_.PortType == "LPT") {
    ignoringErrors(
        "a host without the driver, or a port that is not there, shows in the read-back of the next load",
        [&] { driver.DlPortWritePortUchar(port, 0); });
  }
  Hide();
}

void ParallelForm::CancelButton_Click() { Hide(); }

void ParallelForm::Command1_Click() {
  LPTwText(0).Text = "2";
  LPTwText(1).Text = "3";
  LPTwText(2).Text = "4";
}

}  // namespace tessarine
