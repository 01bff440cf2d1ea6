// The ports opened so far, found by I/O address. A port is opened by the first byte for it and stays open.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/Kernel.h"
#include "platform/linux/OpenPort.h"

namespace tessarine {

class PortTable {
 public:
  using Opener = std::function<std::unique_ptr<OpenPort>(std::uint16_t base)>;

  PortTable(Kernel& kernel, Gate& gate, Opener opener)
      : kernel_(kernel), gate_(gate), opener_(std::move(opener)) {}

  // A Fault says why the port cannot be opened or does not take the byte. After one the port is tried again
  // at most once a second; until then each call gives the same Fault at no cost.
  void write(std::uint16_t address, std::uint8_t value);
  [[nodiscard]] std::uint8_t read(std::uint16_t address);

  // The last Fault, or what a port that reads back something else tells; empty while all is well.
  [[nodiscard]] std::string whyNotOpen() const;

  // Brings all ports to rest and closes them. The caller holds the gate.
  void leave() noexcept;

 private:
  struct Entry {
    std::uint16_t base = 0;
    std::unique_ptr<OpenPort> port;
    std::string trouble;  // why it is not open
    double triedAt = 0;   // seconds
    std::optional<std::uint8_t> written;
    std::optional<std::uint8_t> otherwiseRead;  // in place of `written`
  };

  Entry& entryFor(std::uint16_t address);
  OpenPort& opened(Entry& entry);
  template <class Operation>
  void guarded(std::uint16_t address, Operation&& operation);

  Kernel& kernel_;
  Gate& gate_;
  Opener opener_;
  std::vector<Entry> entries_;
  std::uint16_t lastBase_ = 0;
  std::string wrongAddress_;  // what the last address was, if no register that is written or read here
};

}  // namespace tessarine
