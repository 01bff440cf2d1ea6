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

using namespace ::testing;

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
  EXPECT_TRUE(comesTrue([&] { return bench.find("RefText")->hasFocus(); }));
  Bench byKeys;
  byKeys.start();
  QTest::keyClick(&byKeys.window(), Qt::Key_Return);
  EXPECT_TRUE(byKeys.shows("RefText")) << "Enter can only mean the one button there";
}

TEST(GeneralMode, NumbersAndBitsBecomeWordsOnTheScreenAndOnTheWire) {
  Bench bench;
  bench.startTuned();
  bench.port.accesses.clear();
  bench.click("ACommand");
  bench.click("Label31(0)");  // DB21, power-down 2
  bench.click("Label33(0)");  // DB1 is fixed
  bench.click("Label18");
  bench.press("VCOText", Qt::Key_Return);
  const std::vector<std::string> words = {bench.text("Fregister"), bench.text("Rregister"),
                                          bench.text("Nregister")};
  EXPECT_EQ(words[0], "001000111000000010010010");
  EXPECT_EQ(words[2], "000000100011001000010001");
  EXPECT_THAT(paintedTexts(*bench.find("Nregister")),
              ElementsAre(Key("0000"), Key("0010"), Key("0011"), Key("0010"), Key("0001"), Key("0001")));
  EXPECT_EQ(bench.port.latches(), words);
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

TEST(Modes, AModeBeginsAtItsFirstFieldAndTabGoesDownTheOthers) {
  const char* const fields[] = {"VcoText1", "VcoText2", "HopText", "DelayText"};
  const char* const texts[] = {"900", "925.2", "5", "100"};
  Bench bench;
  bench.startTuned();
  bench.menu("Hop1");
  EXPECT_TRUE(comesTrue([&] { return bench.find(fields[0])->hasFocus(); }));
  ASSERT_TRUE(becomesActive(bench.window()));
  for (const char* const text : texts) {
    QTest::keyClicks(bench.window().focusWidget(), text);
    QTest::keyClick(bench.window().focusWidget(), Qt::Key_F, Qt::AltModifier);  // no text
    QTest::keyClick(bench.window().focusWidget(), Qt::Key_Tab);
  }
  for (int i = 0; i < 4; ++i) EXPECT_EQ(bench.text(fields[i]), texts[i]);
  bench.find("HopText")->setFocus();
  QTest::keyClick(bench.window().focusWidget(), Qt::Key_Backtab);
  EXPECT_EQ(bench.window().focusWidget(), bench.find("VcoText2"));
}

TEST(Close, PausesOnTheFirstScreenWhileTheMenusWork) {
  Bench bench;
  bench.startTuned();
  bench.click("ACommand");
  bool firstScreen = false;
  bench.later(300, [&] {
    firstScreen = !bench.shows("GeneralFrame") && isOnTop(*bench.find("ContinueCommand"));
    bench.menu("pllM(11)");
  });
  bench.menu("Close1");
  EXPECT_TRUE(firstScreen);
  EXPECT_TRUE(bench.shows("GeneralFrame"));
  EXPECT_EQ(bench.program.module.CurrentModel, "ADF4153");
}

TEST(Close, ItsKeysCopyAndCutInAFieldAndEndElsewhere) {
  Bench bench;
  bench.startTuned();
  bench.press("VCOText", QKeySequence::SelectAll);
  bench.press("VCOText", QKeySequence::Copy);
  EXPECT_EQ(QApplication::clipboard()->text(), "900");
  bench.press("PrescalarText", QKeySequence::Copy);
  EXPECT_EQ(bench.form.VCOText.value(), "900") << "Close";
  bench.press("VCOText", QKeySequence::SelectAll);
  bench.press("VCOText", QKeySequence::Cut);
  EXPECT_EQ(bench.form.VCOText.value(), "");
  EXPECT_FALSE(bench.desktop.hasEnded());
  bench.press("AllCommand", QKeySequence::Cut);
  EXPECT_TRUE(bench.desktop.hasEnded()) << "Exit";
}

TEST(Wiring, TheDialogStaysOpenBehindItsMessage) {
  Bench bench;
  bench.startTuned();
  bench.menu("Parallel");
  FormWindow& dialog = bench.window(bench.form.parallelForm);
  EXPECT_EQ(dialog.windowTitle(), "Form1");
  EXPECT_TRUE(comesTrue([&] {
    return (dialog.geometry().center() - bench.window().geometry().center()).manhattanLength() < 60;
  })) << "in the middle";
  bench.type("ParallelForm.LPTwText(0)", "10");
  std::string said;
  bench.answerMessage([&](const QMessageBox& box) { said = box.text().toStdString(); });
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
