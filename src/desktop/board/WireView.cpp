#include "desktop/board/WireView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <optional>
#include <sstream>

namespace tessarine::desktop {

WireView::WireView(const board::EvaluationBoard& board, const Saving& saving)
    : board_(board), saving_(saving) {
  plot_.setObjectName(QStringLiteral("wirePlot"));
  cursor_.setObjectName(QStringLiteral("wireCursor"));
  fold_.setObjectName(QStringLiteral("wireFold"));
  save_.setObjectName(QStringLiteral("saveVcd"));
  plot_.setToolTip(
      QStringLiteral("Wheel, + and -: zoom\nDrag, left and right: pan\nHome: all of the load\n"
                     "Shift with left and right: cursor from change to change"));
  fold_.setChecked(true);
  fold_.setToolTip(QStringLiteral("Shows long silences short, so that bits and pauses fit one picture"));
  save_.setToolTip(QStringLiteral("Saves all that was recorded of the three wires"));
  cursor_.setWordWrap(true);

  auto* const bar = new QHBoxLayout;
  bar->addWidget(&cursor_, 1);
  bar->addWidget(&fold_);
  bar->addWidget(&save_);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(&plot_, 1);
  column->addLayout(bar);

  plot_.onCursor = [this] { cursor_.setText(plot_.cursorText()); };
  connect(&fold_, &QCheckBox::toggled, this, [this](bool on) { plot_.fold(on); });
  connect(&save_, &QPushButton::clicked, this, [this] { save(); });
}

void WireView::take(const board::EvaluationBoard& board, std::optional<double> /*askedMHz*/) {
  plot_.take(lastStretch(board));
  save_.setEnabled(board.trace().size() > 0);
}

void WireView::save() {
  std::ostringstream vcd;
  saveVcd(board_.trace(), board_.lastWrite(), vcd);
  saving_.save(*this,
               {QStringLiteral("Save the wires"), QStringLiteral("board.vcd"),
                QStringLiteral("Value change dump (*.vcd)"), QStringLiteral("vcd")},
               QByteArray::fromStdString(vcd.str()));
}

}  // namespace tessarine::desktop
