// Hops and sweeps over time.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <optional>

#include "desktop/board/BoardView.h"
#include "desktop/board/FrequencyPlot.h"
#include "desktop/board/Saving.h"

namespace tessarine::desktop {

class FrequencyView : public BoardView {
 public:
  // Both outlive the view.
  FrequencyView(board::EvaluationBoard& board, const Saving& saving);
  void take(const board::EvaluationBoard& board, std::optional<double> askedMHz) override;

 private:
  void saveTable();
  void savePicture();

  board::EvaluationBoard& board_;
  const Saving& saving_;
  FrequencyPlot plot_;
  QLabel cursor_;
  QComboBox stretch_;
  QPushButton clear_{QStringLiteral("C&lear")};
  QPushButton saveTable_{QStringLiteral("&Save as CSV...")};
  QPushButton savePicture_{QStringLiteral("Save as &PNG...")};
};

}  // namespace tessarine::desktop
