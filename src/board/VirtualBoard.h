// An evaluation board where there is none: it stands behind the parallel port and behind the USB interface.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "board/Cable.h"
#include "board/EvaluationBoard.h"
#include "platform/Platform.h"

namespace tessarine::board {

// What can be wrong with the board, to see what the program and the board make of it.
enum class BoardFault {
  none,
  noEcho,       // nothing answers at the port's address: writes go nowhere, reads give FF
  stuckData,    // the data line stays low
  noLe,         // load enable is not connected
  noReference,  // no crystal
};

struct BoardFaultName {
  BoardFault fault;
  std::string_view name;
};
[[nodiscard]] std::span<const BoardFaultName> boardFaults();
[[nodiscard]] std::optional<BoardFault> boardFaultNamed(std::string_view name);

class VirtualBoard final : public PortDriver, public PortLibrary, public UsbInterface {
 public:
  // `cable` tells at each port write how the board is wired to the parallel port.
  VirtualBoard(Surroundings around, std::function<Cable()> cable);

  [[nodiscard]] EvaluationBoard& board() { return board_; }
  [[nodiscard]] const EvaluationBoard& board() const { return board_; }

  void setFault(BoardFault fault);
  [[nodiscard]] BoardFault fault() const { return fault_; }
  // Where set, called with the name of each fault that is set.
  std::function<void(std::string_view name)> onFault;

  // Lines of NAME<TAB>VALUE...: the chip, its registers field by field, dividers, frequencies and lock.
  [[nodiscard]] std::string describe() const;

  void DlPortWritePortUchar(std::uint16_t address, std::uint8_t value) override { writePort(address, value); }
  std::uint8_t DlPortReadPortUchar(std::uint16_t address) override { return readPort(address); }
  void OutputByte1(std::uint16_t address, std::uint8_t value) override { writePort(address, value); }
  std::uint8_t InputByte1(std::uint16_t address) override { return readPort(address); }

  void UsbOpen(int device) override;
  void UsbClose() override;
  void UsbWritePort(std::string_view port, std::uint8_t pins) override;
  std::uint8_t UsbReadPort(std::string_view port) override;
  void UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                    std::string_view sparePin, int mode, std::string_view word) override;
  std::uint8_t UsbReadPin(std::string_view pin) override;

 private:
  void writePort(std::uint16_t address, std::uint8_t value);
  [[nodiscard]] std::uint8_t readPort(std::uint16_t address) const;
  void writeUsb(std::uint8_t pins);
  void driveWires(Levels levels);

  BoardFault fault_ = BoardFault::none;
  std::function<Cable()> cable_;
  EvaluationBoard board_;
  std::vector<std::uint8_t> ports_ = std::vector<std::uint8_t>(std::size_t{1} << 16);
  std::uint8_t usbPins_ = 0;
};

}  // namespace tessarine::board
