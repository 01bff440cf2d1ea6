// A sign "locked" or "not locked" with the reason beside it, as much of it as fits.
#pragma once

#include <QWidget>

#include "board/Chip.h"

namespace tessarine::desktop {

class LockSign : public QWidget {
 public:
  LockSign();
  void take(const board::Tuning& tuning);

 protected:
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] QSize sizeHint() const override;

 private:
  [[nodiscard]] QFont signFont() const;

  bool locked_ = false;
  QString reason_;
};

}  // namespace tessarine::desktop
