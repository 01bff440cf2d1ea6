// The colours of the board's window that a palette does not name.
#pragma once

#include <QColor>
#include <QPalette>

#include "board/WireReceiver.h"

namespace tessarine::desktop {

struct Signs {
  explicit Signs(const QPalette& palette);
  QColor good;
  QColor bad;
  QColor note;
  QColor onSign;  // text on any of these
  QColor clock;
  QColor data;
  QColor loadEnable;
};

// The three wires in the order in which they are drawn.
struct WireLook {
  const char* name;
  bool board::Levels::*level;
  QColor Signs::*color;
};
inline constexpr WireLook kWires[] = {
    {"CLOCK", &board::Levels::clock, &Signs::clock},
    {"DATA", &board::Levels::data, &Signs::data},
    {"LE", &board::Levels::loadEnable, &Signs::loadEnable},
};

}  // namespace tessarine::desktop
