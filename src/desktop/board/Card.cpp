#include "desktop/board/Card.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <memory>

#include "desktop/Style.h"

namespace tessarine::desktop {

namespace {

constexpr int kBottomRow = 100;  // takes up the room that is left

}  // namespace

Card::Card(const QString& title) : halves_(new QHBoxLayout) {
  QLabel& head = newLabel(title);
  QFont bold = head.font();
  bold.setBold(true);
  head.setFont(bold);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(&head);
  column->addLayout(halves_, 1);
  beginHalf();
}

QLabel& Card::newLabel(const QString& text) {
  auto label = std::make_unique<QLabel>(text, this);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return *label.release();  // the card owns it
}

Card::Line Card::addLine(const QString& name, const QString& objectName) {
  QLabel& caption = newLabel(name);
  QLabel& value = newLabel({});
  captions_.push_back(&caption);
  mute(caption);
  value.setObjectName(objectName);
  value.setAlignment(Qt::AlignRight | Qt::AlignTop);
  half_->addWidget(&caption, rows_, 0, Qt::AlignTop);
  half_->addWidget(&value, rows_++, 1);
  return {caption, value};
}

QLabel& Card::addRow(const QString& name, QWidget& value) {
  QLabel& caption = newLabel(name);
  captions_.push_back(&caption);
  mute(caption);
  half_->addWidget(&caption, rows_, 0, Qt::AlignTop);
  half_->addWidget(&value, rows_++, 1, Qt::AlignRight | Qt::AlignTop);
  return caption;
}

QLabel& Card::addText(const QString& objectName) {
  QLabel& label = newLabel({});
  label.setObjectName(objectName);
  label.setWordWrap(true);
  half_->addWidget(&label, rows_++, 0, 1, 2);
  return label;
}

void Card::beginHalf() {
  auto half = std::make_unique<QGridLayout>();
  half->setColumnStretch(1, 1);
  half->setRowStretch(kBottomRow, 1);
  half_ = half.get();
  rows_ = 0;
  if (halves_->count() > 0) halves_->addSpacing(fontMetrics().height());
  halves_->addLayout(half.release(), 1);  // which owns it
}

void Card::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    for (QLabel* const caption : captions_) mute(*caption);
  }
  QWidget::changeEvent(event);
}

// Not by a role of the desktop's palette, which may lack the one for it.
void Card::mute(QLabel& caption) {
  QPalette muted = palette();
  muted.setColor(QPalette::WindowText, Tones(palette()).muted);
  caption.setPalette(muted);
}

void Card::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Tones tones(palette());
  drawBox(painter, rect(), 5, tones.card, tones.edge);
}

void setInk(QLabel& label, const QColor& ink) {
  QPalette palette = label.palette();
  if (palette.color(QPalette::WindowText) == ink) return;
  palette.setColor(QPalette::WindowText, ink);
  label.setPalette(palette);
}

void setTextIfNew(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

}  // namespace tessarine::desktop
