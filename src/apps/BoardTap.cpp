#include "apps/BoardTap.h"

#include <utility>

namespace tessarine {

BoardTap::BoardTap(const Platform& real, std::function<std::int64_t()> microseconds)
    : real_(real),
      board_(socket_.bench(std::move(microseconds))),
      tap_(real.driver, real.library, real.usb, [this] { return socket_.wiring(); }) {}

Platform BoardTap::platform() { return {tap_, tap_, tap_, real_.host, real_.clock, real_.screen}; }

}  // namespace tessarine
