#include "desktop/board/ChipView.h"

#include <QVBoxLayout>
#include <optional>
#include <utility>

#include "desktop/board/Signs.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {

namespace {

constexpr double kHertz = 1e6;  // in a megahertz

QString orNone(const QString& text) { return text.isEmpty() ? QStringLiteral("none") : text; }

}  // namespace

ChipView::ChipView(std::function<board::Reach()> reach)
    : reachOf_(std::move(reach)),
      output_(frequencies_.addLine(QStringLiteral("Output"), QStringLiteral("output")).value),
      asked_(frequencies_.addLine(QStringLiteral("Last asked for"), QStringLiteral("asked")).value),
      offset_(frequencies_.addLine(QStringLiteral("Difference"), QStringLiteral("offset")).value),
      detector_(frequencies_.addLine(QStringLiteral("Detector"), QStringLiteral("detector")).value),
      reference_(frequencies_.addLine(QStringLiteral("Reference"), QStringLiteral("reference")).value),
      dividers_(loop_.addLine({}, QStringLiteral("dividers"))),
      state_(lock_.addText(QStringLiteral("lock"))),
      reason_(lock_.addText(QStringLiteral("reason"))),
      pin_(lock_.addLine(QStringLiteral("Lock-detect pin"), QStringLiteral("lockPin")).value),
      notes_(lock_.addText(QStringLiteral("notes"))) {
  if (reachOf_) cards_.addWide(reach_);
  for (Card* const card : {&frequencies_, &loop_, &lock_}) cards_.add(*card);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(&diagram_);
  column->addWidget(&cards_, 1);
  QFont bold = font();
  bold.setBold(true);
  output_.setFont(bold);
  state_.setFont(bold);
}

void ChipView::take(const board::EvaluationBoard& board, std::optional<double> askedMHz) {
  const board::Tuning& tuning = board.tuning();
  diagram_.take(tuning);
  takeFrequencies(tuning, askedMHz);
  takeDividers(tuning);
  takeLock(tuning);
  if (reachOf_) reach_.take(reachOf_());
}

void ChipView::takeFrequencies(const board::Tuning& tuning, std::optional<double> askedMHz) {
  const auto shown = [](std::optional<double> megahertz, QString (*text)(double)) {
    return orNone(megahertz ? text(*megahertz) : QString());
  };
  const bool comparable = tuning.outputMHz && askedMHz;
  setTextIfNew(output_, shown(tuning.outputMHz, megahertzText));
  setTextIfNew(asked_, shown(askedMHz, megahertzText));
  setTextIfNew(offset_,
               comparable ? offsetText((*tuning.outputMHz - *askedMHz) * kHertz) : QStringLiteral("–"));
  setTextIfNew(detector_, shown(tuning.detectorMHz, frequencyText));
  setTextIfNew(reference_, tuning.referenceMHz > 0 ? frequencyText(tuning.referenceMHz) : orNone({}));
}

void ChipView::takeDividers(const board::Tuning& tuning) {
  QStringList names;
  QStringList values;
  for (const board::Tuning::Divider& divider : tuning.dividers) {
    names << text(divider.name);
    values << shortText(divider.value);
  }
  setTextIfNew(dividers_.name, orNone(names.join(QLatin1Char('\n'))));
  setTextIfNew(dividers_.value, values.join(QLatin1Char('\n')));
}

void ChipView::takeLock(const board::Tuning& tuning) {
  const Signs signs(palette());
  setTextIfNew(state_, tuning.locked() ? QStringLiteral("Locked") : QStringLiteral("Not locked"));
  setInk(state_, tuning.locked() ? signs.good : signs.bad);
  setTextIfNew(reason_, linesOf(tuning.faults));
  reason_.setVisible(!tuning.locked());
  setTextIfNew(pin_, tuning.lockPin ? QStringLiteral("high") : QStringLiteral("low"));
  setTextIfNew(notes_, linesOf(tuning.notes));
  setInk(notes_, signs.note);
  notes_.setVisible(!tuning.notes.empty());
}

}  // namespace tessarine::desktop
