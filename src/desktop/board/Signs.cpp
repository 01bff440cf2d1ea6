#include "desktop/board/Signs.h"

namespace tessarine::desktop {

Signs::Signs(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Base).lightness() < 128;
  good = QColor(dark ? "#5cc98a" : "#1d7f48");
  bad = QColor(dark ? "#f0837c" : "#b3332c");
  note = QColor(dark ? "#e3b75a" : "#8a5a00");
  onSign = QColor(dark ? "#10171b" : "#ffffff");
  clock = QColor(dark ? "#7fb2f0" : "#2b62b0");
  data = good;
  loadEnable = QColor(dark ? "#d9a0ec" : "#8b3fa6");
}

}  // namespace tessarine::desktop
