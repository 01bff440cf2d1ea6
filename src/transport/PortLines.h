// The lines of the parallel port while a word is shifted.
#pragma once

#include <cstdint>
#include <exception>

#include "engine/Module1.h"
#include "platform/Platform.h"
#include "transport/PortAccess.h"

namespace tessarine {

// The same accesses as PortWrite and PortRead, with the way out looked up once: a word is hundreds of them in
// a row, and nothing but the events that run while a write is retried can change it.
class PortLines {
 public:
  explicit PortLines(Module1& module)
      : module_(module),
        driver_(module.UseDlPort != 0 ? &module.platform.driver : nullptr),
        library_(module.platform.library),
        port_(static_cast<std::uint16_t>(module.PortAddress)) {}

  void write(int value) {
    if (retried_) {
      PortWrite(module_, module_.PortAddress, value);
    } else if (!echoes(static_cast<std::uint8_t>(value))) {
      retried_ = true;
      retryWrite(module_, module_.PortAddress, static_cast<std::uint8_t>(value));
    }
  }

  // `driven`, the byte last written, when the port cannot be read: the load goes on.
  int read(int driven) {
    try {
      return retried_ ? PortRead(module_, module_.PortAddress) : readOnce();
    } catch (const std::exception&) {
      return driven;
    }
  }

 private:
  bool echoes(std::uint8_t value) {
    try {
      if (driver_ != nullptr) {
        driver_->DlPortWritePortUchar(port_, value);
      } else {
        library_.OutputByte1(port_, value);
      }
      return readOnce() == value;
    } catch (const std::exception&) {
      return false;
    }
  }

  std::uint8_t readOnce() {
    return driver_ != nullptr ? driver_->DlPortReadPortUchar(port_) : library_.InputByte1(port_);
  }

  Module1& module_;
  PortDriver* driver_;
  PortLibrary& library_;
  std::uint16_t port_;
  bool retried_ = false;
};

}  // namespace tessarine
