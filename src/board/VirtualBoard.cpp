#include "board/VirtualBoard.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "board/Describe.h"

namespace tessarine::board {

namespace {

constexpr BoardFaultName kFaults[] = {
    {BoardFault::none, "none"},
    {BoardFault::noEcho, "no-echo"},
    {BoardFault::stuckData, "stuck-data"},
    {BoardFault::noLe, "no-le"},
    {BoardFault::noReference, "no-reference"},
};

std::string_view nameOf(BoardFault fault) {
  return std::ranges::find(kFaults, fault, &BoardFaultName::fault)->name;
}

constexpr std::uint8_t kOpenBus = 0xFF;
constexpr std::string_view kStatusPort = "A";  // the USB interface's port with the board's answer
constexpr std::string_view kLockPin = "A3";

}  // namespace

std::span<const BoardFaultName> boardFaults() { return kFaults; }

std::optional<BoardFault> boardFaultNamed(std::string_view name) {
  const auto found = std::ranges::find(kFaults, name, &BoardFaultName::name);
  return found == std::end(kFaults) ? std::optional<BoardFault>{} : found->fault;
}

VirtualBoard::VirtualBoard(Surroundings around, std::function<Cable()> cable)
    : cable_(std::move(cable)),
      board_({std::move(around.microseconds), [this, reference = std::move(around.referenceMHz)] {
                return fault_ == BoardFault::noReference ? 0 : reference();
              }}) {}

void VirtualBoard::setFault(BoardFault fault) {
  fault_ = fault;
  if (onFault) onFault(nameOf(fault));
  board_.retune();
}

std::string VirtualBoard::describe() const {
  return describeBoard(board_) + "fault\t" + std::string(nameOf(fault_)) + "\n";
}

void VirtualBoard::writePort(std::uint16_t address, std::uint8_t value) {
  ports_[address] = value;
  const Cable cable = cable_();
  if (address == cable.port && fault_ != BoardFault::noEcho) {
    driveWires(cable.levels(value));
  } else {
    board_.tick();
  }
}

std::uint8_t VirtualBoard::readPort(std::uint16_t address) const {
  return fault_ == BoardFault::noEcho ? kOpenBus : ports_[address];
}

void VirtualBoard::UsbOpen(int /*device*/) {}

void VirtualBoard::UsbClose() {}

void VirtualBoard::UsbWritePort(std::string_view port, std::uint8_t pins) {
  if (port == kUsbWirePort) writeUsb(pins);
}

std::uint8_t VirtualBoard::UsbReadPort(std::string_view port) {
  if (port == kUsbWirePort) return usbPins_;
  return port == kStatusPort && board_.tuning().lockPin ? pinMask(kLockPin, kStatusPort) : std::uint8_t{0};
}

void VirtualBoard::UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                                std::string_view /*sparePin*/, int /*mode*/, std::string_view word) {
  shiftWordWave(clockPin, dataPin, loadPin, word, [this](std::uint8_t pins) { writeUsb(pins); });
}

std::uint8_t VirtualBoard::UsbReadPin(std::string_view pin) {
  if (pin.empty()) return 0;
  const std::string_view port = pin.substr(0, 1);
  return (UsbReadPort(port) & pinMask(pin, port)) != 0 ? 1 : 0;
}

void VirtualBoard::writeUsb(std::uint8_t pins) {
  usbPins_ = pins;
  driveWires(kUsbCable.levels(pins));
}

void VirtualBoard::driveWires(Levels levels) {
  if (fault_ == BoardFault::stuckData) levels.data = false;
  if (fault_ == BoardFault::noLe) levels.loadEnable = false;
  board_.drive(levels);
}

}  // namespace tessarine::board
