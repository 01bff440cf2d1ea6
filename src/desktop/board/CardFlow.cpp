#include "desktop/board/CardFlow.h"

#include <QEvent>
#include <QScrollBar>
#include <algorithm>
#include <cstddef>

namespace tessarine::desktop {

CardFlow::CardFlow() {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  grid_.setContentsMargins(0, 0, 0, 0);
  setWidget(&ground_);
  // The cards stand on the ground of the page.
  viewport()->setAutoFillBackground(false);
  ground_.setAutoFillBackground(false);
}

CardFlow::~CardFlow() { takeWidget(); }

void CardFlow::add(Card& card) {
  cards_.push_back(&card);
  card.setParent(&ground_);
  card.installEventFilter(this);
  columns_ = 0;
  flow();
}

int CardFlow::widestCard() const {
  int widest = 1;
  for (const Card* const card : cards_) widest = std::max(widest, card->minimumSizeHint().width());
  return widest;
}

QSize CardFlow::minimumSizeHint() const {
  return {widestCard() + verticalScrollBar()->sizeHint().width(), fontMetrics().height() * 8};
}

void CardFlow::flow() {
  const int space = std::max(0, grid_.horizontalSpacing());
  const int room = viewport()->width() + space;
  const int columns = std::clamp(room / (widestCard() + space), 1, static_cast<int>(cards_.size()));
  if (columns == columns_) return;
  columns_ = columns;
  for (std::size_t index = 0; index < cards_.size(); ++index) {
    const int at = static_cast<int>(index);
    grid_.addWidget(cards_[index], at / columns, at % columns);
    grid_.setColumnStretch(at, at < columns ? 1 : 0);
    grid_.setRowStretch(at, 0);
  }
  grid_.setRowStretch(static_cast<int>(cards_.size()), 1);
}

void CardFlow::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  flow();
}

// A longer text may need another order.
bool CardFlow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) flow();
  return QScrollArea::eventFilter(watched, event);
}

}  // namespace tessarine::desktop
