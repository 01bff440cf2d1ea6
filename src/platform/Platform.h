// The seam to the host: the ways out to the board, the clock, the host itself and the screen. Each interface
// has one real implementation, one virtual one and one fake for tests. Any operation may throw
// std::exception.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

namespace forms {
class Control;
class Form;
}  // namespace forms

inline constexpr const char* kApplicationTitle = "Tessarine";

// Byte access to I/O ports through the port driver.
class PortDriver {
 public:
  virtual ~PortDriver() = default;
  virtual void DlPortWritePortUchar(std::uint16_t address, std::uint8_t value) = 0;
  virtual std::uint8_t DlPortReadPortUchar(std::uint16_t address) = 0;
};

// The same through the port library, on hosts that need no driver.
class PortLibrary {
 public:
  virtual ~PortLibrary() = default;
  virtual void OutputByte1(std::uint16_t address, std::uint8_t value) = 0;
  virtual std::uint8_t InputByte1(std::uint16_t address) = 0;
};

// The USB interface. A port name is "A" or "B", a pin name a port name and a bit number, as in "B3".
class UsbInterface {
 public:
  virtual ~UsbInterface() = default;
  virtual void UsbOpen(int device) = 0;
  virtual void UsbClose() = 0;
  virtual void UsbWritePort(std::string_view port, std::uint8_t pins) = 0;
  virtual std::uint8_t UsbReadPort(std::string_view port) = 0;
  // Shifts `word` out, last character first, with load enable low, then pulses load enable high and leaves
  // all lines low.
  virtual void UsbShiftWord(std::string_view clockPin, std::string_view dataPin, std::string_view loadPin,
                            std::string_view sparePin, int mode, std::string_view word) = 0;
  virtual std::uint8_t UsbReadPin(std::string_view pin) = 0;  // 1: the pin is high
};

struct HostVersion {
  int platform = 0;
  int major = 0;
  int minor = 0;
};

inline constexpr std::uint32_t kHKeyLocalMachine = 0x80000002;

class Host {
 public:
  virtual ~Host() = default;
  // Nothing when the host does not answer.
  virtual std::optional<HostVersion> GetVersionExA() = 0;
  // Starts the program that brings up the port driver, hidden, without waiting for it.
  virtual void startPortDriver() = 0;
  // Starts the program at `path` with a normal, focused window, without waiting for it.
  virtual void startProgram(const std::string& path) = 0;
  // The registry query: 0 is success. A host without a registry answers anything else.
  virtual long RegOpenKeyExA(std::uint32_t root, const std::string& key, std::uint32_t access,
                             std::uintptr_t& handle) = 0;
  virtual long RegQueryValueExA(std::uintptr_t handle, const std::string& name, std::uint32_t& type,
                                std::string& data) = 0;
  virtual void RegCloseKey(std::uintptr_t handle) = 0;
  // The roots that stand in for drives: "/" and the mounted volumes.
  virtual std::vector<std::string> drives() = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual double secondsSinceMidnight() = 0;
  virtual void beep() = 0;
};

enum class Icon { plain, critical };

class Screen {
 public:
  virtual ~Screen() = default;
  // Modal, with one OK button; returns when the operator has answered.
  virtual void messageBox(const std::string& text, Icon icon,
                          const std::string& title = kApplicationTitle) = 0;
  // Shows a form modally; returns when it is hidden again.
  virtual void showModal(forms::Form& form) = 0;
  // Paints a control at once.
  virtual void repaint(forms::Control& control) = 0;
  // Lets all pending events of the windows run once. Throws ProgramEnded when the program has ended.
  virtual void processEvents() = 0;
  // Sleeps until an event is pending or `seconds` have passed. Costs no processor time, runs no event.
  virtual void sleepUntilEvent(double seconds) = 0;
  // Ends the program: throws ProgramEnded out of the running handler, and out of every handler below it.
  [[noreturn]] virtual void endProgram() = 0;
};

// One of each, handed to everything that needs the outside.
struct Platform {
  PortDriver& driver;
  PortLibrary& library;
  UsbInterface& usb;
  Host& host;
  Clock& clock;
  Screen& screen;
};

}  // namespace tessarine
