// The program under the operator's hands, from the first screen to the words on the wire.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QElapsedTimer>
#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "desktop/Bench.h"

namespace tessarine::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kFword = "000000111000000010010010";
constexpr const char* kRword = "000000000000000011001000";
constexpr const char* kNword = "000000100011001000010001";

TEST(FirstScreen, ShowsTheChoiceAloneThenTheHourglassThenTheWorkingScreen) {
  Bench bench;
  bench.start();
  EXPECT_EQ(bench.window().windowTitle(), "Tessarine  Rev. C0");
  EXPECT_TRUE(bench.shows("ContinueCommand"));
  EXPECT_FALSE(bench.shows("GeneralFrame"));
  EXPECT_THAT(bench.port.accesses, IsEmpty());
  bool hourglass = false;
  bench.later(500, [&] { hourglass = QApplication::overrideCursor() != nullptr; });
  bench.click("ContinueCommand");
  EXPECT_TRUE(hourglass) << "while the driver starts";
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_THAT(bench.host.programs, ElementsAre("port driver"));
  for (const char* name : {"GeneralFrame", "Frame2(0)", "DataFrame", "RefText", "AllCommand"})
    EXPECT_TRUE(bench.shows(name)) << name;
  for (const char* name : {"Picture1", "MCommand", "Frame2(1)"}) EXPECT_FALSE(bench.shows(name)) << name;
  EXPECT_TRUE(comesTrue([&] {
    const QWidget* const focused = bench.window().focusWidget();
    return focused && focused->isVisible();
  }));
  Bench byKeys;
  byKeys.start();
  QTest::keyClick(&byKeys.window(), Qt::Key_Return);
  EXPECT_TRUE(byKeys.shows("RefText")) << "Enter can only mean the one button there";
}

TEST(Models, EachOpensItsPanelAndClosesItAgain) {
  const struct {
    std::vector<int> entries;
    const char* panel;
    const char* closeLabel;
    const char* afterOpening;  // the caption of ACommand
  } cases[] = {
      {{1, 2, 3}, "Frame16", "Label20", "Advanced"}, {{5, 6, 7, 8, 9}, "Frame11", "Label18", "Close"},
      {{10}, "Frame16", "Label20", "Close"},         {{11, 12}, "Frame13", "Label17", "Close"},
      {{13}, "Frame17", "Label22", "Close"},         {{14, 15}, "Frame12", "Label19", "Close"},
      {{17}, "Frame24", "Label76", "Close"},
  };
  Bench bench;
  bench.startWorking();
  for (const auto& panel : cases) {
    for (const int entry : panel.entries) {
      SCOPED_TRACE(entry);
      const std::string name = "pllM(" + std::to_string(entry) + ")";
      bench.menu(name);
      EXPECT_TRUE(bench.find<QAction>(name)->isChecked());
      bench.click("ACommand");
      EXPECT_TRUE(bench.shows(panel.panel));
      EXPECT_EQ(bench.text("ACommand"), panel.afterOpening);
      // Nothing lies over the panel: the X in its corner is what one hits there.
      bench.click(panel.closeLabel);
      EXPECT_FALSE(bench.shows(panel.panel));
      EXPECT_EQ(bench.text("ACommand"), "Advanced");
    }
  }
}

TEST(GeneralMode, NumbersAndBitsBecomeWordsOnTheScreenAndOnTheWire) {
  Bench bench;
  bench.startTuned();
  bench.port.accesses.clear();
  bench.click("AllCommand");
  EXPECT_EQ(bench.text("Fregister"), kFword);
  EXPECT_EQ(bench.text("Rregister"), kRword);
  EXPECT_EQ(bench.text("Nregister"), kNword);
  EXPECT_THAT(bench.port.latches(), ElementsAre(kFword, kRword, kNword));
  EXPECT_EQ(bench.text("LDLabel"), "Lock Detect Off");

  bench.click("ACommand");
  bench.click("Label31(0)");  // DB21, power-down 2
  bench.click("Label33(0)");  // DB1 is fixed
  bench.click("Label18");
  bench.press("VCOText", Qt::Key_Return);
  EXPECT_EQ(bench.text("Fregister"), "001000111000000010010010");
}

TEST(GeneralMode, LockDetectOnUsbTurnsTheLampGreen) {
  Bench bench;
  bench.usb.lockPin = 1;
  bench.startTuned(true);
  bench.click("AllCommand");
  EXPECT_EQ(bench.text("LDLabel"), "Lock Detect On");
  const QImage lamp = bench.find("LDLabel")->grab().toImage();
  EXPECT_EQ(lamp.pixelColor(8, lamp.height() / 2), QColor(0, 255, 0));
}

TEST(GeneralMode, APickedPrescalerIsEditedWhereTheCursorStands) {
  Bench bench;
  bench.startTuned();
  bench.pick("PrescalarText", 1);
  EXPECT_EQ(bench.form().PrescalarText.value(), "16/17");
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Delete, Qt::Key_3}) bench.press("PrescalarText", key);
  EXPECT_EQ(bench.form().PrescalarText.value(), "36/17");
}

TEST(GeneralMode, AClickDuringALoadNestsASecondLoad) {
  Bench bench;
  bench.startTuned();
  const auto writes = [&] { return bench.port.count(FakePort::Access::Kind::write); };
  bench.port.accesses.clear();
  bench.click("AllCommand");
  const int writesOfOne = writes();
  bench.port.accesses.clear();
  int writesBefore = 0;
  bench.later(0, [&] {
    writesBefore = writes();
    bench.click("CalculateCommand");
  });
  bench.click("AllCommand");
  EXPECT_GT(writesBefore, 0) << "the second load starts in the middle of the first";
  EXPECT_LT(writesBefore, writesOfOne);
  EXPECT_EQ(writes(), 2 * writesOfOne);
  EXPECT_EQ(bench.text("Nregister"), kNword);
}

TEST(Modes, TheMenuShowsOneModeAtATime) {
  Bench bench;
  bench.startWorking();
  const struct {
    const char *entry, *frame, *firstField;
  } modes[] = {{"Hop1(22)", "Frame2(1)", "VcoText1"},
               {"Gen1(21)", "Frame2(0)", "VCOText"},
               {"Sweep1(23)", "Frame2(2)", "StartText1"}};
  for (const auto& [entry, frame, field] : modes) {
    bench.menu(entry);
    EXPECT_TRUE(comesTrue([&, name = field] { return bench.find(name)->hasFocus(); })) << field;
    for (const auto& [otherEntry, otherFrame, otherField] : modes) {
      EXPECT_EQ(bench.find<QAction>(otherEntry)->isChecked(), otherEntry == entry);
      EXPECT_EQ(bench.shows(otherFrame), otherFrame == frame);
    }
  }
  EXPECT_FALSE(bench.shows("DelaySweepText1"));
  bench.click("AutoOption1");
  EXPECT_TRUE(bench.shows("DelaySweepText1"));
}

void hop(Bench& bench, const char* hops, const char* delay) {
  bench.menu("Hop1(22)");
  bench.type("VcoText1", "900");
  bench.type("VcoText2", "925.2");
  bench.type("HopText", hops);
  bench.type("DelayText", delay);
  bench.click("StartHop");
}

TEST(Modes, TabGoesDownTheFields) {
  Bench bench;
  bench.startTuned();
  bench.menu("Hop1(22)");
  ASSERT_TRUE(becomesActive(bench.window()));
  bench.find("VcoText1")->setFocus();
  for (const char* const text : {"900", "925.2", "5", "100"}) {
    QTest::keyClicks(bench.window().focusWidget(), text);
    QTest::keyClick(bench.window().focusWidget(), Qt::Key_F, Qt::AltModifier);  // no text
    QTest::keyClick(bench.window().focusWidget(), Qt::Key_Tab);
  }
  std::vector<std::string> texts;
  for (const char* const field : {"VcoText1", "VcoText2", "HopText", "DelayText"})
    texts.push_back(bench.text(field));
  EXPECT_THAT(texts, ElementsAre("900", "925.2", "5", "100"));
}

TEST(Modes, StopEndsAHopInTheMiddleOfItsDelay) {
  Bench bench;
  bench.startTuned();
  bench.later(500, [&] { bench.click("StopHop"); });
  QElapsedTimer time;
  time.start();
  hop(bench, "1000", "40");
  EXPECT_LT(time.elapsed(), 10'000);
  EXPECT_THAT(bench.port.latches().size(), ::testing::Ge(3U));
  EXPECT_EQ(bench.text("Label8"), "    Current Hop            ");
}

TEST(Modes, AHopKeepsItsPace) {
  Bench bench;
  bench.startTuned();
  // What lies between the last pulse of a load and the first of the next, at its longest.
  std::vector<double> pauses;
  std::size_t pulses = 0;
  bool high = false;
  QElapsedTimer sinceAccess;
  bench.port.fails = [&](const FakePort::Access& access) {
    const double milliseconds =
        sinceAccess.isValid() ? static_cast<double>(sinceAccess.nsecsElapsed()) / 1e6 : 0;
    if (pulses > 0 && pulses % 3 == 0) {
      pauses.resize(pulses / 3);
      pauses.back() = std::max(pauses.back(), milliseconds);
    }
    if (access.kind == FakePort::Access::Kind::write) {
      if (const bool was = std::exchange(high, (access.value & 4) != 0); high && !was) ++pulses;
    }
    sinceAccess.start();
    return false;
  };
  hop(bench, "4", "100");
  ASSERT_GE(pauses.size(), 8U);
  pauses.pop_back();  // nothing follows the last load
  EXPECT_GE(std::ranges::min(pauses), 99.5);
  EXPECT_LE(std::ranges::min(pauses), 150) << "the host may be busy with something else";
}

TEST(Close, PausesOnTheFirstScreenWhileTheMenusWork) {
  Bench bench;
  bench.startTuned();
  bench.click("ACommand");
  bool firstScreen = false;
  bench.later(300, [&] {
    QWidget* const button = bench.find("ContinueCommand");
    const QPoint middle = button->mapTo(button->window(), button->rect().center());
    firstScreen = !bench.shows("GeneralFrame") && button->window()->childAt(middle) == button;
    bench.menu("pllM(11)");
  });
  QElapsedTimer time;
  time.start();
  bench.menu("Close1(12)");
  EXPECT_GE(time.elapsed(), 2990);
  EXPECT_LT(time.elapsed(), 10'000);
  EXPECT_TRUE(firstScreen);
  EXPECT_TRUE(bench.shows("GeneralFrame"));
  EXPECT_EQ(bench.text("VCOText"), "");
  EXPECT_EQ(bench.text("Nregister"), "");
  EXPECT_EQ(bench.program.module.CurrentModel, "ADF4153");
}

TEST(Close, ItsKeysCopyAndCutInAFieldAndEndElsewhere) {
  constexpr auto kCopy = Qt::CTRL | Qt::Key_C;
  constexpr auto kCut = Qt::CTRL | Qt::Key_X;
  Bench bench;
  bench.startTuned();
  bench.press("VCOText", QKeySequence::SelectAll);
  bench.press("VCOText", kCopy);
  EXPECT_EQ(QApplication::clipboard()->text(), "900");
  bench.press("PrescalarText", kCopy);
  EXPECT_EQ(bench.form().VCOText.value(), "900") << "Close";
  bench.press("VCOText", QKeySequence::SelectAll);
  bench.press("VCOText", kCut);
  EXPECT_EQ(bench.form().VCOText.value(), "");
  EXPECT_FALSE(bench.desktop.hasEnded());
  bench.press("AllCommand", kCut);
  EXPECT_TRUE(bench.desktop.hasEnded()) << "Exit";
}

TEST(Wiring, TheDialogMovesAWireAndAWrongPinIsRefused) {
  constexpr const char* kClockPin = "ParallelForm.LPTwText(0)";
  Bench bench;
  bench.startTuned();
  bench.menu("Parallel(31)");
  FormWindow& dialog = bench.window(bench.form().parallelForm);
  EXPECT_EQ(dialog.windowTitle(), "Form1");
  bench.type(kClockPin, "10");
  std::string said;
  bench.answerMessage(said);
  bench.click("ParallelForm.OKButton");
  EXPECT_EQ(said, "Pin number between 2-9 only !!");
  EXPECT_TRUE(dialog.isVisible());
  bench.type(kClockPin, "9");
  bench.press(kClockPin, Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  bench.port.accesses.clear();
  bench.click("AllCommand");
  EXPECT_THAT(bench.port.latches(128), ElementsAre(kFword, kRword, kNword));

  bench.menu("Parallel(31)");
  bench.click("ParallelForm.Command1");
  EXPECT_EQ(bench.text(kClockPin), "2");
  bench.press(kClockPin, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace tessarine::desktop
