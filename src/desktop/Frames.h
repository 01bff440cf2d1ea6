// Frames: the cards that group what belongs together.
#pragma once

#include <QWidget>

#include "forms/Controls.h"

namespace tessarine::desktop {

// The colour that the children of a widget stand on.
[[nodiscard]] QColor groundOf(const QWidget& container);

}  // namespace tessarine::desktop
