#include "platform/linux/UsbModule.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"
#include "platform/linux/BitBang.h"

namespace tessarine {

// libftdi's results do not tell these cases apart; the kernel's own files do.
std::string UsbModule::whyNotOpened(char name, int result, const std::string& text) {
  if (result == kFtdiNotFound) return advice::moduleMissing();
  const std::string path = module_.node();
  const int node = kernel_.open(path, O_RDWR);
  if (node == -EACCES || node == -EPERM) return advice::moduleNotPermitted(path);
  if (node >= 0) kernel_.close(node);
  const std::string driver = driverOf(kernel_, module_, name);
  if (driver == "usbfs" || (driver.empty() && result == kFtdiNotClaimed))
    return advice::moduleBusy(name, path, "");
  if (!driver.empty()) return advice::moduleBusy(name, path, driver);
  return advice::moduleFailed(text);
}

void UsbModule::choose() {
  const std::vector<PluggedModule> modules = pluggedModules(kernel_);
  if (static_cast<std::size_t>(device_) >= modules.size()) throw Fault(advice::moduleMissing());
  module_ = modules[static_cast<std::size_t>(device_)];
  if (modules.size() > 1)
    notice_(advice::moduleAmongSeveral(modules.size(), module_.kind.name, module_.name));
}

FtdiChannel& UsbModule::opened(char port) {
  if (!channelA_ && !channelB_) choose();
  const char name = module_.kind.channelOf(port);
  std::unique_ptr<FtdiChannel>& channel = place(name);
  if (channel) return *channel;
  auto fresh = library_.channel(name);
  const int result = fresh->open(module_.bus, module_.device);
  if (result < 0) throw Fault(whyNotOpened(name, result, fresh->errorText()));
  channel = std::move(fresh);
  // The rate counts in bit-bang only, so the mode comes first.
  const std::uint8_t outputs = module_.kind.outputsOf(name);
  if (channel->setOutputs(outputs) < 0 || channel->setBaudRate(kBitBangRate) < 0)
    lost(advice::moduleGone(channel->errorText()));
  if (outputs != 0) send(std::array<std::uint8_t, 1>{0});
  return *channel;
}

void UsbModule::send(std::span<const std::uint8_t> levels) {
  FtdiChannel& channel = opened('B');
  const int result = channel.write(levels);
  if (result < 0) lost(advice::moduleGone(channel.errorText()));
  const auto sent = static_cast<std::size_t>(result);
  if (sent < levels.size()) lost(advice::moduleShort(sent, levels.size()));
}

std::uint8_t UsbModule::pinsOf(char port) {
  std::uint8_t pins = 0;
  FtdiChannel& channel = opened(port);
  if (channel.readPins(pins) < 0) lost(advice::moduleGone(channel.errorText()));
  return module_.kind.pinsOf(port, pins);
}

// Both channels: what is plugged in next may be another module.
void UsbModule::lost(const std::string& sentence) {
  leave();
  throw Fault(sentence);
}

void UsbModule::rest(char name) noexcept {
  std::unique_ptr<FtdiChannel>& channel = place(name);
  if (!channel) return;
  const std::uint8_t outputs = module_.kind.outputsOf(name);
  ignoringErrors("a module that is gone has no pins to bring to rest", [&] {
    if (outputs != 0) {
      (void)channel->write(std::array<std::uint8_t, 1>{0});
      // Inputs drift up. Load enable goes first, alone: its edge latches the last word once more, and a clock
      // that drifts up behind it cannot shift a wrong one in.
      (void)channel->setOutputs(static_cast<std::uint8_t>(outputs & ~loadMask_));
    }
    (void)channel->setOutputs(0);
  });
  channel->close();
  channel.reset();
}

void UsbModule::UsbOpen(int device) {
  const std::lock_guard<Gate> hold(gate_);
  leave();
  device_ = device;
  (void)opened('B');
  (void)opened('A');
}

void UsbModule::UsbClose() {
  const std::lock_guard<Gate> hold(gate_);
  leave();
}

void UsbModule::leave() noexcept {
  rest('A');
  rest('B');
}

}  // namespace tessarine
