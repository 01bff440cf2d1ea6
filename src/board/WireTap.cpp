#include "board/WireTap.h"

#include <cstdint>
#include <string_view>
#include <utility>

namespace tessarine::board {

WireTap::WireTap(PortDriver& driver, PortLibrary& library, UsbInterface& usb, std::function<Cable()> cable)
    : driver_(driver), library_(library), usb_(usb), cable_(std::move(cable)) {}

void WireTap::written(std::uint16_t address, std::uint8_t value) {
  if (board_ == nullptr) return;
  const Cable cable = cable_();
  if (address == cable.port) {
    board_->drive(cable.levels(value));
  } else {
    board_->tick();
  }
}

void WireTap::DlPortWritePortUchar(std::uint16_t address, std::uint8_t value) {
  driver_.DlPortWritePortUchar(address, value);
  written(address, value);
}

std::uint8_t WireTap::DlPortReadPortUchar(std::uint16_t address) {
  return driver_.DlPortReadPortUchar(address);
}

void WireTap::OutputByte1(std::uint16_t address, std::uint8_t value) {
  library_.OutputByte1(address, value);
  written(address, value);
}

std::uint8_t WireTap::InputByte1(std::uint16_t address) { return library_.InputByte1(address); }

void WireTap::UsbOpen(int device) { usb_.UsbOpen(device); }

void WireTap::UsbClose() { usb_.UsbClose(); }

void WireTap::UsbWritePort(std::string_view port, std::uint8_t pins) {
  usb_.UsbWritePort(port, pins);
  if (board_ != nullptr && port == kUsbWirePort) board_->drive(kUsbCable.levels(pins));
}

std::uint8_t WireTap::UsbReadPort(std::string_view port) { return usb_.UsbReadPort(port); }

void WireTap::UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                           std::string_view sparePin, int mode, std::string_view word) {
  usb_.UsbShiftWord(clockPin, dataPin, loadPin, sparePin, mode, word);
  if (board_ == nullptr) return;
  shiftWordWave(clockPin, dataPin, loadPin, word,
                [this](std::uint8_t pins) { board_->drive(kUsbCable.levels(pins)); });
}

std::uint8_t WireTap::UsbReadPin(std::string_view pin) { return usb_.UsbReadPin(pin); }

}  // namespace tessarine::board
