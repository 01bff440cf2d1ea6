#include "desktop/board/RegisterView.h"

#include <QEvent>
#include <QFontDatabase>
#include <QHeaderView>
#include <QVBoxLayout>
#include <algorithm>
#include <bit>
#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include "desktop/Style.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {

namespace {

QString bitRange(int offset, int width) {
  return width == 1 ? QString::number(offset) : QStringLiteral("%1:%2").arg(offset + width - 1).arg(offset);
}

int widestMeaning(const board::Chip& chip, const QFontMetrics& metrics) {
  int widest = metrics.horizontalAdvance(QStringLiteral("never loaded"));
  for (const board::Register& spec : chip.map().registers) {
    for (const board::Field& field : spec.fields) {
      for (const std::string_view meaning : field.meanings) {
        widest = std::max(widest, metrics.horizontalAdvance(text(meaning)));
      }
    }
  }
  return widest;
}

// The parent owns it.
QTreeWidgetItem& addLine(QTreeWidgetItem& parent) {
  auto item = std::make_unique<QTreeWidgetItem>();
  QTreeWidgetItem& line = *item;
  parent.addChild(item.release());
  return line;
}

}  // namespace

RegisterView::RegisterView() {
  tree_.setObjectName(QStringLiteral("registers"));
  tree_.setColumnCount(kColumns);
  tree_.setHeaderLabels({QStringLiteral("Register, field"), QStringLiteral("New"), QStringLiteral("Bits"),
                         QStringLiteral("Value"), QStringLiteral("Meaning"), QStringLiteral("Hex"),
                         QStringLiteral("Binary")});
  tree_.headerItem()->setToolTip(kChanged, QStringLiteral("Changed by the last load"));
  tree_.setSelectionMode(QAbstractItemView::SingleSelection);
  tree_.setAllColumnsShowFocus(true);
  tree_.setUniformRowHeights(true);
  tree_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  tree_.header()->setStretchLastSection(true);
  tree_.header()->setSectionsMovable(false);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(&tree_);
}

void RegisterView::take(const board::EvaluationBoard& board, std::optional<double> /*askedMHz*/) {
  board_ = &board;
  const board::Chip* const chip = board.chip();
  const board::ChipModel* const model = chip == nullptr ? nullptr : &chip->model();
  if (model != model_) {
    model_ = model;
    build(chip);
  }
  for (std::size_t index = 0; index < registers_.size(); ++index) {
    RegisterLines& lines = registers_[index];
    Shown now{.word = chip->word(index)};
    for (const board::Field& field : lines.spec->fields) {
      if (board.changedByLastLoad(index, field)) now.changed |= field.mask();
    }
    if (lines.shown != now) show(lines, now);
  }
}

void RegisterView::build(const board::Chip* chip) {
  registers_.clear();
  tree_.clear();
  if (chip == nullptr) return;
  const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  QFont bold = font();
  bold.setBold(true);
  const Tones tones(palette());
  for (const board::Register& spec : chip->map().registers) {
    RegisterLines lines{
        .head = &addLine(*tree_.invisibleRootItem()), .spec = &spec, .fields = {}, .shown = {}};
    lines.head->setText(kName, text(spec.name));
    lines.head->setSizeHint(kName, {0, fontMetrics().height() * 5 / 4});
    lines.head->setText(kBits, bitRange(0, spec.width));
    std::vector<const board::Field*> fields;
    for (const board::Field& field : spec.fields) fields.push_back(&field);
    std::ranges::sort(fields, std::greater{}, &board::Field::offset);
    for (const board::Field* const field : fields) {
      QTreeWidgetItem& line = addLine(*lines.head);
      line.setText(kName, text(field->name));
      line.setText(kBits, bitRange(field->offset, field->width));
      lines.fields.push_back({&line, field});
    }
    if (spec.selectorMask != 0) {
      const int offset = std::countr_zero(spec.selectorMask);
      const int width = std::popcount(spec.selectorMask);
      QTreeWidgetItem& line = addLine(*lines.head);
      line.setText(kName, QStringLiteral("address"));
      line.setText(kBits, bitRange(offset, width));
      line.setText(kBinary, groupedBinary(spec.selectorValue >> offset, width));
      line.setText(kMeaning, QStringLiteral("selects ") + text(spec.name));
      for (int column = 0; column < kColumns; ++column) line.setForeground(column, tones.muted);
      line.setFont(kBinary, fixed);
    }
    for (int column = 0; column < kColumns; ++column) {
      lines.head->setFont(column, column == kBinary || column == kHex ? fixed : bold);
      lines.head->setBackground(column, tones.card);
    }
    for (const FieldLine& line : lines.fields) {
      line.item->setFont(kBinary, fixed);
      line.item->setFont(kHex, fixed);
      if (!line.field->reserved) continue;
      for (int column = 0; column < kColumns; ++column) line.item->setForeground(column, tones.muted);
    }
    lines.head->setExpanded(true);
    registers_.push_back(std::move(lines));
  }
  // Wide enough for the longest word, before any is loaded.
  tree_.header()->resizeSections(QHeaderView::ResizeToContents);
  tree_.setColumnWidth(kMeaning, widestMeaning(*chip, fontMetrics()) + 16);
  const QFontMetrics metrics(fixed);
  tree_.setColumnWidth(kValue, metrics.horizontalAdvance(QString(8, QLatin1Char('0'))) + 8);
  tree_.setColumnWidth(kBinary, metrics.horizontalAdvance(groupedBinary(0, 24)) + 16);
  tree_.setColumnWidth(kHex, metrics.horizontalAdvance(hexText(0, 24)) + 16);
}

void RegisterView::show(RegisterLines& lines, const Shown& now) {
  lines.shown = now;
  const std::uint32_t word = now.word.value_or(0);
  const auto number = [&](const QString& text) { return now.word ? text : QString(); };
  lines.head->setText(kBinary, number(groupedBinary(word, lines.spec->width)));
  lines.head->setText(kHex, number(hexText(word, lines.spec->width)));
  lines.head->setText(kMeaning, now.word ? QString() : QStringLiteral("never loaded"));
  lines.head->setText(kChanged, now.changed != 0 ? QStringLiteral("●") : QString());
  for (const FieldLine& line : lines.fields) {
    const board::Field& field = *line.field;
    const std::uint32_t value = field.value(word);
    line.item->setText(kBinary, number(groupedBinary(value, field.width)));
    line.item->setText(kHex, number(hexText(value, field.width)));
    line.item->setText(kValue, number(QString::number(value)));
    line.item->setText(kMeaning, number(text(field.meaning(word))));
    mark(*line.item, (now.changed & field.mask()) != 0);
  }
}

void RegisterView::mark(QTreeWidgetItem& item, bool changed) const {
  item.setText(kChanged, changed ? QStringLiteral("●") : QString());
  item.setToolTip(kChanged, changed ? QStringLiteral("Changed by the last load") : QString());
  const QBrush ground = changed ? QBrush(Tones(palette()).tint) : QBrush();
  for (int column = 0; column < kColumns; ++column) item.setBackground(column, ground);
}

void RegisterView::changeEvent(QEvent* event) {
  BoardView::changeEvent(event);
  // The lines carry colours and faces of their own.
  const bool looksElse = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
  if (!looksElse || board_ == nullptr) return;
  build(board_->chip());
  take(*board_, {});
}

}  // namespace tessarine::desktop
