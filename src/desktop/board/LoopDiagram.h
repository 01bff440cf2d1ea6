// The loop as a block diagram with its numbers: reference, dividers, detector and oscillator.
#pragma once

#include <QWidget>

#include "board/Chip.h"

namespace tessarine::desktop {

class LoopDiagram : public QWidget {
 public:
  LoopDiagram();
  void take(const board::Tuning& tuning);

 protected:
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 private:
  struct Texts {
    QString reference, r, detector, n, output;
    bool locked = false;
    bool operator==(const Texts&) const = default;
  };
  Texts texts_;
};

}  // namespace tessarine::desktop
