#pragma once

#include <string>

#include "platform/Fault.h"

namespace tessarine {

// The text of the Fault that `action` raises.
template <class Action>
std::string faultOf(Action&& action) {
  try {
    action();
  } catch (const Fault& fault) {
    return fault.what();
  }
  return "no fault";
}

}  // namespace tessarine
