// The order in which the eye goes through the controls of a container.
#pragma once

#include <QWidget>
#include <vector>

#include "forms/Control.h"

namespace tessarine::desktop {

struct Placed {
  const forms::Control* control;
  QWidget* widget;
};

// Down a column of fields before what stands right of it; else row by row, and in a row from the left.
[[nodiscard]] std::vector<Placed> inReadingOrder(std::vector<Placed> items);

}  // namespace tessarine::desktop
