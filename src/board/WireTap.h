// Stands between the program and the real ways out, and shows a board what really went out.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "board/Cable.h"
#include "board/EvaluationBoard.h"
#include "platform/Platform.h"

namespace tessarine::board {

// Forwards every call. While a board listens it gets each write that succeeded; while none does, a call costs
// one comparison more.
class WireTap final : public PortDriver, public PortLibrary, public UsbInterface {
 public:
  // `cable` tells at each port write how the board is wired to the parallel port.
  WireTap(PortDriver& driver, PortLibrary& library, UsbInterface& usb, std::function<Cable()> cable);

  // Null ends it. The board must outlive the listening.
  void listen(EvaluationBoard* board) { board_ = board; }

  void DlPortWritePortUchar(std::uint16_t address, std::uint8_t value) override;
  std::uint8_t DlPortReadPortUchar(std::uint16_t address) override;
  void OutputByte1(std::uint16_t address, std::uint8_t value) override;
  std::uint8_t InputByte1(std::uint16_t address) override;

  void UsbOpen(int device) override;
  void UsbClose() override;
  void UsbWritePort(std::string_view port, std::uint8_t pins) override;
  std::uint8_t UsbReadPort(std::string_view port) override;
  void UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                    std::string_view sparePin, int mode, std::string_view word) override;
  std::uint8_t UsbReadPin(std::string_view pin) override;

 private:
  void written(std::uint16_t address, std::uint8_t value);

  PortDriver& driver_;
  PortLibrary& library_;
  UsbInterface& usb_;
  std::function<Cable()> cable_;
  EvaluationBoard* board_ = nullptr;
};

}  // namespace tessarine::board
