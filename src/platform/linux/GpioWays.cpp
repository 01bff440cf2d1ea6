#include "platform/linux/GpioWays.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"
#include "platform/linux/OpenPort.h"

namespace tessarine {
namespace {

constexpr std::uint16_t kConnector = 0x378;
constexpr std::uint8_t kLoad = 1U << kLoadRole;
constexpr std::uint8_t kLockPin = 1U << 3U;  // A3

struct PinOfRole {
  std::uint8_t pin;  // of port B
  std::uint8_t bit;  // of the data register
};
constexpr std::array kPins{PinOfRole{0x08, 1U << kClockRole}, PinOfRole{0x04, 1U << kDataRole},
                           PinOfRole{0x02, kLoad}};
constexpr std::uint8_t kWiredPins = 0x0E;

class GpioPort : public OpenPort {
 public:
  GpioPort(GpioLines& lines, const std::function<std::uint8_t()>& loadPins)
      : lines_(lines), loadPins_(loadPins) {
    lines_.open();
  }
  // The control register has no lines.
  void write(PortRegister place, std::uint8_t value) override {
    if (place == PortRegister::data) lines_.write(value, loadPins_());
  }
  std::uint8_t read(PortRegister place) override { return place == PortRegister::data ? lines_.read() : 0; }
  [[nodiscard]] std::string whyOtherwise(std::uint8_t written, std::uint8_t read) const override {
    for (std::size_t role = 0; role < kLockRole; ++role) {
      const bool high = (read >> role & 1U) != 0;
      if (((written ^ read) >> role & 1U) != 0)
        return advice::gpioLineHeld(lines_.wires().at(role), kGpioRoles.at(role), high);
    }
    return {};
  }
  void leave() noexcept override { lines_.leave(); }

 private:
  GpioLines& lines_;
  std::function<std::uint8_t()> loadPins_;
};

}  // namespace

PortTable::Opener gpioWay(GpioLines& lines, std::function<std::uint8_t()> loadPins) {
  return [&lines, loadPins = std::move(loadPins)](std::uint16_t base) -> std::unique_ptr<OpenPort> {
    if (base != kConnector) throw Fault(advice::gpioElsewhere(base));
    return std::make_unique<GpioPort>(lines, loadPins);
  };
}

void GpioUsb::send(std::span<const std::uint8_t> levels) {
  for (const std::uint8_t pins : levels) {
    std::uint8_t bits = 0;
    for (const PinOfRole& each : kPins)
      if ((pins & each.pin) != 0) bits |= each.bit;
    lines_.write(bits, kLoad);
    pins_ = pins;
  }
}

std::uint8_t GpioUsb::pinsOf(char port) {
  if (port == 'A') return lines_.lock() ? kLockPin : 0;
  const std::uint8_t bits = lines_.read();
  auto pins = static_cast<std::uint8_t>(pins_ & ~kWiredPins);
  for (const PinOfRole& each : kPins)
    if ((bits & each.bit) != 0) pins |= each.pin;
  return pins;
}

void GpioUsb::UsbOpen(int /*device*/) {
  const std::lock_guard<Gate> hold(gate_);
  lines_.leave();
  lines_.open();
  pins_ = 0;
}

void GpioUsb::UsbClose() {
  const std::lock_guard<Gate> hold(gate_);
  lines_.leave();
  pins_ = 0;
}

}  // namespace tessarine
