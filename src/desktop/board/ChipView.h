// What the chip makes of its registers: frequencies, dividers and lock.
#pragma once

#include <optional>

#include "desktop/board/BoardView.h"
#include "desktop/board/Card.h"
#include "desktop/board/CardFlow.h"
#include "desktop/board/LoopDiagram.h"

namespace tessarine::desktop {

class ChipView : public BoardView {
 public:
  ChipView();
  void take(const board::EvaluationBoard& board, std::optional<double> askedMHz) override;

 private:
  void takeFrequencies(const board::Tuning& tuning, std::optional<double> askedMHz);
  void takeDividers(const board::Tuning& tuning);
  void takeLock(const board::Tuning& tuning);

  LoopDiagram diagram_;
  CardFlow cards_;
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
