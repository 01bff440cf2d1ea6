// One way to look at the board.
#pragma once

#include <QWidget>
#include <optional>

#include "board/EvaluationBoard.h"

namespace tessarine::desktop {

class BoardView : public QWidget {
 public:
  // Shows the board as it is now. `askedMHz`: the output frequency that the program was last asked for.
  virtual void take(const board::EvaluationBoard& board, std::optional<double> askedMHz) = 0;
};

}  // namespace tessarine::desktop
