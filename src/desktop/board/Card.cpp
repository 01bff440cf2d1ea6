#include "desktop/board/Card.h"

#include <QEvent>
#include <QPainter>
#include <memory>

#include "desktop/Style.h"

namespace tessarine::desktop {

namespace {

constexpr int kBottomRow = 100;  // takes up the room that is left

}  // namespace

Card::Card(const QString& title) : grid_(this) {
  QLabel& head = newLabel(title);
  QFont bold = head.font();
  bold.setBold(true);
  head.setFont(bold);
  grid_.addWidget(&head, rows_++, 0, 1, 2);
  grid_.setColumnStretch(1, 1);
  grid_.setRowStretch(kBottomRow, 1);
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
  grid_.addWidget(&caption, rows_, 0, Qt::AlignTop);
  grid_.addWidget(&value, rows_++, 1);
  return {caption, value};
}

QLabel& Card::addText(const QString& objectName) {
  QLabel& label = newLabel({});
  label.setObjectName(objectName);
  label.setWordWrap(true);
  grid_.addWidget(&label, rows_++, 0, 1, 2);
  return label;
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

void setTextIfNew(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

}  // namespace tessarine::desktop
