#include "desktop/board/PlotWidget.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/Style.h"

namespace tessarine::desktop {

namespace {

constexpr double kZoomStep = 0.8;
constexpr double kPanShare = 0.1;
constexpr double kWheelNotch = 120;

}  // namespace

PlotWidget::PlotWidget(double shortestSpan) : span_(shortestSpan) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize PlotWidget::sizeHint() const { return {fontMetrics().averageCharWidth() * 90, 0}; }

QSize PlotWidget::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 45, fontMetrics().height() * 12};
}

double PlotWidget::xOf(double place) const {
  const QRectF box = area();
  return box.left() + (place - span_.from()) / span_.length() * box.width();
}

double PlotWidget::placeAt(double x) const {
  const QRectF box = area();
  return span_.from() + (x - box.left()) / std::max(1.0, box.width()) * span_.length();
}

void PlotWidget::setCursorPlace(std::optional<double> place) {
  if (place == cursor_) return;
  cursor_ = place;
  changed();
}

void PlotWidget::changed() {
  update();
  if (onCursor) onCursor();
}

void PlotWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Tones tones(palette());
  drawBox(painter, rect(), 4, palette().color(QPalette::Base), tones.edge);
  draw(painter);
  if (hasFocus()) drawFocus(painter, rect(), 4, tones.accent);
}

void PlotWidget::wheelEvent(QWheelEvent* event) {
  const QPointF turned = QPointF(event->angleDelta()) / kWheelNotch;
  if (turned.y() != 0) span_.zoom(std::pow(kZoomStep, turned.y()), placeAt(event->position().x()));
  if (turned.x() != 0) span_.move(-turned.x() * kPanShare * span_.length());
  event->accept();
  changed();
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) grip_ = placeAt(event->position().x());
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
  const double x = event->position().x();
  if (grip_ && !span_.showsAll()) {
    setCursor(Qt::ClosedHandCursor);
    span_.move(*grip_ - placeAt(x));
    update();
  }
  const QRectF box = area();
  const bool inside = x >= box.left() && x <= box.right();
  setCursorPlace(inside ? std::optional<double>(placeAt(x)) : std::nullopt);
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* /*event*/) {
  grip_.reset();
  unsetCursor();
}

void PlotWidget::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
  span_.showAll();
  changed();
}

void PlotWidget::leaveEvent(QEvent* /*event*/) { setCursorPlace({}); }

void PlotWidget::keyPressEvent(QKeyEvent* event) {
  const double middle = (span_.from() + span_.to()) / 2;
  const double about = cursor_ ? std::clamp(*cursor_, span_.from(), span_.to()) : middle;
  const bool shift = (event->modifiers() & Qt::ShiftModifier) != 0;
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      span_.zoom(kZoomStep, about);
      break;
    case Qt::Key_Minus:
      span_.zoom(1 / kZoomStep, about);
      break;
    case Qt::Key_Left:
    case Qt::Key_Right: {
      const int direction = event->key() == Qt::Key_Left ? -1 : 1;
      if (shift) {
        stepCursor(direction);
      } else {
        span_.move(direction * kPanShare * span_.length());
      }
      break;
    }
    case Qt::Key_Home:
      span_.showAll();
      break;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  changed();
}

void PlotWidget::stepCursor(int direction) {
  const double start = cursor_.value_or(direction > 0 ? span_.from() : span_.to());
  const auto next = nextChange(start, direction);
  if (!next) return;
  cursor_ = next;
  if (*next < span_.from() || *next > span_.to()) span_.move(*next - (span_.from() + span_.to()) / 2);
}

double niceStep(double length, double most) {
  const double least = length / std::max(1.0, most);
  const double power = std::pow(10.0, std::floor(std::log10(least)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= least) return factor * power;
  }
  return 10 * power;
}

}  // namespace tessarine::desktop
