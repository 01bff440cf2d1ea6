// What the operator should know though nothing failed.
#pragma once

#include <functional>
#include <string>

namespace tessarine {

// Takes one sentence. It may be called while a way out is held (see Gate), so it uses none.
using Notice = std::function<void(const std::string& sentence)>;

}  // namespace tessarine
