// What the chip makes of its registers: frequencies, dividers and lock.
#pragma once

#include <functional>
#include <optional>

#include "board/Reach.h"
#include "desktop/board/BoardView.h"
#include "desktop/board/Card.h"
#include "desktop/board/CardFlow.h"
#include "desktop/board/LoopDiagram.h"
#include "desktop/board/ReachCard.h"

namespace tessarine::desktop {

class ChipView : public BoardView {
 public:
  // `reach` tells the reach of the fields as they stand; there is a card for it where it can be told.
  explicit ChipView(std::function<board::Reach()> reach);
  void take(const board::EvaluationBoard& board, std::optional<double> askedMHz) override;

 private:
  void takeFrequencies(const board::Tuning& tuning, std::optional<double> askedMHz);
  void takeDividers(const board::Tuning& tuning);
  void takeLock(const board::Tuning& tuning);

  LoopDiagram diagram_;
  CardFlow cards_;
  std::function<board::Reach()> reachOf_;
  ReachCard reach_;
  Card frequencies_{QStringLiteral("Frequencies")};
  Card loop_{QStringLiteral("Dividers")};
  Card lock_{QStringLiteral("Lock")};
  QLabel& output_;
  QLabel& asked_;
  QLabel& offset_;
  QLabel& detector_;
  QLabel& reference_;
  Card::Line dividers_;  // one text line each
  QLabel& state_;
  QLabel& reason_;
  QLabel& pin_;
  QLabel& notes_;
};

}  // namespace tessarine::desktop
