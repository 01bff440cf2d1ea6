// What a screen reader calls a control that carries no caption of its own.
#pragma once

#include <string>

#include "forms/Control.h"

namespace tessarine::desktop {

// The nearest label that names the control (in front of a field, over or under a bit), else its tool tip;
// behind it the control's own name. Empty for controls that name themselves.
[[nodiscard]] std::string spokenName(const forms::Control& control);

}  // namespace tessarine::desktop
