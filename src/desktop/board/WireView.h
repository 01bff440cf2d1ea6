// What went over the three wires.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <optional>

#include "desktop/board/BoardView.h"
#include "desktop/board/Saving.h"
#include "desktop/board/WirePlot.h"

namespace tessarine::desktop {

class WireView : public BoardView {
 public:
  // Both outlive the view.
  WireView(const board::EvaluationBoard& board, const Saving& saving);
  void take(const board::EvaluationBoard& board, std::optional<double> askedMHz) override;

 private:
  void save();

  const board::EvaluationBoard& board_;
  const Saving& saving_;
  WirePlot plot_;
  QLabel cursor_;
  QCheckBox fold_{QStringLiteral("F&old pauses")};
  QPushButton save_{QStringLiteral("&Save as VCD...")};
};

}  // namespace tessarine::desktop
