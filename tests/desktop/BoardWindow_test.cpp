// The board's own window: that it shows what the board latched, at its own pace, and stays out of the way.
#include "desktop/board/BoardWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>
#include <cstdio>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/BoardDesk.h"
#include "desktop/Style.h"

namespace tessarine::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::StartsWith;

enum View { kChip, kRegisters, kWire, kFrequency };

// Counts events of one type, for one object or for all.
class Counter : public QObject {
 public:
  explicit Counter(QEvent::Type type, const QObject* only = nullptr) : type_(type), only_(only) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == type_ && (only_ == nullptr || watched == only_)) ++count;
    return false;
  }
  int count = 0;

 private:
  QEvent::Type type_;
  const QObject* only_;
};

std::vector<std::string> lines(const QByteArray& text) {
  std::vector<std::string> all;
  for (const QByteArray& line : text.split('\n')) all.push_back(line.toStdString());
  return all;
}

// ---------------------------------------------------------------------------------------------- The chip

TEST(ChipView, TellsWhatTheChipMakesOfALoad) {
  BoardDesk desk;
  desk.pick("ADF4113");
  desk.settle();
  EXPECT_EQ(desk.label("lock"), "Not locked");
  EXPECT_EQ(desk.label("reason"),
            "R register never loaded\nN register never loaded\nfunction register never loaded");
  EXPECT_EQ(desk.label("output"), "none");
  EXPECT_EQ(desk.label("offset"), "–");

  desk.load("900");
  EXPECT_EQ(desk.label("boardChip"), "ADF4113");
  EXPECT_EQ(desk.label("lock"), "Locked");
  EXPECT_FALSE(desk.find<QLabel>("reason")->isVisible());
  EXPECT_EQ(desk.label("output"), "900.000000 MHz");
  EXPECT_EQ(desk.label("asked"), "900.000000 MHz");
  EXPECT_EQ(desk.label("offset"), "0.0 Hz");
  EXPECT_EQ(desk.label("detector"), "200 kHz");
  EXPECT_EQ(desk.label("reference"), "10 MHz");
  EXPECT_EQ(desk.label("dividers"), "50\n8\n562\n4\n4500");
}

// 900.11 MHz is no multiple of 200 kHz: the nearest one is 90 kHz above it.
TEST(ChipView, TellsHowFarTheOutputIsFromWhatWasAskedFor) {
  BoardDesk desk;
  desk.load("900.11");
  EXPECT_EQ(desk.label("output"), "900.200000 MHz");
  EXPECT_EQ(desk.label("offset"), "+90000.0 Hz");
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
  EXPECT_EQ(faults->currentText().toStdString(), "reference missing");
  EXPECT_EQ(desk.label("reason"), "no reference");
  EXPECT_EQ(desk.label("output"), "none");
  choose(0);
  EXPECT_EQ(desk.label("lock"), "Locked");

  // A data line that stays low loads only zeros, so only the register of address 0.
  choose(2);
  desk.load("925.2");
  EXPECT_EQ(desk.label("lock"), "Not locked");
  EXPECT_EQ(desk.label("reason"), "R is 0");

  choose(3);
  desk.load("900");
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

QTreeWidgetItem* lineOf(QTreeWidgetItem* parent, const char* name) {
  for (int row = 0; row < parent->childCount(); ++row) {
    if (parent->child(row)->text(RegisterView::kName) == QLatin1String(name)) return parent->child(row);
  }
  throw std::runtime_error(std::string("no line ") + name);
}

std::string ungrouped(QString binary) { return binary.remove(QLatin1Char(' ')).toStdString(); }

TEST(RegisterView, ShowsTheWordsOfTheControlWindowFieldByField) {
  BoardDesk desk;
  desk.show(kRegisters);
  desk.load("900");
  QTreeWidgetItem* const root = desk.find<QTreeWidget>("registers")->invisibleRootItem();
  PllForm1& form = desk.program.window;
  EXPECT_EQ(ungrouped(lineOf(root, "N")->text(RegisterView::kBinary)), form.Nregister.Caption.get());
  EXPECT_EQ(ungrouped(lineOf(root, "R")->text(RegisterView::kBinary)), form.Rregister.Caption.get());
  EXPECT_EQ(ungrouped(lineOf(root, "function")->text(RegisterView::kBinary)), form.Fregister.Caption.get());

  QTreeWidgetItem* const r = lineOf(root, "R");
  EXPECT_EQ(r->text(RegisterView::kHex).toStdString(), "0x0000C8");
  EXPECT_EQ(lineOf(r, "R")->text(RegisterView::kValue).toStdString(), "50");
  EXPECT_EQ(lineOf(r, "R")->text(RegisterView::kBits).toStdString(), "15:2");
  EXPECT_EQ(lineOf(r, "anti-backlash width")->text(RegisterView::kMeaning).toStdString(), "2.9 ns");
  EXPECT_EQ(lineOf(lineOf(root, "function"), "prescaler")->text(RegisterView::kMeaning).toStdString(), "8/9");
}

TEST(RegisterView, MarksWhatTheLastLoadChanged) {
  BoardDesk desk;
  desk.show(kRegisters);
  desk.load("900");
  desk.load("900.4");  // A alone changes, from 4 to 6
  QTreeWidgetItem* const root = desk.find<QTreeWidget>("registers")->invisibleRootItem();
  std::set<std::string> marked;
  for (int head = 0; head < root->childCount(); ++head) {
    for (int row = 0; row < root->child(head)->childCount(); ++row) {
      const QTreeWidgetItem* const line = root->child(head)->child(row);
      if (!line->text(RegisterView::kChanged).isEmpty())
        marked.insert(line->text(RegisterView::kName).toStdString());
    }
  }
  EXPECT_THAT(marked, ElementsAre("A"));
  EXPECT_EQ(lineOf(lineOf(root, "N"), "A")->text(RegisterView::kValue).toStdString(), "6");
}

TEST(RegisterView, FollowsTheChip) {
  BoardDesk desk;
  desk.show(kRegisters);
  desk.pick("ADF4193");
  desk.settle();
  QTreeWidgetItem* const root = desk.find<QTreeWidget>("registers")->invisibleRootItem();
  ASSERT_EQ(root->childCount(), 11);
  EXPECT_EQ(root->child(0)->text(RegisterView::kMeaning).toStdString(), "never loaded");
  QApplication::setPalette(darkPalette());
  desk.settle();
  EXPECT_EQ(root->childCount(), 11);
  QApplication::setPalette(lightPalette());
}

// --------------------------------------------------------------------------------------------- The wires

TEST(WireView, TheCursorTellsTimeAndLevelsFromChangeToChange) {
  BoardDesk desk;
  desk.show(kWire);
  desk.load();
  auto* const plot = desk.find<WirePlot>("wirePlot");
  const WireStretch& stretch = plot->stretch();
  ASSERT_EQ(stretch.words.size(), 3U);
  plot->setFocus();
  plot->setCursorPlace({});
  std::size_t rises = 0;
  std::set<std::string> fields;
  for (std::size_t index = 0; index < stretch.changes.size(); ++index) {
    SCOPED_TRACE(index);
    QTest::keyClick(plot, Qt::Key_Right, Qt::ShiftModifier);
    const auto& change = stretch.changes[index];
    ASSERT_EQ(plot->cursorTime(), change.time);
    const std::string told = desk.label("wireCursor");
    if (const auto colon = told.find(": "); colon != std::string::npos)
      fields.insert(told.substr(told.rfind("   ", colon) + 3));
    const auto digit = [](bool level) { return level ? "1" : "0"; };
    EXPECT_THAT(told, HasSubstr(std::string("CLOCK ") + digit(change.levels.clock) + "   DATA " +
                                digit(change.levels.data) + "   LE " + digit(change.levels.loadEnable)));
    if (change.levels.loadEnable && !stretch.levelsAt(change.time - 1).loadEnable) {
      EXPECT_EQ(change.time, stretch.words[rises++].latchTime);
    }
  }
  EXPECT_EQ(rises, 3U);
  EXPECT_THAT(fields, IsSupersetOf({"R: R = 50", "N: B = 562", "N: A = 4", "function: prescaler = 0 (8/9)",
                                    "function: muxout = 1 (digital lock detect)"}));
  QTest::keyClick(plot, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(plot->cursorTime(), stretch.changes[stretch.changes.size() - 2].time);
}

// The pulses went to the chip that was there before.
TEST(WireView, AnotherChipMakesNoWordUnlatched) {
  BoardDesk desk;
  desk.show(kWire);
  desk.load();
  desk.pick("ADF4193");
  desk.settle();
  const WireStretch& stretch = desk.find<WirePlot>("wirePlot")->stretch();
  EXPECT_TRUE(stretch.words.empty());
  EXPECT_THAT(stretch.looseBits, IsEmpty());
  EXPECT_FALSE(stretch.empty());
}

TEST(WireView, ALaterLoadTakesThePlaceOfTheFirst) {
  BoardDesk desk;
  desk.show(kWire);
  desk.load("900");
  const std::int64_t end = desk.find<WirePlot>("wirePlot")->stretch().end;
  desk.load("925.2");
  const WireStretch& stretch = desk.find<WirePlot>("wirePlot")->stretch();
  EXPECT_GT(stretch.changes.front().time, end);
  ASSERT_EQ(stretch.words.size(), 3U);
  std::vector<std::string> bits;
  for (const auto& word : stretch.words) bits.push_back(word.bits);
  const PllForm1& form = desk.program.window;
  EXPECT_THAT(bits, ElementsAre(form.Fregister.Caption.get(), form.Rregister.Caption.get(),
                                form.Nregister.Caption.get()));
}

void turnWheel(QWidget& widget, QPointF at, int notches) {
  QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &event);
}

TEST(PlotWidget, WheelDragAndKeysZoomAndPan) {
  BoardDesk desk;
  desk.show(kWire);
  desk.load();
  auto* const plot = desk.find<WirePlot>("wirePlot");
  const double all = plot->span().length();
  const double at = plot->area().left() + plot->area().width() / 4;
  const QPoint point(qRound(at), plot->height() / 2);

  const double held = plot->placeAt(at);
  turnWheel(*plot, QPointF(at, 20), 3);
  EXPECT_NEAR(plot->span().length(), all * 0.8 * 0.8 * 0.8, 1e-6 * all);
  EXPECT_NEAR(plot->placeAt(at), held, 1e-6 * all);

  const double grip = plot->placeAt(point.x());
  QTest::mousePress(plot, Qt::LeftButton, {}, point);
  QTest::mouseMove(plot, point - QPoint(40, 0));
  QTest::mouseRelease(plot, Qt::LeftButton, {}, point - QPoint(40, 0));
  EXPECT_NEAR(plot->placeAt(point.x() - 40), grip, 1e-6 * all);

  plot->setFocus();
  plot->setCursorPlace({});
  const double length = plot->span().length();
  QTest::keyClick(plot, Qt::Key_Plus);
  EXPECT_NEAR(plot->span().length(), length * 0.8, 1e-6 * all);
  const double from = plot->span().from();
  QTest::keyClick(plot, Qt::Key_Left);
  EXPECT_LT(plot->span().from(), from);
  for (int press = 0; press < 50; ++press) QTest::keyClick(plot, Qt::Key_Left);
  QTest::keyClick(plot, Qt::Key_Home);
  EXPECT_DOUBLE_EQ(plot->span().length(), all);
  QTest::keyClick(plot, Qt::Key_Minus);
  EXPECT_DOUBLE_EQ(plot->span().length(), all);
}

std::string outputOf(const std::string& command) {
  std::string text;
  if (FILE* pipe = popen(command.c_str(), "r"); pipe != nullptr) {
    char part[4096];
    while (const std::size_t length = fread(part, 1, sizeof part, pipe)) text.append(part, length);
    pclose(pipe);
  }
  return text;
}

TEST(WireView, ALogicAnalyserReadsTheSavedWords) {
  BoardDesk desk;
  desk.load("900");
  desk.show(kWire);
  QTest::mouseClick(desk.find<QPushButton>("saveVcd"), Qt::LeftButton);
  EXPECT_THAT(desk.label("boardStatus"), StartsWith("Saved "));
  EXPECT_THAT(desk.saved("board.vcd").toStdString(), HasSubstr("$var wire 1 ! CLOCK $end"));
  if (outputOf("command -v sigrok-cli").empty())
    GTEST_SKIP() << "sigrok-cli is not installed: the dump stays unread";
  const std::string decoded =
      outputOf("sigrok-cli -i '" + desk.folder.filePath(QStringLiteral("board.vcd")).toStdString() +
               "' -P spi:clk=CLOCK:mosi=DATA:cs=LE:cs_polarity=active-low:wordsize=24 -A spi=mosi-data");
  std::vector<std::string> words;
  for (const std::string& line : lines(QByteArray::fromStdString(decoded))) {
    if (!line.empty()) words.push_back(line.substr(line.rfind(' ') + 1));
  }
  desk.show(kRegisters);
  QTreeWidgetItem* const root = desk.find<QTreeWidget>("registers")->invisibleRootItem();
  const auto hex = [&](const char* name) {
    return lineOf(root, name)->text(RegisterView::kHex).mid(2).remove(QLatin1Char(' ')).toStdString();
  };
  std::vector<std::string> shown;
  for (const char* const name : {"function", "R", "N"}) {
    std::string word = hex(name);
    word.erase(0, word.find_first_not_of('0'));
    shown.push_back(word);
  }
  EXPECT_EQ(words, shown);
}

TEST(Saving, AFileThatCannotBeWrittenIsTold) {
  BoardDesk desk;
  desk.load();
  desk.show(kWire);
  desk.window.saving().ask = [](QWidget&, const FileKind&) { return QStringLiteral("/nowhere/board.vcd"); };
  QTest::mouseClick(desk.find<QPushButton>("saveVcd"), Qt::LeftButton);
  EXPECT_THAT(desk.label("boardStatus"), StartsWith("Could not save /nowhere/board.vcd: "));
}

// --------------------------------------------------------------------------------- Frequencies over time

TEST(FrequencyView, KeepsAHopAndSavesIt) {
  BoardDesk desk;
  desk.show(kFrequency);
  desk.load("900");
  desk.click("Hop1");
  for (const auto& [name, value] : std::vector<std::pair<const char*, const char*>>{
           {"VcoText1", "900"}, {"VcoText2", "925.2"}, {"HopText", "3"}, {"DelayText", "500"}})
    desk.set(name, value);
  desk.click("StartHop");
  desk.settle();
  QTest::mouseClick(desk.find<QPushButton>("saveCsv"), Qt::LeftButton);
  std::vector<std::string> outputs;
  for (const std::string& line : lines(desk.saved("frequency.csv")))
    outputs.push_back(line.substr(std::min(line.size(), line.find(',') + 1)));
  // It begins at 900 MHz, where the load before has left it.
  EXPECT_THAT(outputs, ElementsAre("output_MHz,locked", "900.000000,1", "925.200000,1", "900.000000,1",
                                   "925.200000,1", "900.000000,1", "925.200000,1", ""));

  QTest::mouseClick(desk.find<QPushButton>("savePng"), Qt::LeftButton);
  const QImage picture = QImage::fromData(desk.saved("frequency.png"), "PNG");
  auto* const plot = desk.find<FrequencyPlot>("frequencyPlot");
  EXPECT_EQ(picture.size(), plot->size() * plot->devicePixelRatioF());

  QTest::mouseClick(desk.find<QPushButton>("clearHistory"), Qt::LeftButton);
  EXPECT_EQ(desk.port.board().history().size(), 1U);
}

TEST(FrequencyView, TheCursorStepsThroughASweep) {
  BoardDesk desk;
  desk.show(kFrequency);
  desk.load("900");
  desk.click("Sweep1");
  desk.click("AutoOption1");
  for (const auto& [name, value] : std::vector<std::pair<const char*, const char*>>{
           {"StartText1", "900"}, {"StopText1", "901"}, {"StepText1", "200"}, {"DelaySweepText1", "50"}})
    desk.set(name, value);
  desk.click("StartSweepCommand(0)");
  desk.settle();
  auto* const plot = desk.find<FrequencyPlot>("frequencyPlot");
  plot->setFocus();
  plot->setCursorPlace(plot->span().from());
  std::vector<std::string> seen;
  for (int step = 0; step < 20; ++step) {
    const std::string text = desk.label("frequencyCursor");
    const std::string shown = text.substr(text.find("   ") + 3);
    if (seen.empty() || seen.back() != shown) seen.push_back(shown);
    QTest::keyClick(plot, Qt::Key_Right, Qt::ShiftModifier);
  }
  // 900.2 MHz and the later ones of its group of eight keep B: no step passes through another frequency.
  EXPECT_THAT(seen,
              ElementsAre("900.000000 MHz   locked", "900.200000 MHz   locked", "900.400000 MHz   locked",
                          "900.600000 MHz   locked", "900.800000 MHz   locked", "901.000000 MHz   locked"));
}

// ------------------------------------------------------------------------------------------ Pace and room

std::size_t residentBytes() {
  std::ifstream file("/proc/self/statm");
  std::size_t pages = 0;
  std::size_t resident = 0;
  file >> pages >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

TEST(BoardWindow, TenThousandSendsAreBoundedInPaintingAndMemory) {
  BoardDesk desk;
  desk.load("900");
  desk.show(kWire);
  constexpr int kSends = 10'000;
  constexpr std::size_t kRoom = std::size_t{16} << 20;
  std::size_t half = 0;
  const Counter paints(QEvent::Paint, desk.find<WirePlot>("wirePlot"));
  QElapsedTimer clock;
  clock.start();
  for (int send = 0; send < kSends; ++send) {
    desk.set("VCOText", send % 2 == 0 ? "900" : "925.2");
    desk.click("AllCommand");
    if (send == kSends / 2) half = residentBytes();
  }
  const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
  RecordProperty("milliseconds", std::to_string(clock.elapsed()));
  RecordProperty("paints", paints.count);
  EXPECT_GT(paints.count, 0);
  EXPECT_LE(paints.count, 60 * seconds + 2);
#ifndef __SANITIZE_ADDRESS__  // it keeps what was freed
  EXPECT_LT(residentBytes(), half + kRoom);
#endif
  EXPECT_LE(desk.port.board().trace().size(), board::WireTrace::kCapacity);
  EXPECT_LE(desk.find<WirePlot>("wirePlot")->stretch().changes.size(), WireStretch::kMostChanges);
}

TEST(BoardWindow, RunsNoTimerWhileNothingMovesAndNoneWhileHidden) {
  BoardDesk desk;
  desk.load("900");
  QTest::qWait(300);
  {
    const Counter timers(QEvent::Timer);
    const Counter paints(QEvent::Paint);
    QTest::qWait(200);
    EXPECT_EQ(timers.count, 0);
    EXPECT_EQ(paints.count, 0);
  }
  desk.window.hide();
  const Counter timers(QEvent::Timer);
  desk.click("AllCommand");
  QTest::qWait(50);
  EXPECT_EQ(timers.count, 0);
  desk.set("VCOText", "925.2");
  desk.click("AllCommand");
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
  desk.window.activateWindow();
  QTest::keyClick(desk.find<QTreeWidget>("registers"), Qt::Key_F12);
  EXPECT_FALSE(desk.window.isVisible());
}

TEST(BoardWindow, OpensBesideTheControlWindow) {
  BoardDesk desk;
  desk.window.hide();
  QWidget control;
  control.setGeometry(60, 50, 500, 400);
  control.show();
  desk.window.openBeside(&control);
  ASSERT_TRUE(QTest::qWaitFor([&] { return desk.window.isVisible(); }));
  // A window manager that puts its frame around a window moves it about.
  EXPECT_TRUE(QTest::qWaitFor([&] {
    const QRect shown = desk.window.frameGeometry();
    return !shown.intersects(control.frameGeometry()) &&
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
