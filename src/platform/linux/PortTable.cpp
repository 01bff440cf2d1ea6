#include "platform/linux/PortTable.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <mutex>

#include "platform/Fault.h"
#include "platform/linux/Advice.h"
#include "platform/linux/Parport.h"

namespace tessarine {
namespace {

constexpr double kRetryAfter = 1.0;      // seconds
constexpr std::uint8_t kOpenBus = 0xFF;  // what is read where nothing answers

// All base addresses are multiples of 4, so that the last two bits are the register.
constexpr std::uint16_t kRegisterBits = 3;

bool isDataOrControl(PortRegister place) {
  return place == PortRegister::data || place == PortRegister::control;
}

}  // namespace

PortTable::Entry& PortTable::entryFor(std::uint16_t address) {
  const auto base = static_cast<std::uint16_t>(address & ~kRegisterBits);
  lastBase_ = base;
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.base == base; });
  if (found != entries_.end()) return *found;
  entries_.emplace_back().base = base;
  return entries_.back();
}

OpenPort& PortTable::opened(Entry& entry) {
  if (entry.port) return *entry.port;
  const double now = kernel_.seconds();
  if (!entry.trouble.empty() && now - entry.triedAt < kRetryAfter) throw Fault(entry.trouble);
  entry.triedAt = now;
  entry.port = opener_(entry.base);
  entry.trouble.clear();
  return *entry.port;
}

template <class Operation>
void PortTable::guarded(std::uint16_t address, Operation&& operation) {
  const std::lock_guard<Gate> hold(gate_);
  const auto place = static_cast<PortRegister>(address & kRegisterBits);
  wrongAddress_.clear();
  if (!isDataOrControl(place)) {
    wrongAddress_ = advice::noSuchRegister(address);
    throw Fault(wrongAddress_);
  }
  Entry& entry = entryFor(address);
  try {
    operation(entry, opened(entry), place);
  } catch (const std::exception& fault) {
    entry.trouble = fault.what();
    if (entry.port) {
      entry.triedAt = kernel_.seconds();
      entry.port->leave();
      entry.port.reset();
    }
    throw;
  }
}

void PortTable::write(std::uint16_t address, std::uint8_t value) {
  guarded(address, [&](Entry& entry, OpenPort& port, PortRegister place) {
    port.write(place, value);
    if (place == PortRegister::data) entry.written = value;
  });
}

std::uint8_t PortTable::read(std::uint16_t address) {
  std::uint8_t value = 0;
  if (static_cast<PortRegister>(address & kRegisterBits) == PortRegister::control) {
    // The program reads back what it takes for the lines of the board. Some bits of a control register echo
    // as well.
    const std::lock_guard<Gate> hold(gate_);
    wrongAddress_ = advice::controlRegister(address);
    throw Fault(wrongAddress_);
  }
  guarded(address, [&](Entry& entry, OpenPort& port, PortRegister place) {
    value = port.read(place);
    if (place != PortRegister::data) return;
    entry.otherwiseRead.reset();
    if (entry.written && value != *entry.written) entry.otherwiseRead = value;
  });
  return value;
}

std::string PortTable::whyNotOpen() const {
  const std::lock_guard<Gate> hold(gate_);
  if (!wrongAddress_.empty()) return wrongAddress_;
  for (const Entry& entry : entries_) {
    if (entry.base != lastBase_) continue;
    if (!entry.trouble.empty()) return entry.trouble;
    if (!entry.otherwiseRead) continue;
    std::string why =
        entry.port ? entry.port->whyOtherwise(*entry.written, *entry.otherwiseRead) : std::string();
    if (!why.empty()) return why;
    if (*entry.otherwiseRead != kOpenBus) {
      return advice::portOtherwise(entry.base, *entry.written, *entry.otherwiseRead);
    }
    std::vector<std::uint16_t> known;
    for (const Parport& port : knownParports(kernel_)) known.push_back(port.base);
    return advice::portSilent(entry.base, known);
  }
  return {};
}

void PortTable::leave() noexcept {
  for (Entry& entry : entries_) {
    if (!entry.port) continue;
    entry.port->leave();
    entry.port.reset();
  }
}

}  // namespace tessarine
