// How each widget is set up and painted: what it says, its colours, how it takes keys and the pointer.
#include <gtest/gtest.h>

#include <QAction>
#include <QCursor>
#include <QFontDatabase>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>
#include <QStyle>
#include <QTabWidget>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "desktop/Bench.h"
#include "desktop/BoardDesk.h"
#include "desktop/Fit.h"
#include "desktop/Painted.h"
#include "desktop/Scale.h"
#include "desktop/board/FrequencyPlot.h"
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
          "verticalScrollBarPolicy placeholderText widgetResizable tabChangesFocus undoRedoEnabled "
          "lineWrapMode acceptMode "
          "fileMode defaultSuffix windowModality currentIndex textElideMode")
          .split(QLatin1Char(' '));
  QString line = QString::fromLatin1(widget.metaObject()->className());
  for (const QString& name : properties) {
    const QVariant value = widget.property(name.toLatin1());
    const bool isText = value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QKeySequence;
    const QString text = isText ? value.toString() : QString::number(value.toInt());
    if (name == "toolTip" && value == widget.property("text"))
      continue;  // of a text that is cut in this font
    if (!text.isEmpty() && text != "0") line += QStringLiteral(" %1=%2").arg(name, text);
  }
  if (widget.isWindow() && widget.parentWidget()) line += " of " + widget.parentWidget()->objectName();
  if (const auto* const box = qobject_cast<const QMessageBox*>(&widget)) {
    const QFontMetrics metrics = box->fontMetrics();
    const QSize button = box->buttons()[0]->minimumSize();
    line += QStringLiteral(" %1 from %2 x %3")
                .arg(objectIn<QWidget>(*box, "qt_msgbox_label")->minimumWidth() != 0)
                .arg(button.width() / metrics.averageCharWidth())
                .arg(button.height() / metrics.height());
  }
  if (const auto* const box = qobject_cast<const QComboBox*>(&widget))
    for (int i = 0; i < box->count(); ++i) line += '|' + box->itemText(i);
  const auto* const view = qobject_cast<const QAbstractItemView*>(&widget);
  if (view && widget.objectName() != "Dir1") {  // which shows where this stands
    const QAbstractItemModel& rows = *view->model();
    line += QString::number(view->currentIndex().row());
    for (const QModelIndex& row :
         rows.match(rows.index(0, 0), Qt::DisplayRole, "", -1, Qt::MatchContains | Qt::MatchRecursive))
      for (int column = 0; column < rows.columnCount(row.parent()); ++column) {
        const QModelIndex cell = row.siblingAtColumn(column);
        line +=
            '|' + cell.data().toString() + cell.data(Qt::BackgroundRole).value<QBrush>().color().name() +
            cell.data(Qt::ForegroundRole).value<QBrush>().color().name() +
            (cell.data(Qt::FontRole) == QFontDatabase::systemFont(QFontDatabase::FixedFont) ? "mono" : "");
      }
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

// The focus comes and goes with the window manager.
QString painted(QWidget& widget) {
  static const QRegularExpression focusFrame(QStringLiteral("path #(12717f|ffffff)1#000000\n"));
  return QString::fromStdString(TextCanvas(widget).notes.marks).remove(focusFrame);
}

std::string setups(QWidget& window) {
  QString text = setup(window) + '\n';
  QPointF last;
  for (const QWidget* const part : window.findChildren<QWidget*>()) {
    if (part->objectName().startsWith("qt_") || part->inherits("QToolButton")) continue;  // not ours
    if (part->objectName().isEmpty() && !part->property("text").isValid()) continue;
    text += setup(*part);
    const QPointF here = part->isVisible() ? part->mapTo(&window, QPoint()) : last;
    text += QString::fromStdString(wayOf(std::exchange(last, here), here));
    if (const auto* const tabs = qobject_cast<const QTabWidget*>(part))
      for (int i = 0; i < tabs->count(); ++i) text += tabs->tabText(i) + '\n';
  }
  for (const QAction* const entry : window.findChildren<QAction*>())
    if (!entry->objectName().isEmpty())
      text += QStringLiteral("%1 %2 %3\n")
                  .arg(entry->text(), entry->shortcut().toString())
                  .arg(entry->isEnabled());
  if (QWidget* const folders = window.findChild<QWidget*>("Dir1")) {
    QStringList pictures = painted(*folders).split('\n').filter("picture");
    pictures.removeDuplicates();
    text += '\n' + pictures.join('\n');
  }
  return text.toStdString() + "\n\n";
}

TEST(Widgets, AreSetUpAsTheyWereLookedOver) {
  std::string all;
  const QFont usual = QApplication::font();
  QFont large = usual;
  large.setPointSizeF(1.3 * usual.pointSizeF());
  const auto before = std::filesystem::current_path();
  const QTemporaryDir folder;
  std::filesystem::current_path(folder.path().toStdString());
  std::filesystem::create_directory("below");
  {
    Bench bench;
    bench.start();
    const QImage icon = bench.window().windowIcon().pixmap(64).toImage();
    for (const QPoint& at : {QPoint(32, 58), {14, 49}, {26, 49}, {25, 45}, {14, 12}, {14, 20}})
      all += icon.pixelColor(at).name().toStdString() + '\n';
    all += setups(bench.window()) + painted(*bench.find("Picture1")).toStdString();
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
    bench.form.Label1.Caption = std::string(300, 'W');
    EXPECT_DOUBLE_EQ(fittingScale(bench.form, usual).x(), 1.5 * Scale(usual).x()) << "and no more";
    bench.form.Caption = "another";
    bench.form.Enabled = false;
    QApplication::setFont(large);
    all += setups(bench.window());
  }
  std::filesystem::current_path(before);
  QApplication::setFont(usual);
  BoardDesk desk;
  WirePlot wires;
  wires.resize(32'000, 500);
  FrequencyPlot plot(desk.port.board());
  plot.resize(2000, 400);
  wires.onCursor = plot.onCursor = [&all] { all += "told "; };
  const auto add = [&](PlotWidget& drawn, double part) {
    for (const double at : {0.01, 0.2, 0.5, 0.6, 0.8, 0.99, part}) {
      drawn.setCursorPlace(drawn.span().from() + at * drawn.span().length());
      all += (&drawn == &wires ? wires.cursorText() : plot.cursorText()).toStdString() + '\n';
    }
    const TextCanvas canvas(drawn);
    const QStringList marks = QString::fromStdString(canvas.notes.marks).split('\n');
    all += marks.filter(QRegularExpression("^(box|path)")).join('\n').toStdString();  // but the scales
    if (&drawn == &wires) all += canvas.notes.marks + canvas.notes.turns;
  };
  for (const char* const load : {"", "900.3", "900.1", "900.5"}) {
    if (std::string(load) == "900.5") desk.port.setFault(board::BoardFault::noLe);
    if (*load) desk.load(load);
    for (const View view : {kRegisters, kWire, kFrequency, kScript, kChip}) {
      desk.show(view);
      all += setups(desk.window);
    }
    for (const char* const sign : {"loopDiagram", "lockSign"})
      all += TextCanvas(*desk.find(sign)).notes.marks;
    wires.take(lastStretch(desk.port.board()));
    for (const double part : {1.0, 0.4}) {
      wires.span().zoom(part, 0.6 * wires.span().to());
      add(wires, 0.3);
    }
    for (const bool fold : {false, true}) wires.fold(fold);
    all += wires.span().showsAll() ? "all of it " : "a part ";
    for (const auto& change : wires.stretch().changes) all += std::to_string(change.time) + ' ';
    for (const board::LoadedWord& word : wires.stretch().words)
      all += word.bits + ' ' + std::to_string(word.latchTime) + '\n';
    all += std::to_string(wires.stretch().end) + (wires.stretch().before.data ? " from high" : " from low");
    plot.refresh();
    add(plot, 0.7);
  }
  for (const auto& [megahertz, step] : {std::pair(900.07, 200), {900.07, 10}, {4200, 30}, {900.07, 0}}) {
    desk.typed(megahertz, step);
    all += setups(desk.window);
  }
  desk.show(kRegisters);
  desk.pick("LMX2326");
  all += setups(*desk.find("registers"));
  QApplication::setFont(large);
  desk.settle();
  all += setups(*desk.find("registers"));
  QApplication::setFont(usual);
  expectSum("widgets", QString::fromStdString(all).remove(folder.path()).toStdString(), 1725152756);
}

// Hands that do anything with the mouse and the keyboard, in all windows.
struct AnyHands : BoardDesk {
  AnyHands(const std::string& model, unsigned seed) : BoardDesk(kChip, true), random(seed) {
    std::filesystem::current_path(folder.path().toStdString());
    for (const char* const name : {"b.txt", "a c.txt"}) std::ofstream(name) << name;
    screen.whileModal = [this](forms::Form& opened) {
      for (int i = 0; i < 4; ++i) act();
      opened.Unload();
    };
    QCursor::setPos(window.screen()->geometry().bottomRight());  // over nothing
    window.saving().ask = [this](QWidget&, const FileKind& kind) {
      return random() % 3 == 0 ? QString() : folder.filePath(kind.suggested);
    };
    window.saving().askToOpen = window.saving().ask;
    QApplication::setKeyboardInputInterval(1'000'000);  // on however slow a machine: keys go on with a search
    pick(model);
    tune(seed % 2 == 0 ? "900" : "1747.2", "8/9", "40");
  }
  // Those with a name of ours, window by window. A hop or a sweep meets other events on a busy machine.
  static std::vector<QWidget*> visible() {
    static const QRegularExpression kNotMeant(QStringLiteral("^$|^qt_|^Start(Hop|Sweep)|^D(ir|rive)1"));
    QWidgetList windows = QApplication::topLevelWidgets();
    std::ranges::sort(windows, {}, &QObject::objectName);
    std::vector<QWidget*> all;
    for (QWidget* const window : windows)
      if (window->isVisible())
        for (QWidget* const part : window->findChildren<QWidget*>())
          if (part->isVisible() && !part->objectName().contains(kNotMeant)) all.push_back(part);
    return all;
  }
  QWidget& oneOf(const std::vector<QWidget*>& widgets) {
    QWidget* one = nullptr;
    const QWidget* const modal = QApplication::activeModalWidget();  // which blocks the others
    for (int i = 0;
         i < 8 && (!one || (one->focusPolicy() & Qt::TabFocus) == 0 || (modal && one->window() != modal));
         ++i)
      one = widgets[random() % widgets.size()];
    return *one;
  }
  // To where it leads.
  std::string key(QWidget& widget) {
    static const QKeySequence kKeys[] = {
        Qt::Key_Tab,    Qt::Key_Backtab,   Qt::Key_Return,     Qt::Key_Escape, Qt::Key_Up,    Qt::Key_Down,
        Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Home,       Qt::Key_End,    Qt::Key_1,     Qt::Key_5,
        Qt::Key_0,      Qt::Key_Period,    Qt::Key_Space,      Qt::Key_Plus,   Qt::Key_Minus, Qt::Key_Enter,
        Qt::Key_Delete, Qt::Key_Backspace, Qt::ALT | Qt::Key_L};
    QWidget& top = *widget.window();
    std::string did;
    for (int i = 0; i < 3 && top.isVisible(); ++i) {
      const QKeySequence& pressed = kKeys[random() % std::size(kKeys)];
      widget.setFocus();
      QWidget& typedInto = widget.focusProxy() ? *widget.focusProxy() : widget;
      QTest::keySequence(&typedInto, pressed);
      did += ' ' + pressed.toString().toStdString();
      // Others may run what the window manager has to say.
      if (pressed.toString().contains("tab", Qt::CaseInsensitive) && top.focusWidget())
        did += " to " + top.focusWidget()->objectName().toStdString();
    }
    return did;
  }
  void act() {
    QWidget& widget = oneOf(visible());
    QWidget& top = *widget.window();
    auto* const list = dynamic_cast<QAbstractItemView*>(&widget);
    const QModelIndex row = list ? list->model()->index(static_cast<int>(random() % 6), 0) : QModelIndex();
    std::string did = widget.objectName().toStdString();
    switch (random() % 8) {
      case 0:
        did += key(widget);
        break;
      case 1:
        turnWheel(widget, widget.rect().center(), {0, random() % 2 == 0 ? 120 : -120});
        break;
      case 2:
        if (&top == &window)
          find<QTabWidget>("boardViews")->setCurrentIndex(static_cast<int>(random() % 5));
        else
          did += key(widget);
        break;
      case 3:
        if (random() % 2 == 0) {
          static const char* const kEntries[] = {"Gen1", "Hop1", "Sweep1", "About1", "Parallel", "Close1"};
          const std::string entry = kEntries[random() % std::size(kEntries)];
          did += " and " + entry;
          objectIn<QAction>(*desktop.windowOf(form), control(entry).name())->trigger();
          break;
        }
        [[fallthrough]];
      default:
        if (row.isValid())
          QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(row).center());
        else if (!dynamic_cast<QComboBox*>(&widget) && isOnTop(widget))
          QTest::mouseClick(&widget, random() % 8 == 0 ? Qt::RightButton : Qt::LeftButton);
        else
          did += key(widget);
    }
    settle();
    const bool isFilledIn = dynamic_cast<QLineEdit*>(&widget) || dynamic_cast<QComboBox*>(&widget);
    if (&top != &window && top.isVisible() && !isFilledIn) did += '\n' + painted(widget).toStdString();
    note("> " + did);
  }
  void note(const std::string& done) {
    log += done + '\n';
    std::set<std::string> now;
    for (QWidget* const part : visible()) now.insert(setup(*part).toStdString());
    for (const Message& message : std::exchange(host.screen.messages, {})) log += "! " + message.text + '\n';
    for (const std::string& line : now)
      if (!seen.contains(line)) log += line + '\n';
    seen = std::move(now);
  }
  std::mt19937 random;
  std::set<std::string> seen;
  std::string log;
};

TEST(Widgets, DoAsTheyDid) {
  std::string all;
  unsigned seed = 0;
  const auto before = std::filesystem::current_path();
  for (const char* const model : {"ADF4113", "ADF4252", "ADF4193", "SKY72300-362", "LMX2326", "ADF4153"}) {
    AnyHands hands(model, ++seed);
    for (int i = 0; i < 120; ++i) hands.act();
    all += QString::fromStdString(hands.log).remove(hands.folder.path()).toStdString();
  }
  std::filesystem::current_path(before);
  QApplication::setKeyboardInputInterval(400);
  expectSum("hands", all, 546540887);
}

}  // namespace
}  // namespace tessarine::desktop
