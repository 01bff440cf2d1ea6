#include "desktop/board/LockSign.h"

#include <QPainter>

#include "desktop/Style.h"
#include "desktop/board/Signs.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {

namespace {

const char* signText(bool locked) { return locked ? "LOCKED" : "NOT LOCKED"; }

}  // namespace

LockSign::LockSign() {
  setObjectName(QStringLiteral("lockSign"));
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QFont LockSign::signFont() const {
  QFont bold = font();
  bold.setBold(true);
  return bold;
}

QSize LockSign::sizeHint() const {
  const QFontMetrics metrics(signFont());
  return {metrics.horizontalAdvance(QLatin1String(signText(false))) + metrics.height() + 2,
          metrics.height() * 3 / 2};
}

void LockSign::take(const board::Tuning& tuning) {
  const QString reason = text(tuning.reason());
  if (tuning.locked() == locked_ && reason == reason_ && !accessibleName().isEmpty()) return;
  locked_ = tuning.locked();
  reason_ = reason;
  setAccessibleName(locked_ ? QStringLiteral("locked") : QStringLiteral("not locked: ") + reason_);
  setToolTip(reason_);
  update();
}

void LockSign::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Signs signs(palette());
  const QFont bold = signFont();
  const QFontMetricsF metrics(bold);
  const QString sign = QLatin1String(signText(locked_));
  const double high = metrics.height() * 1.4;
  const QRectF pill(0, (height() - high) / 2, metrics.horizontalAdvance(sign) + metrics.height(), high);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(locked_ ? signs.good : signs.bad);
  painter.drawRoundedRect(pill, high / 2, high / 2);
  painter.setFont(bold);
  painter.setPen(signs.onSign);
  painter.drawText(pill, Qt::AlignCenter, sign);
}

}  // namespace tessarine::desktop
