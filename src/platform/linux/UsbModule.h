// The USB interface on a module. With two or four channels port "B" is channel B, all outputs, and port "A"
// channel A, all inputs; pin n is bit n. With one, see ModuleKind.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/linux/FtdiChannel.h"
#include "platform/linux/Kernel.h"
#include "platform/linux/Notice.h"
#include "platform/linux/PluggedModules.h"
#include "platform/linux/UsbPins.h"

namespace tessarine {

class UsbModule : public UsbPins {
 public:
  // `notice` takes what the operator should know beside a fault.
  UsbModule(FtdiLibrary& library, Kernel& kernel, Gate& gate, Notice notice)
      : UsbPins(gate), library_(library), kernel_(kernel), notice_(std::move(notice)) {}

  // Each opens what it needs, also after the module was unplugged. A Fault says what is in the way; it ends
  // the use of the channel until the next call.
  void UsbOpen(int device) override;
  void UsbClose() override;

  // Lines low, then all pins inputs, and closed. The caller holds the gate.
  void leave() noexcept;

 private:
  void choose();
  [[nodiscard]] FtdiChannel& opened(char port);
  [[nodiscard]] std::unique_ptr<FtdiChannel>& place(char name) { return name == 'A' ? channelA_ : channelB_; }
  [[nodiscard]] std::string whyNotOpened(char name, int result, const std::string& text);
  void send(std::span<const std::uint8_t> levels) override;
  [[nodiscard]] std::uint8_t pinsOf(char port) override;
  [[noreturn]] void lost(const std::string& sentence);
  void rest(char name) noexcept;

  FtdiLibrary& library_;
  Kernel& kernel_;
  Notice notice_;
  int device_ = 0;
  PluggedModule module_;  // in use while one of its channels is open
  std::unique_ptr<FtdiChannel> channelA_;
  std::unique_ptr<FtdiChannel> channelB_;
};

}  // namespace tessarine
