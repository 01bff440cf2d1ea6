// A program of its own that reaches nothing outside, to try actions on.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"
#include "script/ScriptScreen.h"
#include "script/ScriptTime.h"
#include "window/Program.h"

namespace tessarine::script {

// Ways out that lead nowhere, on a host that has nothing.
class Nowhere final : public PortDriver, public PortLibrary, public UsbInterface, public Host {
 public:
  void DlPortWritePortUchar(std::uint16_t address, std::uint8_t value) override { port(address) = value; }
  std::uint8_t DlPortReadPortUchar(std::uint16_t address) override { return port(address); }
  void OutputByte1(std::uint16_t address, std::uint8_t value) override { port(address) = value; }
  std::uint8_t InputByte1(std::uint16_t address) override { return port(address); }

  void UsbOpen(int /*device*/) override {}
  void UsbClose() override {}
  void UsbWritePort(std::string_view /*port*/, std::uint8_t /*pins*/) override {}
  std::uint8_t UsbReadPort(std::string_view /*port*/) override { return 0; }
  void UsbShiftWord(std::string_view /*clock*/, std::string_view /*data*/, std::string_view /*load*/,
                    std::string_view /*spare*/, int /*mode*/, std::string_view /*word*/) override {}
  std::uint8_t UsbReadPin(std::string_view /*pin*/) override { return 0; }

  std::optional<HostVersion> GetVersionExA() override { return {}; }
  void startPortDriver() override {}
  void startProgram(const std::string& /*path*/) override {}
  long RegOpenKeyExA(std::uint32_t, const std::string&, std::uint32_t, std::uintptr_t&) override { return 1; }
  long RegQueryValueExA(std::uintptr_t, const std::string&, std::uint32_t&, std::string&) override {
    return 1;
  }
  void RegCloseKey(std::uintptr_t /*handle*/) override {}
  std::vector<std::string> drives() override { return {"/"}; }

 private:
  // What is written is read back: a port that does not answer would be asked again and again.
  std::uint8_t& port(std::uint16_t address) { return ports_.at(address % ports_.size()); }
  std::array<std::uint8_t, 4> ports_{};
};

struct StandIn {
  StandIn() {
    screen.afterMessage = [this] { ++messages; };
    program.start();
  }
  StandIn(const StandIn&) = delete;
  StandIn& operator=(const StandIn&) = delete;

  Nowhere nowhere;
  VirtualTime time;
  std::ostream unheard{nullptr};
  ScriptScreen screen{time, unheard};
  Platform platform{nowhere, nowhere, nowhere, nowhere, time, screen};
  Program program{platform};
  int messages = 0;
};

}  // namespace tessarine::script
