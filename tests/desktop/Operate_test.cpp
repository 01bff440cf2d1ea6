// The program under the operator's hands, from the first screen to the words on the wire.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <string>
#include <vector>

#include "desktop/Bench.h"
#include "desktop/Painted.h"

namespace tessarine::desktop {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Key;

TEST(FirstScreen, ShowsTheChoiceAloneThenTheHourglassThenTheWorkingScreen) {
  Bench bench;
  bench.start();
  EXPECT_EQ(bench.window().windowTitle(), "Tessarine  Rev. C0");
  EXPECT_TRUE(bench.shows("ContinueCommand"));
  EXPECT_FALSE(bench.shows("GeneralFrame"));
  EXPECT_THAT(paintedTexts(*bench.find("Picture1")), Contains(std::pair("Tessarine", "#1c252b")));
  bool hourglass = false;
  bench.later(500, [&] { hourglass = QApplication::overrideCursor() != nullptr; });
  bench.click("ContinueCommand");
  EXPECT_TRUE(hourglass) << "while the driver starts";
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_TRUE(bench.shows("AllCommand"));
  EXPECT_FALSE(bench.shows("ContinueCommand"));
  EXPECT_TRUE(comesTrue([&] {
    const QWidget* const focused = bench.window().focusWidget();
    return focused && focused->isVisible();
  }));
  Bench byKeys;
  byKeys.start();
  QTest::keyClick(&byKeys.window(), Qt::Key_Return);
  EXPECT_TRUE(byKeys.shows("RefText")) << "Enter can only mean the one button there";
}

TEST(Models, EachPanelOpensInFrontAndClosesAgain) {
  constexpr struct {
    const char *model, *panel, *cross;
  } kModelPanels[] = {{"pllM(1)", "Frame16", "Label20"},  {"pllM(9)", "Frame11", "Label18"},
                      {"pllM(11)", "Frame13", "Label17"}, {"pllM(13)", "Frame17", "Label22"},
                      {"pllM(14)", "Frame12", "Label19"}, {"pllM(17)", "Frame24", "Label76"}};
  Bench bench;
  bench.startWorking();
  for (const auto& [model, panel, cross] : kModelPanels) {
    SCOPED_TRACE(model);
    bench.menu(model);
    EXPECT_TRUE(bench.find<QAction>(model)->isChecked());
    bench.click("ACommand");
    EXPECT_TRUE(bench.shows(panel));
    // Nothing lies over the panel: the X in its corner is what one hits there.
    bench.click(cross);
    EXPECT_FALSE(bench.shows(panel));
    EXPECT_EQ(bench.text("ACommand"), "Advanced");
  }
}

TEST(GeneralMode, NumbersAndBitsBecomeWordsOnTheScreenAndOnTheWire) {
  Bench bench;
  bench.startTuned();
  bench.port.accesses.clear();
  bench.click("AllCommand");
  EXPECT_EQ(bench.text("Fregister"), "000000111000000010010010");
  EXPECT_EQ(bench.text("Rregister"), "000000000000000011001000");
  EXPECT_EQ(bench.text("Nregister"), "000000100011001000010001");
  EXPECT_THAT(paintedTexts(*bench.find("Nregister")),
              ElementsAre(Key("0000"), Key("0010"), Key("0011"), Key("0010"), Key("0001"), Key("0001")));
  EXPECT_THAT(bench.port.latches(),
              ElementsAre(bench.text("Fregister"), bench.text("Rregister"), bench.text("Nregister")));

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
  EXPECT_THAT(paintedTexts(*bench.find("LDLabel")), ElementsAre(std::pair("Lock Detect On", "#000000")));
}

TEST(Modes, TheMenuShowsOneModeAtATimeAndPutsTheKeyboardThere) {
  constexpr struct {
    const char *entry, *frame, *firstField;
  } kModes[] = {{"Hop1", "Frame2(1)", "VcoText1"},
                {"Gen1", "Frame2(0)", "VCOText"},
                {"Sweep1", "Frame2(2)", "StartText1"}};
  Bench bench;
  bench.startWorking();
  for (const auto& [entry, frame, field] : kModes) {
    bench.menu(entry);
    EXPECT_TRUE(comesTrue([&, name = field] { return bench.find(name)->hasFocus(); })) << field;
    for (const auto& [otherEntry, otherFrame, otherField] : kModes) {
      EXPECT_EQ(bench.find<QAction>(otherEntry)->isChecked(), otherEntry == entry);
      EXPECT_EQ(bench.shows(otherFrame), otherFrame == frame);
    }
  }
  bench.click("AutoOption1");
  EXPECT_TRUE(bench.shows("DelaySweepText1"));
}

TEST(Modes, TabGoesDownTheFields) {
  Bench bench;
  bench.startTuned();
  bench.menu("Hop1");
  ASSERT_TRUE(becomesActive(bench.window()));
  bench.find("VcoText1")->setFocus();
  for (const char* const text : {"900", "925.2", "5", "100"}) {
    QTest::keyClicks(bench.window().focusWidget(), text);
    QTest::keyClick(bench.window().focusWidget(), Qt::Key_F,
                    Qt::AltModifier);  // no text
    QTest::keyClick(bench.window().focusWidget(), Qt::Key_Tab);
  }
  std::vector<std::string> texts;
  for (const char* const field : {"VcoText1", "VcoText2", "HopText", "DelayText"})
    texts.push_back(bench.text(field));
  EXPECT_THAT(texts, ElementsAre("900", "925.2", "5", "100"));
  bench.find("HopText")->setFocus();
  QTest::keyClick(bench.window().focusWidget(), Qt::Key_Backtab);
  EXPECT_EQ(bench.window().focusWidget()->objectName().toStdString(), "VcoText2");
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
  bench.menu("Close1");
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

TEST(Wiring, TheDialogStaysOpenBehindItsMessage) {
  Bench bench;
  bench.startTuned();
  bench.menu("Parallel");
  FormWindow& dialog = bench.window(bench.form().parallelForm);
  EXPECT_EQ(dialog.windowTitle(), "Form1");
  EXPECT_TRUE(comesTrue([&] {
    return (dialog.geometry().center() - bench.window().geometry().center()).manhattanLength() < 60;
  })) << "in the middle";
  bench.type("ParallelForm.LPTwText(0)", "10");
  std::string said;
  bench.answerMessage(said);
  bench.click("ParallelForm.OKButton");
  EXPECT_EQ(said, "Pin number between 2-9 only !!");
  EXPECT_TRUE(dialog.isVisible());
  bench.click("ParallelForm.Command1");
  EXPECT_EQ(bench.text("ParallelForm.LPTwText(0)"), "2");
  bench.press("ParallelForm.LPTwText(0)", Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace tessarine::desktop
