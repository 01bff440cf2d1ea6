// The board's own window: that it shows what the board latched, at its own pace, and stays out of the way.
#include "desktop/board/BoardWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "desktop/Bench.h"
#include "desktop/BoardDesk.h"
#include "desktop/EventCounter.h"
#include "desktop/Style.h"

namespace tessarine::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::StartsWith;

using Words = std::vector<std::string>;

// ---------------------------------------------------------------------------------------------- The chip

// Which of the two colours of a lock it shows: "good", "bad", both or none.
std::string lockColors(QWidget* widget) {
  const QImage picture = widget->grab().toImage();
  std::set<QRgb> colors;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) colors.insert(picture.pixel(x, y));
  return std::string(colors.contains(qRgb(0x1d, 0x7f, 0x48)) ? "good" : "") +
         (colors.contains(qRgb(0xb3, 0x33, 0x2c)) ? "bad" : "");
}

TEST(ChipView, TellsWhatTheChipMakesOfALoad) {
  BoardDesk desk;
  desk.pick("ADF4113");
  for (const char* const sign : {"lockSign", "lock"}) EXPECT_EQ(lockColors(desk.find(sign)), "bad") << sign;
  EXPECT_EQ(desk.label("lock"), "Not locked");
  EXPECT_EQ(desk.label("reason"),
            "R register never loaded\nN register never loaded\nfunction register never loaded");
  EXPECT_EQ(desk.label("output"), "none");
  EXPECT_EQ(desk.label("offset"), "–");

  desk.load();
  EXPECT_FALSE(desk.find("reason")->isVisible());
  for (const char* const sign : {"lockSign", "lock"}) EXPECT_EQ(lockColors(desk.find(sign)), "good") << sign;
  for (const auto& [name, text] : {std::pair{"boardChip", "ADF4113"},
                                   {"lock", "Locked"},
                                   {"output", "900.000000 MHz"},
                                   {"asked", "900.000000 MHz"},
                                   {"offset", "0.0 Hz"},
                                   {"detector", "200 kHz"},
                                   {"reference", "10 MHz"},
                                   {"dividers", "50\n8\n562\n4\n4500"}})
    EXPECT_EQ(desk.label(name), text);

  desk.load("900.11");  // no multiple of 200 kHz: the nearest one is 90 kHz above it
  EXPECT_EQ(desk.label("output"), "900.200000 MHz");
  EXPECT_EQ(desk.label("offset"), "+90 kHz");
}

TEST(ChipView, EachFaultOfTheBoardShows) {
  BoardDesk desk;
  desk.load();
  auto* const faults = desk.find<QComboBox>("boardFault");
  const auto choose = [&](int item) {
    faults->setFocus();
    for (int step = faults->currentIndex(); step != item; step += item > step ? 1 : -1)
      QTest::keyClick(faults, item > step ? Qt::Key_Down : Qt::Key_Up);
    desk.settle();
  };
  ASSERT_EQ(faults->count(), 5);

  choose(4);
  EXPECT_EQ(faults->currentText(), "reference missing");
  EXPECT_EQ(desk.label("reason"), "no reference");
  EXPECT_EQ(desk.label("output"), "none");
  desk.show(kFrequency);
  EXPECT_EQ(lockColors(desk.find("frequencyPlot")), "goodbad") << "the strip keeps what was";
  desk.show(kChip);
  choose(0);
  EXPECT_EQ(desk.label("lock"), "Locked");

  // A data line that stays low loads only zeros, so only the register of address 0.
  choose(2);
  desk.load("925.2");
  EXPECT_EQ(desk.label("reason"), "R is 0");

  choose(3);
  desk.load();
  desk.show(kWire);
  const WireStretch& stretch = desk.find<WirePlot>("wirePlot")->stretch();
  EXPECT_TRUE(stretch.words.empty());
  EXPECT_EQ(stretch.looseBits.size(), 3U * 24);

  choose(1);
  const auto before = desk.port.board().version();
  desk.click("AllCommand");
  EXPECT_EQ(desk.port.board().version(), before);
  EXPECT_FALSE(desk.screen.messages.empty());
}

// ----------------------------------------------------------------------------------------- The registers

struct Registers {
  explicit Registers(BoardDesk& desk) : root(desk.find<QTreeWidget>("registers")->invisibleRootItem()) {}

  static const QTreeWidgetItem& in(const QTreeWidgetItem& parent, const char* name) {
    for (int row = 0; row < parent.childCount(); ++row) {
      if (parent.child(row)->text(RegisterView::kName) == QLatin1String(name)) return *parent.child(row);
    }
    throw std::runtime_error(std::string("no line ") + name);
  }
  // A column of a register, or of one of its fields.
  [[nodiscard]] std::string text(int column, const char* name, const char* field = nullptr) const {
    const QTreeWidgetItem& head = in(*root, name);
    return (field ? in(head, field) : head).text(column).toStdString();
  }
  // Of a register, without the blanks between its groups of digits.
  [[nodiscard]] std::string digits(int column, const char* name) const {
    std::string all = text(column, name);
    std::erase(all, ' ');
    return all;
  }

  QTreeWidgetItem* root;
};

TEST(RegisterView, ShowsTheWordsOfTheControlWindowFieldByFieldAndMarksWhatChanged) {
  using V = RegisterView;
  BoardDesk desk(kRegisters);
  desk.load("900");
  const Registers registers(desk);
  EXPECT_EQ(registers.digits(V::kBinary, "N"), desk.form.Nregister.value());
  EXPECT_EQ(registers.digits(V::kBinary, "R"), desk.form.Rregister.value());
  EXPECT_EQ(registers.digits(V::kBinary, "function"), desk.form.Fregister.value());
  EXPECT_EQ(registers.text(V::kHex, "R"), "0x0000C8");
  EXPECT_EQ(registers.text(V::kValue, "R", "R"), "50");
  EXPECT_EQ(registers.text(V::kBits, "R", "R"), "15:2");
  EXPECT_EQ(registers.text(V::kMeaning, "R", "anti-backlash width"), "2.9 ns");
  EXPECT_EQ(registers.text(V::kMeaning, "function", "prescaler"), "8/9");

  desk.load("900.4");  // A alone changes, from 4 to 6
  std::set<std::string> marked;
  for (int head = 0; head < registers.root->childCount(); ++head) {
    for (int row = 0; row < registers.root->child(head)->childCount(); ++row) {
      const QTreeWidgetItem* const line = registers.root->child(head)->child(row);
      if (!line->text(V::kChanged).isEmpty()) marked.insert(line->text(V::kName).toStdString());
    }
  }
  EXPECT_THAT(marked, ElementsAre("A"));
  EXPECT_EQ(registers.text(V::kValue, "N", "A"), "6");

  desk.pick("ADF4193");
  ASSERT_EQ(registers.root->childCount(), 11);
  EXPECT_EQ(registers.root->child(0)->text(V::kMeaning), "never loaded");
  QApplication::setPalette(darkPalette());
  desk.settle();
  EXPECT_EQ(registers.root->childCount(), 11);
  QApplication::setPalette(lightPalette());
}

// --------------------------------------------------------------------------------------------- The wires

TEST(WireView, TheCursorTellsTimeAndLevelsFromChangeToChange) {
  BoardDesk desk(kWire);
  desk.load();
  auto* const plot = desk.find<WirePlot>("wirePlot");
  const WireStretch& stretch = plot->stretch();
  ASSERT_EQ(stretch.words.size(), 3U);
  plot->setFocus();
  plot->setCursorPlace({});
  std::size_t rises = 0;
  int bitsWithoutField = 0;
  std::set<std::string> fields;
  for (const auto& change : stretch.changes) {
    QTest::keyClick(plot, Qt::Key_Right, Qt::ShiftModifier);
    ASSERT_EQ(plot->cursorTime(), change.time);
    const std::string told = desk.label("wireCursor");
    const auto colon = told.find(": ");
    if (colon != std::string::npos) fields.insert(told.substr(told.rfind("   ", colon) + 3));
    if (change.levels.clock && colon == std::string::npos) ++bitsWithoutField;
    const auto digit = [](bool level) { return level ? "1" : "0"; };
    EXPECT_THAT(told, HasSubstr(std::string("CLOCK ") + digit(change.levels.clock) + "   DATA " +
                                digit(change.levels.data) + "   LE " + digit(change.levels.loadEnable)));
    if (change.levels.loadEnable && !stretch.levelsAt(change.time - 1).loadEnable) {
      EXPECT_EQ(change.time, stretch.words[rises++].latchTime);
    }
  }
  EXPECT_EQ(rises, 3U);
  EXPECT_LE(bitsWithoutField, 3 * 2) << "more than the addresses";
  EXPECT_THAT(fields, IsSupersetOf({"R: R = 50", "N: B = 562", "N: A = 4", "function: prescaler = 0 (8/9)",
                                    "function: muxout = 1 (digital lock detect)"}));
  QTest::keyClick(plot, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(plot->cursorTime(), stretch.changes[stretch.changes.size() - 2].time);
}

TEST(WireView, ShowsTheLastLoadOfTheChipThatIsThere) {
  BoardDesk desk(kWire);
  desk.load("900");
  const WireStretch& stretch = desk.find<WirePlot>("wirePlot")->stretch();
  const std::int64_t end = stretch.end;
  desk.load("925.2");
  EXPECT_GT(stretch.changes.front().time, end);
  Words bits;
  for (const auto& word : stretch.words) bits.push_back(word.bits);
  EXPECT_THAT(bits, ElementsAre(desk.form.Fregister.value(), desk.form.Rregister.value(),
                                desk.form.Nregister.value()));
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
  QWheelEvent wheel(point, plot->mapToGlobal(point), {}, {0, 360}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(plot, &wheel);
  EXPECT_NEAR(plot->span().length(), all * 0.8 * 0.8 * 0.8, 1e-6 * all);
  EXPECT_NEAR(plot->placeAt(point.x()), held, 1e-6 * all);

  const QPoint dragged = point - QPoint(40, 0);
  QTest::mousePress(plot, Qt::LeftButton, {}, point);
  QTest::mouseMove(plot, dragged);
  QTest::mouseRelease(plot, Qt::LeftButton, {}, dragged);
  EXPECT_NEAR(plot->placeAt(dragged.x()), held, 1e-6 * all);

  plot->setFocus();
  plot->setCursorPlace({});
  const double length = plot->span().length();
  QTest::keyClick(plot, Qt::Key_Plus);
  EXPECT_NEAR(plot->span().length(), length * 0.8, 1e-6 * all);
  const double from = plot->span().from();
  QTest::keyClick(plot, Qt::Key_Left);
  EXPECT_LT(plot->span().from(), from);
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Minus}) {
    QTest::keyClick(plot, key);
    EXPECT_DOUBLE_EQ(plot->span().length(), all);
  }
}

TEST(WireView, ALogicAnalyserReadsTheSavedWords) {
  BoardDesk desk(kWire);
  desk.load();
  EXPECT_THAT(desk.saved("saveVcd", "board.vcd").toStdString(), HasSubstr("$var wire 1 ! CLOCK $end"));
  EXPECT_THAT(desk.label("boardStatus"), StartsWith("Saved "));
  QProcess analyser;
  analyser.start(
      QStringLiteral("sigrok-cli"),
      {QStringLiteral("-i"), desk.folder.filePath(QStringLiteral("board.vcd")), QStringLiteral("-P"),
       QStringLiteral("spi:clk=CLOCK:mosi=DATA:cs=LE:cs_polarity=active-low:wordsize=24"),
       QStringLiteral("-A"), QStringLiteral("spi=mosi-data")});
  if (!analyser.waitForFinished())
    GTEST_SKIP() << "SKIPPED: the saved waveform was NOT read: there is no sigrok-cli";
  Words read;
  for (const QByteArray& line : analyser.readAll().trimmed().split('\n'))
    read.push_back("0x" + line.mid(line.lastIndexOf(' ') + 1).rightJustified(6, '0').toStdString());
  desk.show(kRegisters);
  const Registers registers(desk);
  Words shown;
  for (const char* const name : {"function", "R", "N"})
    shown.push_back(registers.digits(RegisterView::kHex, name));
  EXPECT_EQ(read, shown);

  desk.show(kWire);
  desk.window.saving().ask = [](QWidget&, const FileKind&) { return QStringLiteral("/nowhere/board.vcd"); };
  (void)desk.saved("saveVcd", "board.vcd");
  EXPECT_THAT(desk.label("boardStatus"), StartsWith("Could not save /nowhere/board.vcd: "));
}

TEST(Saving, OnAFullDiskTheOldFileStays) {
  BoardDesk desk(kFrequency);
  desk.load();
  const QByteArray old = desk.saved("saveCsv", "frequency.csv");
  ASSERT_FALSE(old.isEmpty());
  // No file may grow, as on a disk that is full.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full{0, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  const QByteArray kept = desk.saved("saveCsv", "frequency.csv");
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(kept, old);
  EXPECT_THAT(desk.label("boardStatus"), StartsWith("Could not save "));
}

// --------------------------------------------------------------------------------- Frequencies over time

TEST(FrequencyView, KeepsAHopAndASweepAndSavesThem) {
  BoardDesk desk(kFrequency);
  desk.load("900");
  desk.click("Hop1");
  desk.set({{"VcoText1", "900"}, {"VcoText2", "925.2"}, {"HopText", "2"}, {"DelayText", "500"}});
  desk.click("StartHop");
  desk.click("Sweep1");
  desk.click("AutoOption1");
  desk.set(
      {{"StartText1", "925.2"}, {"StopText1", "925.8"}, {"StepText1", "200"}, {"DelaySweepText1", "50"}});
  desk.click("StartSweepCommand(0)");
  desk.settle();
  // It begins at 900 MHz, where the load before has left it. The steps of the sweep keep B: none passes
  // through another frequency.
  const Words all = {"900.000000", "925.200000", "900.000000", "925.200000",
                     "925.400000", "925.600000", "925.800000"};
  Words saved;
  for (const QByteArray& line : desk.saved("saveCsv", "frequency.csv").trimmed().split('\n'))
    saved.push_back(line.mid(line.indexOf(',') + 1).toStdString());
  Words seen;
  auto* const plot = desk.find<FrequencyPlot>("frequencyPlot");
  plot->setFocus();
  plot->setCursorPlace(plot->span().from());
  for (std::size_t step = 0; step < all.size(); ++step) {
    const std::string text = desk.label("frequencyCursor");
    seen.push_back(text.substr(text.find("   ") + 3));
    QTest::keyClick(plot, Qt::Key_Right, Qt::ShiftModifier);
  }
  ASSERT_EQ(saved.size(), all.size() + 1);
  EXPECT_EQ(saved[0], "output_MHz,locked");
  for (std::size_t step = 0; step < all.size(); ++step) {
    EXPECT_EQ(saved[step + 1], all[step] + ",1");
    EXPECT_EQ(seen[step], all[step] + " MHz   locked");
  }

  const QImage picture = QImage::fromData(desk.saved("savePng", "frequency.png"), "PNG");
  EXPECT_EQ(picture.size(), plot->size() * plot->devicePixelRatioF());
  QTest::mouseClick(desk.find("clearHistory"), Qt::LeftButton);
  EXPECT_EQ(desk.port.board().history().size(), 1U);
}

// ------------------------------------------------------------------------------------------ Pace and room

std::size_t residentBytes() {
  std::ifstream file("/proc/self/statm");
  std::size_t pages = 0;
  std::size_t resident = 0;
  file >> pages >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

TEST(BoardWindow, TellsWhoWorksTheProgramFromOutside) {
  BoardDesk desk;
  EXPECT_FALSE(desk.find("boardRemote")->isVisible());
  std::string line = "no client connected";
  BoardWindow window({.board = desk.port.board(), .remote = [&] { return line; }});
  window.show();
  const auto* const label = window.findChild<QLabel*>(QStringLiteral("boardRemote"));
  EXPECT_TRUE(label->isVisible());
  EXPECT_EQ(label->text().toStdString(), line);
  line = "1 client connected";
  EXPECT_TRUE(QTest::qWaitFor([&] { return label->text().toStdString() == line; }));
}

TEST(BoardWindow, TenThousandSendsAreBoundedInPaintingAndMemory) {
  BoardDesk desk(kWire);
  desk.load("900");
  constexpr int kSends = 10'000;
  const auto* const plot = desk.find<WirePlot>("wirePlot");
  [[maybe_unused]] std::size_t half = 0;
  const EventCounter paints(QEvent::Paint, [&](const QObject& object) { return &object == plot; });
  QElapsedTimer clock;
  clock.start();
  for (int send = 0; send < kSends; ++send) {
    desk.set({{"VCOText", send % 2 == 0 ? "900" : "925.2"}});
    desk.click("AllCommand");
    if (send == kSends / 2) half = residentBytes();
  }
  const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
  EXPECT_LE(paints.count, 60 * seconds + 2);
  EXPECT_TRUE(comesTrue([&] { return paints.count > 0; })) << "at the latest when the sends are over";
#ifndef TESSARINE_SANITIZE  // it keeps what was freed
  constexpr std::size_t kRoom = std::size_t{16} << 20;
  EXPECT_LT(residentBytes(), half + kRoom);
#endif
  EXPECT_LE(desk.port.board().trace().size(), board::WireTrace::kCapacity);
  EXPECT_LE(plot->stretch().changes.size(), WireStretch::kMostChanges);
}

TEST(BoardWindow, RunsNoTimerWhileNothingMovesAndNoneWhileHidden) {
  BoardDesk desk;
  desk.load("900");
  QTest::qWait(300);
  const EventCounter timers(QEvent::Timer);
  const EventCounter paints(QEvent::Paint);
  QTest::qWait(200);
  EXPECT_EQ(timers.count, 0);
  EXPECT_EQ(paints.count, 0);
  desk.window.hide();
  desk.set({{"VCOText", "925.2"}});
  desk.click("AllCommand");
  QTest::qWait(50);
  EXPECT_EQ(timers.count, 0);
  desk.window.show();
  EXPECT_EQ(desk.label("output"), "925.200000 MHz");
}

// ------------------------------------------------------------------------------------- Beside the program

TEST(BoardWindow, F12ShowsAndHidesItWithoutTakingTheKeyboard) {
  BoardDesk desk;
  desk.window.hide();
  const BoardKey key(desk.window);
  QLineEdit other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  QTest::keyClick(&other, Qt::Key_F12);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&desk.window));
  desk.settle();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
  QTest::keyClick(&other, Qt::Key_F12);
  EXPECT_FALSE(desk.window.isVisible());
  desk.window.show();
  QTest::keyClick(desk.find("registers"), Qt::Key_F12);
  EXPECT_FALSE(desk.window.isVisible()) << "its own keys count as well";

  desk.window.show();
  other.setGeometry(desk.window.geometry());
  QTest::mouseClick(&other, Qt::LeftButton);
  QTest::keyClick(&other, Qt::Key_F12);
  EXPECT_TRUE(desk.window.isVisible()) << "covered, it comes to the front";
  QTest::keyClick(&other, Qt::Key_F12);
  EXPECT_FALSE(desk.window.isVisible());
}

TEST(BoardWindow, CutsNoTextAtItsLeastSize) {
  BoardDesk desk;
  desk.load("12345.678");
  desk.window.resize(1, 1);
  desk.settle();
  EXPECT_LT(desk.window.width(), desk.find("loopDiagram")->fontMetrics().averageCharWidth() * 90);
  for (const View view : {kChip, kRegisters, kWire, kFrequency}) {
    desk.show(view);
    for (QLabel* const label : desk.window.findChildren<QLabel*>()) {
      if (!label->isVisible()) continue;
      const QSize least = label->wordWrap()
                              ? QSize(label->minimumSizeHint().width(), label->heightForWidth(label->width()))
                              : label->sizeHint();
      EXPECT_EQ(label->size().expandedTo(least), label->size()) << label->text().toStdString();
    }
    EXPECT_GE(desk.find("lockSign")->width(), desk.find("lockSign")->sizeHint().width());
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
}

TEST(BoardWindow, OnARealWayOutItListensFromItsFirstOpeningAndOffersNoFaults) {
  board::EvaluationBoard board({[] { return std::int64_t{0}; }, [] { return 10.0; }});
  int opened = 0;
  BoardWindow window({.board = board, .onFirstShow = [&] { ++opened; }});
  EXPECT_EQ(opened, 0);
  window.show();
  window.hide();
  window.show();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(window.findChild<QWidget*>(QStringLiteral("boardFault")), nullptr);
  EXPECT_THAT(window.findChild<QLabel*>(QStringLiteral("boardStatus"))->text().toStdString(),
              StartsWith("What was sent since this window opened"));
}

}  // namespace
}  // namespace tessarine::desktop
