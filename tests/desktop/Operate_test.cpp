// The program under the operator's hands, from the first screen to the words on the wire.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>

#include "desktop/Bench.h"

namespace tessarine::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kFword = "000000111000000010010010";
constexpr const char* kRword = "000000000000000011001000";
constexpr const char* kNword = "000000100011001000010001";

bool isShown(Bench& bench, const char* name) {
  const auto* const widget = bench.window().findChild<QWidget*>(QString::fromLatin1(name));
  return widget && widget->isVisible();
}

TEST(FirstScreen, ShowsTheChoiceAloneThenTheWorkingScreen) {
  Bench bench;
  bench.host.version.reset();
  bench.start();
  EXPECT_EQ(bench.window().windowTitle(), "Tessarine  Rev. C0");
  EXPECT_TRUE(isShown(bench, "ContinueCommand"));
  EXPECT_FALSE(isShown(bench, "GeneralFrame"));
  EXPECT_THAT(bench.port.accesses, IsEmpty());
  bench.click("ContinueCommand");
  EXPECT_FALSE(isShown(bench, "Picture1"));
  for (const char* name : {"GeneralFrame", "Frame2(0)", "DataFrame", "RefText", "AllCommand"}) {
    EXPECT_TRUE(isShown(bench, name)) << name;
  }
  EXPECT_FALSE(isShown(bench, "MCommand"));
  EXPECT_FALSE(isShown(bench, "Frame2(1)"));
  EXPECT_EQ(bench.port.bytes(), std::vector<int>{0});
}

TEST(FirstScreen, ShowsTheHourglassWhileTheDriverStarts) {
  Bench bench;
  bench.start();
  bool hourglass = false;
  bench.later(500, [&] { hourglass = QApplication::overrideCursor() != nullptr; });
  bench.click("ContinueCommand");
  EXPECT_TRUE(hourglass);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_THAT(bench.host.programs, ElementsAre("port driver"));
}

struct Panel {
  int entry;
  const char* panel;
  const char* closeLabel;
  const char* afterOpening;  // the caption of ACommand
};

TEST(Models, EachOpensItsPanelAndClosesItAgain) {
  constexpr Panel kPanels[] = {
      {1, "Frame16", "Label20", "Advanced"}, {2, "Frame16", "Label20", "Advanced"},
      {3, "Frame16", "Label20", "Advanced"}, {5, "Frame11", "Label18", "Close"},
      {6, "Frame11", "Label18", "Close"},    {7, "Frame11", "Label18", "Close"},
      {8, "Frame11", "Label18", "Close"},    {9, "Frame11", "Label18", "Close"},
      {10, "Frame16", "Label20", "Close"},   {11, "Frame13", "Label17", "Close"},
      {12, "Frame13", "Label17", "Close"},   {13, "Frame17", "Label22", "Close"},
      {14, "Frame12", "Label19", "Close"},   {15, "Frame12", "Label19", "Close"},
      {17, "Frame24", "Label76", "Close"},
  };
  Bench bench;
  bench.startWorking();
  for (const Panel& panel : kPanels) {
    SCOPED_TRACE(panel.entry);
    bench.menu("pllM(" + std::to_string(panel.entry) + ")");
    EXPECT_TRUE(bench.find<QAction>("pllM(" + std::to_string(panel.entry) + ")")->isChecked());
    bench.click("ACommand");
    EXPECT_TRUE(isShown(bench, panel.panel));
    EXPECT_EQ(bench.form().ACommand.value(), panel.afterOpening);
    // Nothing lies over the panel: the X in its corner is what one hits there.
    bench.click(panel.closeLabel);
    EXPECT_FALSE(isShown(bench, panel.panel));
    EXPECT_EQ(bench.form().ACommand.value(), "Advanced");
  }
}

TEST(GeneralMode, TypedNumbersBecomeWordsOnTheScreenAndOnTheWire) {
  Bench bench;
  bench.startTuned();
  bench.port.accesses.clear();
  bench.click("AllCommand");
  EXPECT_EQ(bench.find<QLabel>("Fregister")->text(), kFword);
  EXPECT_EQ(bench.find<QLabel>("Rregister")->text(), kRword);
  EXPECT_EQ(bench.find<QLabel>("Nregister")->text(), kNword);
  EXPECT_THAT(bench.port.latches(), ElementsAre(kFword, kRword, kNword));
  EXPECT_EQ(bench.find<QLabel>("LDLabel")->text(), "Lock Detect Off");
}

TEST(GeneralMode, EnterSendsAndABitOfThePanelReachesTheWord) {
  Bench bench;
  bench.startTuned();
  bench.click("ACommand");
  bench.click("Label31(0)");  // DB21, power-down 2
  bench.click("Label33(0)");  // DB1 is fixed
  bench.click("Label18");
  bench.find("VCOText")->setFocus();
  QTest::keyClick(bench.find("VCOText"), Qt::Key_Return);
  EXPECT_EQ(bench.find<QLabel>("Fregister")->text(), "001000111000000010010010");
}

TEST(GeneralMode, LockDetectOnUsbTurnsTheLampGreen) {
  Bench bench;
  bench.usb.lockPin = 1;
  bench.startTuned(true);
  bench.click("AllCommand");
  EXPECT_EQ(bench.find<QLabel>("LDLabel")->text(), "Lock Detect On");
  const QImage lamp = bench.find("LDLabel")->grab().toImage();
  EXPECT_EQ(lamp.pixelColor(8, lamp.height() / 2), QColor(0, 255, 0));
}

TEST(GeneralMode, APickedPrescalerIsEditedWhereTheCursorStands) {
  Bench bench;
  bench.startTuned();
  bench.pick("PrescalarText", 1);
  auto* const text = bench.find<QComboBox>("PrescalarText")->lineEdit();
  ASSERT_EQ(text->text(), "16/17");
  QTest::keyClick(text, Qt::Key_Home);
  QTest::keyClick(text, Qt::Key_Delete);
  QTest::keyClicks(text, "3");
  EXPECT_EQ(bench.form().PrescalarText.Text.get(), "36/17");
}

TEST(GeneralMode, AFaultIsOneMessageAndNothingIsSent) {
  Bench bench;
  bench.startTuned();
  bench.type("CompText", "0");
  bench.port.accesses.clear();
  std::string said;
  bench.answerMessage(said);
  bench.click("AllCommand");
  EXPECT_THAT(said, ::testing::HasSubstr("Step Resolution = 0 kHz"));
  EXPECT_THAT(bench.port.latches(), IsEmpty());
}

TEST(GeneralMode, AClickDuringALoadNestsASecondLoad) {
  Bench bench;
  bench.startTuned();
  bench.port.accesses.clear();
  bench.click("AllCommand");
  const auto writesOfOne = bench.port.count(FakePort::Access::Kind::write);
  bench.port.accesses.clear();
  int writesBefore = 0;
  bench.later(0, [&] {
    writesBefore = bench.port.count(FakePort::Access::Kind::write);
    bench.click("CalculateCommand");
  });
  bench.click("AllCommand");
  EXPECT_GT(writesBefore, 0) << "the second load starts in the middle of the first";
  EXPECT_LT(writesBefore, writesOfOne);
  EXPECT_EQ(bench.port.count(FakePort::Access::Kind::write), 2 * writesOfOne);
  EXPECT_EQ(bench.find<QLabel>("Nregister")->text(), kNword);
}

TEST(Modes, TheMenuShowsOneModeAtATime) {
  Bench bench;
  bench.startWorking();
  const std::vector<std::pair<const char*, const char*>> modes = {
      {"Hop1(22)", "Frame2(1)"}, {"Sweep1(23)", "Frame2(2)"}, {"Gen1(21)", "Frame2(0)"}};
  for (const auto& [entry, frame] : modes) {
    bench.menu(entry);
    for (const auto& [otherEntry, otherFrame] : modes) {
      EXPECT_EQ(bench.find<QAction>(otherEntry)->isChecked(), otherEntry == entry);
      EXPECT_EQ(isShown(bench, otherFrame), otherFrame == frame);
    }
  }
  bench.menu("Sweep1(23)");
  EXPECT_FALSE(isShown(bench, "DelaySweepText1"));
  bench.click("AutoOption1");
  EXPECT_TRUE(isShown(bench, "DelaySweepText1"));
}

TEST(Modes, StopEndsAHopInTheMiddleOfItsDelay) {
  Bench bench;
  bench.startTuned();
  bench.menu("Hop1(22)");
  bench.type("VcoText1", "900");
  bench.type("VcoText2", "925.2");
  bench.type("HopText", "1000");
  bench.type("DelayText", "40");
  bench.later(150, [&] { bench.click("StopHop"); });
  QElapsedTimer time;
  time.start();
  bench.click("StartHop");
  EXPECT_LT(time.elapsed(), 10'000);
  EXPECT_THAT(bench.port.latches().size(), ::testing::Ge(3U));
  EXPECT_EQ(bench.form().Label8.value(), "    Current Hop            ");
}

TEST(Close, PausesOnTheFirstScreenWhileTheMenusWork) {
  Bench bench;
  bench.startTuned();
  bool firstScreen = false;
  bench.later(300, [&] {
    firstScreen = isShown(bench, "Picture1") && !isShown(bench, "GeneralFrame");
    bench.menu("pllM(11)");
  });
  QElapsedTimer time;
  time.start();
  bench.menu("Close1(12)");
  EXPECT_GE(time.elapsed(), 2990);
  EXPECT_LT(time.elapsed(), 10'000);
  EXPECT_TRUE(firstScreen);
  EXPECT_TRUE(isShown(bench, "GeneralFrame"));
  EXPECT_EQ(bench.find<QLineEdit>("VCOText")->text(), "");
  EXPECT_EQ(bench.find<QLabel>("Nregister")->text(), "");
  EXPECT_EQ(bench.program.module.CurrentModel, "ADF4153");
}

TEST(Close, IsCopyInATextBoxAndCloseElsewhere) {
  Bench bench;
  bench.startTuned();
  bench.find("VCOText")->setFocus();
  QTest::keySequence(bench.find("VCOText"), QKeySequence(Qt::CTRL | Qt::Key_C));
  QCoreApplication::processEvents();
  EXPECT_EQ(bench.form().VCOText.value(), "900");
  QTest::keySequence(bench.find("VCOText"), QKeySequence::SelectAll);
  QTest::keySequence(bench.find("VCOText"), QKeySequence(Qt::CTRL | Qt::Key_X));
  QCoreApplication::processEvents();
  EXPECT_EQ(bench.form().VCOText.value(), "") << "cut";
  EXPECT_FALSE(bench.desktop.hasEnded());
  bench.find("AllCommand")->setFocus();
  QTest::keySequence(bench.find("AllCommand"), QKeySequence(Qt::CTRL | Qt::Key_X));
  QCoreApplication::processEvents();
  EXPECT_TRUE(bench.desktop.hasEnded()) << "Exit";
}

TEST(Wiring, TheDialogMovesAWireAndAWrongPinIsRefused) {
  Bench bench;
  bench.startTuned();
  bench.menu("Parallel(31)");
  EXPECT_EQ(bench.window(bench.form().parallelForm).windowTitle(), "Form1");
  bench.type("ParallelForm.LPTwText(0)", "10");
  std::string said;
  bench.answerMessage(said);
  bench.click("ParallelForm.OKButton");
  EXPECT_EQ(said, "Pin number between 2-9 only !!");
  EXPECT_TRUE(bench.window(bench.form().parallelForm).isVisible());
  bench.type("ParallelForm.LPTwText(0)", "9");
  QTest::keyClick(bench.find("ParallelForm.LPTwText(0)"), Qt::Key_Return);
  EXPECT_FALSE(bench.window(bench.form().parallelForm).isVisible());
  bench.port.accesses.clear();
  bench.click("AllCommand");
  EXPECT_THAT(bench.port.latches(128), ElementsAre(kFword, kRword, kNword));

  bench.menu("Parallel(31)");
  bench.click("ParallelForm.Command1");
  EXPECT_EQ(bench.find<QLineEdit>("ParallelForm.LPTwText(0)")->text(), "2");
  QTest::keyClick(bench.find("ParallelForm.LPTwText(0)"), Qt::Key_Escape);
  EXPECT_FALSE(bench.window(bench.form().parallelForm).isVisible());
}

}  // namespace
}  // namespace tessarine::desktop
