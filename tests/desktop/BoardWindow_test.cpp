// The board's own window: that it shows what the board latched, at its own pace, and stays out of the way.
#include "desktop/board/BoardWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QClipboard>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTreeWidget>
#include <csignal>
#include <set>
#include <span>
#include <sstream>

#include "desktop/Bench.h"
#include "desktop/BoardDesk.h"
#include "desktop/Painted.h"
#include "desktop/Style.h"
#include "desktop/board/Card.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {
namespace {

using namespace ::testing;

TEST(ChipView, EachFaultOfTheBoardIsChosenAndShows) {
  BoardDesk desk;
  desk.load();
  auto* const faults = desk.find<QComboBox>("boardFault");
  std::vector<std::string> names;
  for (const board::BoardFaultName& entry : board::boardFaults()) {
    EXPECT_EQ(desk.port.fault(), entry.fault);
    names.push_back(faults->currentText().toStdString());
    QTest::keyClick(faults, Qt::Key_Down);
    desk.settle();
  }
  EXPECT_THAT(names, ElementsAre("none", "parallel port does not echo", "stuck data line", "LE not connected",
                                 "reference missing"));
  desk.expectTexts("reason: no reference", "output: none");
  desk.show(kFrequency);
  EXPECT_THAT(paintedTexts(*desk.find("frequencyPlot")), Not(Contains(Key("0")))) << "no output is not 0 MHz";
  desk.port.setFault(board::BoardFault::noLe);  // by another than the window
  desk.settle();
  EXPECT_EQ(faults->currentIndex(), 3);
}

TEST(ReachCard, CopiesWhatIsClicked) {
  BoardDesk desk;
  desk.typed(900.07, 200);
  desk.press("reachAbove");
  EXPECT_EQ(QApplication::clipboard()->text(), "900.2");
  EXPECT_EQ(desk.text("reachCopied"), "900.2 is in the clipboard, to be pasted into its field.");
}

TEST(WirePlot, TellsThatThereIsNothingOrNoLatch) {
  BoardDesk desk;
  WirePlot plot;
  EXPECT_THAT(paintedTexts(plot), ElementsAre(std::pair("Nothing on the wires yet", "#5a6166")));
  desk.port.setFault(board::BoardFault::noLe);
  desk.load();
  plot.resize(8000, 500);
  plot.take(lastStretch(desk.port.board()));
  EXPECT_THAT(paintedTexts(plot), Contains(std::pair("24 bits, not latched", "#b3332c")).Times(3));
}

TEST(WireView, TheCursorTellsTimeAndLevelsFromChangeToChange) {
  BoardDesk desk(kWire);
  desk.host.clock.elapsed = 7'000'000;
  desk.load();
  auto* const plot = desk.find<WirePlot>("wirePlot");
  const WireStretch& stretch = plot->stretch();
  ASSERT_EQ(stretch.words.size(), 3U);
  plot->setFocus();
  plot->setCursorPlace({});
  std::string told;
  for (const auto& change : stretch.changes) {
    QTest::keyClick(plot, Qt::Key_Right, Qt::ShiftModifier);
    ASSERT_EQ(plot->cursorTime(), change.time);
    const QString levels = QStringLiteral("%4   CLOCK %1   DATA %2   LE %3")
                               .arg(change.levels.clock)
                               .arg(change.levels.data)
                               .arg(change.levels.loadEnable)
                               .arg(timeText(static_cast<double>(change.time - stretch.changes[0].time)));
    EXPECT_THAT(desk.text("wireCursor"), StartsWith(levels.toStdString()));
    told += desk.text("wireCursor") + "\n";
  }
  // Two edges of the clock for each bit, and each change of the data.
  for (const auto& [field, edges] : {std::pair{"R: R = 50", 28 + 4},
                                     {"N: B = 562", 26 + 6},
                                     {"N: A = 4", 12 + 2},
                                     {"function: prescaler = 0 (8/9)", 4},
                                     {"function: timer = 0 (3 cycles)", 8 + 1}})
    EXPECT_EQ(QString::fromStdString(told).count(QLatin1String("   ") + QLatin1String(field) + '\n'), edges);
  QTest::keyClick(plot, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(plot->cursorTime(), stretch.changes[stretch.changes.size() - 2].time);
  const TextCanvas drawn(*plot);
  for (const QPointF& dot : std::span(drawn.notes.dots).last(3))
    EXPECT_TRUE(std::ranges::any_of(drawn.notes.fills, [&](const auto& fill) {
      const QRectF& box = fill.second;
      return std::min(box.width(), box.height()) < 4 && box.adjusted(-1, -1, 1, 1).contains(dot);
    })) << dot.y();
}

TEST(WireView, ShowsAndSavesTheLastLoadOfTheChipThatIsThere) {
  BoardDesk desk(kWire);
  desk.load("900");
  const WireStretch& stretch = desk.find<WirePlot>("wirePlot")->stretch();
  const std::int64_t end = stretch.end;
  desk.load("925.2");
  EXPECT_GT(stretch.changes.front().time, end);
  ASSERT_EQ(stretch.words.size(), 3U);
  EXPECT_EQ(stretch.words[0].bits, desk.form.Fregister.value());
  EXPECT_EQ(stretch.words[2].bits, desk.form.Nregister.value());
  std::ostringstream all;
  saveVcd(desk.port.board().trace(), desk.port.board().lastWrite(), all);
  EXPECT_EQ(desk.saved("saveVcd", "board.vcd"), all.str());
  // The pulses went to the chip that was there before: they make no word that waits for its latch.
  desk.pick("ADF4193");
  EXPECT_TRUE(stretch.words.empty());
  EXPECT_THAT(stretch.looseBits, IsEmpty());
  EXPECT_FALSE(stretch.empty());
}

TEST(PlotWidget, WheelDragAndKeysZoomAndPan) {
  BoardDesk desk(kWire);
  desk.load();
  auto* const plot = desk.find<WirePlot>("wirePlot");
  const double all = plot->span().length();
  const QPoint point(qRound(plot->area().left() + plot->area().width() / 4), plot->height() / 2);
  const double held = plot->placeAt(point.x());
  for (const int notches : {4, -1}) turnWheel(*plot, point, {0, 120 * notches});
  EXPECT_NEAR(plot->span().length(), all * 0.512, 1e-6 * all);
  EXPECT_NEAR(plot->placeAt(point.x()), held, 1e-6 * all);
  turnWheel(*plot, point, {-120, 0});
  EXPECT_NEAR(plot->placeAt(point.x()), held + 0.1 * plot->span().length(), 1e-6 * all);
  turnWheel(*plot, point, {120, 0});

  // Not the pointer of the screen, which would have to be there first.
  const auto movePointer = [&](const QPoint& to) {
    QMouseEvent move(QEvent::MouseMove, to, plot->mapToGlobal(to), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(plot, &move);
  };
  const QPoint dragged = point - QPoint(40, 0);
  QTest::mousePress(plot, Qt::LeftButton, {}, point);
  movePointer(dragged);
  EXPECT_EQ(plot->QWidget::cursor(), Qt::ClosedHandCursor);
  QTest::mouseRelease(plot, Qt::LeftButton, {}, dragged);
  EXPECT_EQ(plot->QWidget::cursor(), Qt::ArrowCursor);
  EXPECT_NEAR(plot->placeAt(dragged.x()), held, 1e-6 * all);
  movePointer(point);
  EXPECT_DOUBLE_EQ(*plot->cursor(), plot->placeAt(point.x()));
  EXPECT_NEAR(plot->placeAt(dragged.x()), held, 1e-6 * all) << "let go";

  plot->setFocus();
  plot->setCursorPlace({});
  const double from = plot->span().from();
  QTest::keyClick(plot, Qt::Key_Left);
  EXPECT_LT(plot->span().from(), from);
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Plus, Qt::Key_Minus}) {
    QTest::keyClick(plot, key);
    EXPECT_NEAR(plot->span().length(), key == Qt::Key_Plus ? all * 0.8 : all, 1e-6 * all);
  }
  turnWheel(*plot, point, {0, 120});
  plot->setCursorPlace(plot->span().to());
  QTest::keyClick(plot, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_GT(plot->span().to(), *plot->cursor()) << "the span comes along";
  QTest::mouseDClick(plot, Qt::LeftButton);
  EXPECT_DOUBLE_EQ(plot->span().length(), all);
  QTest::mouseClick(desk.find("wireFold"), Qt::LeftButton, {}, {5, desk.find("wireFold")->height() / 2});
  EXPECT_GT(plot->span().length(), 2 * all) << "silences at their length";
}

TEST(Saving, TellsHowItWentAndLeavesTheOldFileOnAFullDisk) {
  BoardDesk desk(kFrequency);
  desk.load();
  const std::string old = desk.saved("saveCsv", "frequency.csv");
  ASSERT_FALSE(old.empty());
  const std::string path = desk.folder.filePath(QStringLiteral("frequency.csv")).toStdString();
  EXPECT_EQ(desk.text("boardStatus"), "Saved " + path);
  // No file may grow, as on a disk that is full.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full{0, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  const std::string kept = desk.saved("saveCsv", "frequency.csv");
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(kept, old);
  EXPECT_THAT(desk.text("boardStatus"), StartsWith("Could not save " + path + ": "));
}

TEST(FrequencyView, KeepsAHopAndASweepAndSavesThem) {
  BoardDesk desk(kFrequency);
  desk.load("900");
  desk.click("Hop1");
  desk.set({{"VcoText1", "900"}, {"VcoText2", "925.2"}, {"HopText", "2"}, {"DelayText", "30000"}});
  desk.click("StartHop");
  desk.settle();
  std::ostringstream all;
  saveCsv(desk.port.board().history(), all);
  EXPECT_EQ(desk.saved("saveCsv", "frequency.csv"), all.str());
  auto* const plot = desk.find<FrequencyPlot>("frequencyPlot");
  plot->setFocus();
  plot->setCursorPlace(plot->span().from());
  for (const std::string megahertz : {"900.0", "925.2", "900.0", "925.2"}) {
    EXPECT_THAT(desk.text("frequencyCursor"), EndsWith("   " + megahertz + "00000 MHz   locked"));
    QTest::keyClick(plot, Qt::Key_Right, Qt::ShiftModifier);
  }
  QTest::keyClick(plot, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_THAT(desk.text("frequencyCursor"), HasSubstr("900.000000 MHz"));

  desk.click("Gen1");
  desk.click("ACommand");
  for (const int pause : {0, 300'000'000, 300'000'000}) {
    desk.click("Label31(18)");  // power-down, on for a moment and then for good
    desk.click("AllCommand");
    desk.host.clock.elapsed += pause;
  }
  desk.click("AllCommand");
  desk.settle();
  plot->setCursorPlace(plot->span().to());
  EXPECT_THAT(desk.text("frequencyCursor"), EndsWith("900.000000 MHz   not locked"));
  FrequencyPlot large(desk.port.board());
  large.resize(2000, 4000);
  large.refresh();
  std::string strip, curve;
  for (const auto& [color, box] : TextCanvas(large).notes.fills) {
    std::string& row = box.height() == 6 ? strip : curve;
    if (!row.ends_with(color)) row += " " + color;
  }
  EXPECT_EQ(strip, " #1d7f48 #b3332c #1d7f48 #b3332c");
  EXPECT_THAT(curve, EndsWith(" #12717f #b3332c #12717f #b3332c"));
  EXPECT_THAT(paintedTexts(large), IsSupersetOf({Key("MHz"), Key("900"), Key("902"), Key("924")}));
  EXPECT_THAT(paintedTexts(large), Contains(Key(EndsWith(" s"))));

  const std::string png = desk.saved("savePng", "frequency.png");
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(png), "PNG").size(),
            plot->size() * plot->devicePixelRatioF());
  for (const double microseconds : {60e6, 10e6, 1e6}) {
    QTest::keyClick(desk.find("frequencyStretch"), Qt::Key_Down);
    EXPECT_EQ(plot->span().length(), microseconds);
  }
  desk.press("clearHistory");
  EXPECT_EQ(desk.port.board().history().size(), 1U);
}

TEST(BoardWindow, ManySendsAreBoundedInPainting) {
  BoardDesk desk(kWire);
  desk.load("900");
  const EventCounter paints(QEvent::Paint, desk.find<WirePlot>("wirePlot"));
  QElapsedTimer clock;
  clock.start();
  for (int send = 0; send < 1000; ++send) {
    desk.set({{"VCOText", send % 2 == 0 ? "900" : "925.2"}});
    desk.click("AllCommand");
  }
  EXPECT_LE(paints.count, 60 * static_cast<double>(clock.nsecsElapsed()) / 1e9 + 2);
  EXPECT_TRUE(comesTrue([&] { return paints.count > 0; })) << "at the latest when the sends are over";
}

TEST(Idling, NoWindowRunsATimerOrPaintsAndAHiddenOneIsNotFilled) {
  BoardDesk desk;
  desk.load("900");
  Bench bench;
  bench.startWorking();
  bench.find("RefText")->setFocus();
  EXPECT_TRUE(comesTrue([] {
    const EventCounter timers(QEvent::Timer);
    const EventCounter paints(QEvent::Paint);
    QTest::qWait(1200);  // a cursor would blink
    return timers.count == 0 && paints.count == 0;
  }));
  desk.window.hide();
  const EventCounter timers(QEvent::Timer);
  desk.set("VCOText", "925.2");
  desk.click("AllCommand");
  QTest::qWait(50);
  EXPECT_EQ(timers.count, 0);
  desk.window.show();
  EXPECT_EQ(desk.text("output"), "925.200000 MHz");
}

TEST(BoardWindow, F12ShowsAndHidesItWithoutTakingTheKeyboard) {
  BoardDesk desk;
  desk.window.hide();
  const BoardKey key(desk.window);
  QLineEdit other;
  other.show();
  ASSERT_TRUE(becomesActive(other));
  QTest::keyClick(&other, Qt::Key_F12);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_F12, Qt::NoModifier, {}, true);
  QCoreApplication::sendEvent(&other, &held);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&desk.window));
  desk.settle();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
  QTest::keyClick(&other, Qt::Key_F12);
  EXPECT_FALSE(desk.window.isVisible());
  desk.window.show();
  QTest::keyClick(desk.find("registers"), Qt::Key_F12);
  EXPECT_FALSE(desk.window.isVisible()) << "its own keys count as well";
  desk.window.showMinimized();
  EXPECT_TRUE(comesTrue([&] { return desk.window.isMinimized(); }));
  QTest::keyClick(&other, Qt::Key_F12);
  EXPECT_FALSE(desk.window.isMinimized());
  QTest::keyClick(&other, Qt::Key_F11);
  QTest::keyClick(&other, Qt::Key_F12, Qt::ControlModifier);
  EXPECT_TRUE(desk.window.isVisible());

  desk.window.show();
  other.setGeometry(desk.window.geometry());
  QTest::mouseClick(&other, Qt::LeftButton);
  for (const bool shown : {true, false}) {
    QTest::keyClick(&other, Qt::Key_F12);
    EXPECT_EQ(desk.window.isVisible(), shown) << "covered, it comes to the front";
  }
}

TEST(BoardWindow, CutsNoTextAtItsLeastSize) {
  BoardDesk desk;
  desk.load("12345.678");
  desk.typed(4200.0123456, 30);
  desk.window.resize(1, 1);
  desk.settle();
  EXPECT_LT(desk.window.width(), desk.find("loopDiagram")->fontMetrics().averageCharWidth() * 90);
  for (const View view : {kChip, kRegisters, kWire, kFrequency}) {
    desk.show(view);
    for (const QWidget* const one : desk.window.findChildren<QWidget*>()) {
      if (!dynamic_cast<const Card*>(one) || !one->isVisible()) continue;
      for (const QObject* const child : one->parent()->children()) {
        const auto* const other = dynamic_cast<const Card*>(child);
        EXPECT_FALSE(other && other != one && other->isVisible() &&
                     other->geometry().intersects(one->geometry()));
      }
    }
    for (QWidget* const part : desk.window.findChildren<QWidget*>()) {
      const QString text = part->property("text").toString();
      if (!part->isVisible() || (text.isEmpty() && part->objectName() != "lockSign")) continue;
      EXPECT_FALSE(cutsText(*part)) << text.toStdString();
    }
  }
}

TEST(BoardWindow, OpensBesideTheControlWindow) {
  BoardDesk desk;
  desk.window.hide();
  QWidget control;
  control.setGeometry(60, 50, 500, 400);
  control.show();
  desk.window.openBeside(&control);
  // A window manager that puts its frame around a window moves it about.
  EXPECT_TRUE(QTest::qWaitFor([&] {
    const QRect shown = desk.window.frameGeometry();
    return desk.window.isVisible() && !shown.intersects(control.frameGeometry()) &&
           desk.window.screen()->availableGeometry().contains(shown);
  }));

  control.setPalette(Qt::red);  // and beneath one that leaves no room
  control.setGeometry(control.screen()->availableGeometry());
  desk.window.hide();
  desk.window.openBeside(&control);
  QTest::qWait(200);  // it would be in front by now
  EXPECT_TRUE(comesTrue([&] {
    const QPoint middle = desk.window.geometry().center();
    const QImage spot = control.screen()->grabWindow(0, middle.x(), middle.y(), 1, 1).toImage();
    return desk.window.isVisible() && spot.pixelColor(0, 0) == Qt::red;
  }));
}

TEST(BoardWindow, OnARealWayOutItListensFromItsFirstOpeningTellsTheClientsAndOffersNoFaults) {
  board::EvaluationBoard board({[] { return std::int64_t{0}; }, [] { return 10.0; }});
  int opened = 0;
  std::string clients = "no client connected";
  BoardWindow window({.board = board, .onFirstShow = [&] { ++opened; }, .remote = [&] { return clients; }});
  window.show();
  EXPECT_EQ(opened, 1);
  window.hide();
  window.show();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(window.findChild<QWidget*>("boardFault"), nullptr);
  EXPECT_THAT(window.findChild<QLabel*>("boardStatus")->text().toStdString(),
              StartsWith("What was sent since this window opened"));
  const auto* const shown = window.findChild<QLabel*>("boardRemote");
  EXPECT_EQ(shown->text().toStdString(), clients);
  clients = "1 client connected";
  EXPECT_TRUE(comesTrue([&] { return shown->isVisible() && shown->text().toStdString() == clients; }));
}

}  // namespace
}  // namespace tessarine::desktop
