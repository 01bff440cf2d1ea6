#include "desktop/board/CardFlow.h"

#include <QEvent>
#include <QScrollBar>
#include <algorithm>

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

void CardFlow::place(Place place) {
  places_.push_back(place);
  place.card->setParent(&ground_);
  place.card->installEventFilter(this);
  columns_ = 0;
  flow();
}

int CardFlow::widest(bool wide) const {
  int widest = 1;
  for (const Place& place : places_) {
    if (place.wide == wide) widest = std::max(widest, place.card->minimumSizeHint().width());
  }
  return widest;
}

QSize CardFlow::minimumSizeHint() const {
  return {std::max(widest(true), widest(false)) + verticalScrollBar()->sizeHint().width(),
          fontMetrics().height() * 8};
}

void CardFlow::flow() {
  const int space = std::max(0, grid_.horizontalSpacing());
  const int room = viewport()->width() + space;
  const auto narrow = std::ranges::count(places_, false, &Place::wide);
  const int columns = std::clamp(room / (widest(false) + space), 1, std::max(1, static_cast<int>(narrow)));
  if (columns == columns_) return;
  columns_ = columns;
  int cell = 0;  // counted along the rows
  for (const auto& [card, wide] : places_) {
    if (wide) cell = (cell + columns - 1) / columns * columns;
    grid_.addWidget(card, cell / columns, cell % columns, 1, wide ? columns : 1);
    cell += wide ? columns : 1;
  }
  const int lines = static_cast<int>(places_.size());
  for (int at = 0; at <= lines; ++at) {
    grid_.setColumnStretch(at, at < columns ? 1 : 0);
    grid_.setRowStretch(at, at == lines ? 1 : 0);
  }
}

void CardFlow::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  flow();
}

// A longer text may need another order.
bool CardFlow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) {
    flow();
    updateGeometry();
  }
  return QScrollArea::eventFilter(watched, event);
}

}  // namespace tessarine::desktop
