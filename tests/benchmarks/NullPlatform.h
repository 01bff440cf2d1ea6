// An outside that costs next to nothing: a port that echoes, a clock that jumps to the end of each wait, and
// nobody in front of the screen.
#pragma once

#include "engine/EngineView.h"
#include "platform/Platform.h"

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

class NullUsb : public UsbInterface {
 public:
  void UsbOpen(int) override {}
  void UsbClose() override {}
  void UsbWritePort(std::string_view, std::uint8_t) override {}
  std::uint8_t UsbReadPort(std::string_view) override { return 0; }
  void UsbShiftWord(std::string_view, std::string_view, std::string_view, std::string_view, int,
                    std::string_view) override {}
  std::uint8_t UsbReadPin(std::string_view) override { return 0; }
};

class NullHost : public Host {
 public:
  std::optional<HostVersion> GetVersionExA() override { return std::nullopt; }
  void startPortDriver() override {}
  void startProgram(const std::string&) override {}
  long RegOpenKeyExA(std::uint32_t, const std::string&, std::uint32_t, std::uintptr_t&) override { return 1; }
  long RegQueryValueExA(std::uintptr_t, const std::string&, std::uint32_t&, std::string&) override {
    return 1;
  }
  void RegCloseKey(std::uintptr_t) override {}
  std::vector<std::string> drives() override { return {"/"}; }
};

class JumpingClock : public Clock {
 public:
  double secondsSinceMidnight() override { return now; }
  void beep() override {}
  double now = 0;
};

class NullScreen : public Screen {
 public:
  explicit NullScreen(JumpingClock& clock) : clock_(clock) {}
  void messageBox(const std::string&, Icon, const std::string&) override {}
  void showModal(forms::Form&) override {}
  void repaint(forms::Control&) override {}
  void processEvents() override {}
  void sleepUntilEvent(double seconds) override;
  [[noreturn]] void endProgram() override;

 private:
  JumpingClock& clock_;
};

class NullView : public EngineView {
 public:
  void showDetectorFrequency(const std::string&) override {}
  void showWord(int, const std::string&) override {}
  [[nodiscard]] bool lockDetectPrecisionChecked() const override { return false; }
};

struct NullPlatform {
  NullPlatform() = default;
  NullPlatform(const NullPlatform&) = delete;
  NullPlatform& operator=(const NullPlatform&) = delete;

  NullPort port;
  NullUsb usb;
  NullHost host;
  JumpingClock clock;
  NullScreen screen{clock};
  NullView view;
  Platform platform{port, port, usb, host, clock, screen};
};

}  // namespace tessarine
