// How each widget is set up and painted: what it says, its colours, how it takes keys and the pointer.
#include <gtest/gtest.h>

#include <QAction>
#include <QStyle>
#include <QTabWidget>
#include <filesystem>
#include <string>

#include "desktop/Bench.h"
#include "desktop/BoardDesk.h"
#include "desktop/Painted.h"
#include "desktop/board/Saving.h"
#include "support/Sum.h"

namespace tessarine::desktop {
namespace {

QString setup(const QWidget& widget) {
  static const QStringList properties =
      QStringLiteral(
          "objectName windowTitle text informativeText standardButtons title currentText accessibleName "
          "toolTip "
          "visible enabled focusPolicy checkable checked shortcut default autoDefault readOnly alignment "
          "wordWrap "
          "textFormat textInteractionFlags frameShape flat insertPolicy editTriggers selectionMode icon "
          "uniformRowHeights uniformItemSizes rootIsDecorated alternatingRowColors horizontalScrollBarPolicy "
          "verticalScrollBarPolicy widgetResizable tabChangesFocus undoRedoEnabled lineWrapMode acceptMode "
          "fileMode defaultSuffix windowModality")
          .split(QLatin1Char(' '));
  QString line = QString::fromLatin1(widget.metaObject()->className());
  for (const QString& name : properties) {
    const QVariant value = widget.property(name.toLatin1());
    const bool isText = value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QKeySequence;
    const QString text = isText ? value.toString() : QString::number(value.toInt());
    if (!text.isEmpty() && text != "0") line += QStringLiteral(" %1=%2").arg(name, text);
  }
  const QPalette& palette = widget.palette();
  return line + QStringLiteral(" %1 on %2 %3%4 cursor %5 list %6")
                    .arg(palette.color(widget.foregroundRole()).name(),
                         palette.color(widget.backgroundRole()).name())
                    .arg(qRound(100 * widget.font().pointSizeF() / QApplication::font().pointSizeF()))
                    .arg(QLatin1String(widget.font().bold() ? "% bold" : "%"))
                    .arg(static_cast<int>(widget.cursor().shape()))
                    .arg(widget.style()->styleHint(QStyle::SH_ComboBox_Popup, nullptr, &widget));
}

std::string setups(const QWidget& window) {
  QString text = setup(window);
  for (const QWidget* const part : window.findChildren<QWidget*>()) {
    if (part->objectName().startsWith("qt_") || part->inherits("QToolButton")) continue;  // not ours
    if (!part->objectName().isEmpty() || part->property("text").isValid()) text += '\n' + setup(*part);
    if (const auto* const tabs = qobject_cast<const QTabWidget*>(part))
      for (int i = 0; i < tabs->count(); ++i) text += '\n' + tabs->tabText(i);
  }
  for (const QAction* const entry : window.findChildren<QAction*>())
    if (!entry->objectName().isEmpty())
      text += QStringLiteral("\n%1 %2 %3")
                  .arg(entry->text(), entry->shortcut().toString())
                  .arg(entry->isEnabled());
  return text.toStdString() + "\n\n";
}

TEST(Widgets, AreSetUpAsTheyWereLookedOver) {
  std::string all;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path("/");
  {
    Bench bench;
    bench.start();
    all += setups(bench.window());
    const auto noteWhatOpens = [&] {
      bench.later(100, [&] {
        QWidget* const opened = QApplication::activeModalWidget();
        all += setup(*opened).toStdString();
        QTest::keyClick(opened, Qt::Key_Escape);
      });
    };
    bench.desktop.remark = [](const std::string& text) { return "why: " + text; };
    noteWhatOpens();
    bench.desktop.messageBox("A & <b>", Icon::critical, "title");
    bench.desktop.tell("cannot <i>write</i>");  // returns at once
    all += setups(*bench.window().findChild<QWidget*>(QStringLiteral("note")));
    bench.click("ContinueCommand");
    for (const char* const model : {"pllM(9)", "pllM(2)", "pllM(11)", "pllM(13)", "pllM(15)", "pllM(17)"}) {
      bench.menu(model);
      bench.form.ACommand_Click();
      all += setups(bench.window());
      bench.form.ACommand_Click();
    }
    for (forms::Form* const dialog : bench.program.forms.all()) {
      dialog->Show();
      all += setups(bench.window(*dialog));
    }
    for (const auto ask : {askWithDialog, askToOpenWithDialog}) {
      noteWhatOpens();
      (void)ask(bench.window(), {"title", "suggested.csv", "filter (*.csv)", "csv"});
    }
  }
  std::filesystem::current_path(before);
  BoardDesk desk;
  for (const View view : {kChip, kRegisters, kWire, kFrequency, kScript}) {
    desk.show(view);
    all += setups(desk.window);
  }
  WirePlot wires;
  wires.resize(32'000, 500);
  for (const char* const load : {"900.3", "900.1"}) {
    for (const char* const sign : {"loopDiagram", "lockSign"})
      all += TextCanvas(*desk.find(sign)).notes.marks;
    desk.load(load);
    wires.take(lastStretch(desk.port.board()));
    all += TextCanvas(wires).notes.marks;
  }
  desk.typed(900.07, 200);
  desk.show(kChip);
  all += setups(desk.window);
  expectSum("widgets", all, 819819514);
}

}  // namespace
}  // namespace tessarine::desktop
