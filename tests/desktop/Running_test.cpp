// Waits, messages and the end of the program, with the toolkit's own event loop underneath.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QTimer>
#include <ctime>

#include "desktop/Bench.h"
#include "platform/Fault.h"
#include "transport/PortAccess.h"

namespace tessarine::desktop {
namespace {

using ::testing::Contains;
using ::testing::Not;

constexpr const char* kUntouched = "seen";

// The lamp's text tells whether Form_Activate has run since.
void markLamp(Bench& bench) { bench.form().LDLabel.Caption = kUntouched; }
bool hasActivated(Bench& bench) { return bench.form().LDLabel.value() == "Lock Detect Off"; }

// Starts a hop that would take minutes.
void hopForMinutes(Bench& bench) {
  bench.menu("Hop1(22)");
  bench.type("VcoText1", "900");
  bench.type("VcoText2", "925.2");
  bench.type("HopText", "1000");
  bench.type("DelayText", "30000");
  bench.click("StartHop");
}

TEST(Waiting, EndsOnTimeAndCostsNoProcessorTime) {
  Bench bench;
  bench.start();
  QElapsedTimer time;
  time.start();
  const std::clock_t before = std::clock();
  for (int i = 0; i < 10; ++i) DelayMs(bench.program.module, 100);
  const double busy = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
  EXPECT_GE(time.elapsed(), 1000);
  EXPECT_LT(time.elapsed(), 5000);
  EXPECT_LT(busy, 0.05);
}

TEST(Waiting, IsCutShortByNothingButRunsWhatTheOperatorDoes) {
  Bench bench;
  bench.startWorking();
  bench.later(50, [&] { bench.click("RefText"); });
  bench.later(60, [&] { QTest::keyClicks(bench.find("RefText"), "10"); });
  QElapsedTimer time;
  time.start();
  DelayMs(bench.program.module, 200);
  EXPECT_GE(time.elapsed(), 200);
  EXPECT_EQ(bench.form().RefText.value(), "10");
}

TEST(Ending, ExitInTheMiddleOfAHopEndsAtOnceWithoutClosingUsb) {
  Bench bench;
  bench.startTuned(true);
  bench.later(200, [&] { bench.menu("Exit1(13)"); });
  QElapsedTimer time;
  time.start();
  hopForMinutes(bench);
  EXPECT_LT(time.elapsed(), 10'000);
  EXPECT_TRUE(bench.desktop.hasEnded());
  EXPECT_THAT(bench.usb.calls, Not(Contains("close")));
  bench.usb.calls.clear();
  bench.click("StopHop");
  bench.menu("Gen1(21)");
  EXPECT_TRUE(bench.form().Hop1.Checked) << "an ended program takes no clicks";
}

TEST(Ending, ClosingTheWindowInNestedWaitsEndsAllOfThem) {
  Bench bench;
  bench.startTuned(true);
  bench.later(100, [&] { bench.click("StartHop"); });  // a second hop within the first
  bench.later(300, [&] { bench.window().close(); });
  QElapsedTimer time;
  time.start();
  hopForMinutes(bench);
  EXPECT_LT(time.elapsed(), 10'000);
  EXPECT_TRUE(bench.desktop.hasEnded());
  EXPECT_THAT(bench.usb.calls, Contains("close"));
}

TEST(Ending, ReachesThroughAMessageBoxAndAModalDialog) {
  for (const bool message : {true, false}) {
    Bench bench;
    bench.startTuned();
    QTimer::singleShot(200, [&] { bench.program.door.run([&] { bench.form().Form_QueryUnload(); }); });
    const auto stuck = [&] {
      if (message) {
        bench.desktop.messageBox("waiting", Icon::plain, "title");
      } else {
        bench.desktop.showModal(bench.form().browseForm);
      }
    };
    EXPECT_THROW(stuck(), ProgramEnded);
    EXPECT_EQ(bench.program.forms.modal(), nullptr);
  }
}

TEST(Messages, ShowTitleTextAndIconAsTheyAre) {
  Bench bench;
  bench.start();
  QString title;
  QString text;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QTimer::singleShot(100, [&] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    title = box->windowTitle();
    text = box->text();
    icon = box->icon();
    EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
    QTest::keyClick(box, Qt::Key_Escape);
  });
  bench.desktop.messageBox("Error & <b>more</b>", Icon::critical, "Ouput port Err");
  EXPECT_EQ(title, "Ouput port Err");
  EXPECT_EQ(text, "Error & <b>more</b>");
  EXPECT_EQ(icon, QMessageBox::Critical);
}

TEST(Activation, RunsWhenTheFocusComesBackFromAFormOfTheProgram) {
  Bench bench;
  bench.startTuned();
  bench.menu("About1(41)");
  ASSERT_TRUE(becomesActive(bench.window(bench.form().aboutForm)));
  markLamp(bench);
  bench.program.module.PolarityNegative = kTrue;
  bench.window().move(200, 150);
  QTest::qWait(50);
  bench.click("frmAbout.cmdOK");
  EXPECT_TRUE(hasActivated(bench));
  EXPECT_EQ(bench.program.module.PolarityNegative, kFalse);
  QTest::qWait(50);
  EXPECT_EQ(bench.window().pos(), QPoint(0, 0));
}

TEST(Activation, RunsWhenTheOperatorTurnsBackToTheMainWindow) {
  Bench bench;
  bench.startTuned();
  bench.menu("Parallel(31)");
  ASSERT_TRUE(becomesActive(bench.window(bench.form().parallelForm)));
  markLamp(bench);
  ASSERT_TRUE(becomesActive(bench.window()));
  EXPECT_TRUE(hasActivated(bench));
  EXPECT_EQ(bench.program.forms.active(), &bench.form());
}

TEST(Activation, DoesNotRunAfterAMessageNorWhenAnotherProgramLetsGo) {
  Bench bench;
  bench.startTuned();
  markLamp(bench);
  std::string said;
  bench.answerMessage(said);
  bench.desktop.messageBox("text", Icon::plain, "title");
  ASSERT_TRUE(becomesActive(bench.window()));
  EXPECT_FALSE(hasActivated(bench));

  QWidget other;  // stands for the window of another program
  other.show();
  ASSERT_TRUE(becomesActive(other));
  ASSERT_TRUE(becomesActive(bench.window()));
  EXPECT_FALSE(hasActivated(bench));
}

TEST(Windows, AFormThatIsShownAgainComesToTheFront) {
  Bench bench;
  bench.startWorking();
  bench.menu("About1(41)");
  FormWindow& about = bench.window(bench.form().aboutForm);
  ASSERT_TRUE(becomesActive(about));
  EXPECT_EQ(about.windowTitle(), "About Tessarine");
  ASSERT_TRUE(becomesActive(bench.window()));
  bench.menu("About1(41)");
  EXPECT_TRUE(becomesActive(about));
  std::string said;
  bench.answerMessage(said);
  QTest::keyClick(&about, Qt::Key_S, Qt::AltModifier);
  QTest::qWait(300);
  EXPECT_EQ(said, "System Information Is Unavailable At This Time");
  about.close();
  EXPECT_FALSE(about.isVisible());
  EXPECT_EQ(bench.program.forms.active(), &bench.form());
}

}  // namespace
}  // namespace tessarine::desktop
