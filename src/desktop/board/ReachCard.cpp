#include "desktop/board/ReachCard.h"

#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>
#include <optional>
#include <string>
#include <vector>

#include "board/NumberText.h"
#include "desktop/board/Signs.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {

namespace {

void showLines(QLabel& label, const std::vector<std::string>& all) {
  setTextIfNew(label, linesOf(all));
  label.setVisible(!all.empty());
}

void showLine(const Card::Line& line, const QString& value) {
  setTextIfNew(line.value, value);
  line.name.setVisible(!value.isEmpty());
  line.value.setVisible(!value.isEmpty());
}

QString signedText(double value, int decimals, const char* unit) {
  return (value > 0 ? QStringLiteral("+") : QString()) + fixedText(value, decimals) + QLatin1String(unit);
}

}  // namespace

ReachCard::ReachCard()
    : Card(QStringLiteral("Reach")),
      state_(addText(QStringLiteral("reachState"))),
      refusal_(addText(QStringLiteral("reachRefusal"))),
      asked_(addLine(QStringLiteral("Typed in"), QStringLiteral("reachAsked"))),
      output_(addLine(QStringLiteral("A load gives"), QStringLiteral("reachOutput"))),
      offset_(addLine(QStringLiteral("Off by"), QStringLiteral("reachOffset"))),
      why_(addText(QStringLiteral("reachWhy"))),
      limits_(addText(QStringLiteral("reachLimits"))),
      copied_((beginHalf(), addSuggestion(step_, QStringLiteral("Step that meets it"), "reachStep"),
               addSuggestion(below_, QStringLiteral("Next below"), "reachBelow"),
               addSuggestion(above_, QStringLiteral("Next above"), "reachAbove"),
               addText(QStringLiteral("reachCopied")))),
      notes_(addText(QStringLiteral("reachNotes"))) {
  QFont bold = font();
  bold.setBold(true);
  state_.setFont(bold);
  offset_.value.setFont(bold);
  copied_.hide();
}

void ReachCard::addSuggestion(Suggestion& suggestion, const QString& name, const char* objectName) {
  QPushButton& button = suggestion.button;
  button.setObjectName(QLatin1String(objectName));
  button.setCursor(Qt::PointingHandCursor);
  button.setAccessibleName(name);
  suggestion.caption = &addRow(name, button);
  suggestion.caption->setWordWrap(true);
  connect(&button, &QPushButton::clicked, this, [this, &suggestion] {
    QGuiApplication::clipboard()->setText(suggestion.typed);
    setTextIfNew(copied_,
                 suggestion.typed + QStringLiteral(" is in the clipboard, to be pasted into its field."));
    copied_.show();
  });
}

void ReachCard::offer(Suggestion& suggestion, const std::string& typed, const char* unit) {
  suggestion.typed = text(typed);
  const QString shown = suggestion.typed + QLatin1String(unit);
  if (suggestion.button.text() != shown) {
    suggestion.button.setText(shown);
    suggestion.button.setToolTip(QStringLiteral("Copy ") + suggestion.typed +
                                 QStringLiteral(" to the clipboard"));
  }
  suggestion.button.setVisible(!typed.empty());
  suggestion.caption->setVisible(!typed.empty());
}

void ReachCard::take(const board::Reach& reach) {
  takeResult(reach);
  takeSuggestions(reach);
  showLines(limits_, reach.limits);
  setInk(limits_, Signs(palette()).note);
  showLines(notes_, reach.notes);
}

void ReachCard::takeResult(const board::Reach& reach) {
  const Signs signs(palette());
  const bool refused = !reach.refused.empty();
  setTextIfNew(state_, refused     ? QStringLiteral("A load would be refused")
                       : reach.met ? QStringLiteral("Met")
                                   : QStringLiteral("Not met"));
  setInk(state_, reach.met ? signs.good : signs.bad);
  setTextIfNew(refusal_, text(reach.refused));
  refusal_.setVisible(refused);
  const bool runs = !refused && reach.tuning.outputMHz;
  showLine(asked_, refused ? QString() : megahertzText(reach.askedMHz));
  showLine(output_, refused ? QString()
                    : runs  ? megahertzText(*reach.tuning.outputMHz)
                            : QStringLiteral("none"));
  showLine(offset_, runs && !reach.met
                        ? signedText(reach.offsetHz, 1, " Hz\n") + signedText(reach.offsetPpm(), 3, " ppm")
                        : QString());
  setInk(offset_.value, signs.bad);
  showLines(why_, reach.why);
}

void ReachCard::takeSuggestions(const board::Reach& reach) {
  const auto typed = [](const std::optional<double>& megahertz) {
    return megahertz ? board::shortText(*megahertz) : std::string();
  };
  offer(below_, typed(reach.belowMHz), " MHz");
  offer(above_, typed(reach.aboveMHz), " MHz");
  offer(step_, reach.step ? reach.step->stepKHz : std::string(), " kHz");
  if (reach.step) {
    setTextIfNew(*step_.caption,
                 (reach.onlyClosest ? QStringLiteral("Closest step") : QStringLiteral("Step that meets it")) +
                     QStringLiteral("\nR ") + text(reach.step->r) + QStringLiteral(", N ") +
                     text(reach.step->n) + QStringLiteral(", detector ") +
                     frequencyText(reach.step->detectorMHz));
  }
}

}  // namespace tessarine::desktop
