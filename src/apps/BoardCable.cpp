#include "apps/BoardCable.h"

#include <utility>

namespace tessarine {

BoardCable::BoardCable(std::function<std::int64_t()> microseconds)
    : board_(socket_.bench(std::move(microseconds)), [this] { return socket_.wiring(); }) {}

}  // namespace tessarine
