// Waits, messages and the end of the program, with the toolkit's own event loop underneath.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>
#include <algorithm>
#include <clocale>
#include <ctime>
#include <functional>
#include <string>

#include "desktop/Bench.h"
#include "desktop/EventCounter.h"
#include "platform/Fault.h"
#include "transport/PortAccess.h"

namespace tessarine::desktop {
namespace {

// The lamp's text tells whether Form_Activate has run since.
void markLamp(Bench& bench) { bench.form().LDLabel.Caption = "seen"; }
bool hasActivated(Bench& bench) { return bench.form().LDLabel.value() == "Lock Detect Off"; }

TEST(Waiting, RunsWhatTheOperatorDoesEndsOnTimeAndCostsNoProcessorTime) {
  Bench bench;
  bench.startWorking();
  bench.later(50, [&] { bench.type("RefText", "10"); });
  QElapsedTimer time;
  time.start();
  DelayMs(bench.program.module, 200);
  EXPECT_GE(time.elapsed(), 200);
  EXPECT_EQ(bench.form().RefText.value(), "10");

  time.start();
  const EventCounter timers(QEvent::Timer);
  const std::clock_t before = std::clock();
  for (int i = 0; i < 10; ++i) DelayMs(bench.program.module, 100);
  EXPECT_LT(static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC, 0.05);
  EXPECT_LT(timers.count, 100) << "it looks at the clock again and again";
  EXPECT_GE(time.elapsed(), 1000);
  EXPECT_LT(time.elapsed(), 5000);
}

TEST(Ending, ExitOrClosingTheWindowInNestedWaitsEndsAllOfThemAtOnce) {
  for (const bool exit : {true, false}) {
    SCOPED_TRACE(exit ? "Exit" : "closing");
    Bench bench;
    bench.startTuned(true);
    bench.menu("Hop1(22)");
    bench.type("VcoText1", "900");
    bench.type("VcoText2", "925.2");
    bench.type("HopText", "1000");
    bench.type("DelayText", "30000");
    bench.later(100, [&] { bench.click("StartHop"); });  // a second hop within the first
    bench.later(300, [&] { exit ? bench.menu("Exit1(13)") : static_cast<void>(bench.window().close()); });
    QElapsedTimer time;
    time.start();
    bench.click("StartHop");
    EXPECT_LT(time.elapsed(), 10'000);
    EXPECT_TRUE(bench.desktop.hasEnded());
    EXPECT_EQ(std::ranges::count(bench.usb.calls, "close"), exit ? 0 : 1);
    bench.click("StopHop");
    bench.menu("Gen1(21)");
    EXPECT_TRUE(bench.form().Hop1.Checked) << "an ended program takes no clicks";
  }
}

TEST(Ending, ReachesThroughWhateverLetsEventsRun) {
  const std::function<void(Bench&)> waits[] = {
      [](Bench& bench) { bench.desktop.messageBox("waiting", Icon::plain, "title"); },
      [](Bench& bench) { bench.desktop.showModal(bench.form().browseForm); },
      [](Bench& bench) {
        QTest::qSleep(50);  // the end is due
        bench.desktop.processEvents();
      },
  };
  for (const auto& wait : waits) {
    Bench bench;
    bench.startWorking();
    bench.later(20, [&] { bench.program.door.run([&] { bench.form().Form_QueryUnload(); }); });
    EXPECT_THROW(wait(bench), ProgramEnded);
    EXPECT_EQ(bench.program.forms.modal(), nullptr);
  }
}

TEST(Locale, HasADecimalCommaInAllOfTheseTests) {
  if (std::localeconv()->decimal_point != std::string(","))
    GTEST_SKIP() << "SKIPPED: the windows were NOT tried with a decimal comma: there is no such locale";
}

TEST(Messages, ShowTitleTextAndIconAsTheyAre) {
  Bench bench;
  bench.start();
  bool seen = false;
  QTimer::singleShot(100, [&] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    EXPECT_EQ(box->windowTitle(), "Ouput port Err");
    EXPECT_EQ(box->text(), "Error & <b>more</b>");
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(box->icon(), QMessageBox::Critical);
    EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
    const auto* const shown = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    EXPECT_GE(shown->width(), shown->sizeHint().width());
    seen = true;
    QTest::keyClick(box, Qt::Key_Escape);
  });
  bench.desktop.messageBox("Error & <b>more</b>", Icon::critical, "Ouput port Err");
  EXPECT_TRUE(seen);
}

TEST(Activation, RunsWhenTheFocusComesBackFromAFormOfTheProgram) {
  Bench bench;
  bench.startTuned();
  bench.menu("About1(41)");
  FormWindow& about = bench.window(bench.form().aboutForm);
  ASSERT_TRUE(becomesActive(about));
  EXPECT_EQ(about.windowTitle(), "About Tessarine");
  markLamp(bench);
  bench.program.module.PolarityNegative = kTrue;
  bench.window().move(200, 150);
  ASSERT_TRUE(comesTrue([&] { return bench.window().pos() != QPoint(0, 0); }));
  bench.click("frmAbout.cmdOK");
  EXPECT_TRUE(hasActivated(bench));
  EXPECT_EQ(bench.program.module.PolarityNegative, kFalse);
  EXPECT_TRUE(comesTrue([&] { return bench.window().pos() == QPoint(0, 0); }));

  // By the window manager: the operator turns to the main window and back, by what is behind it.
  bench.menu("About1(41)");
  ASSERT_TRUE(becomesActive(about));
  markLamp(bench);
  ASSERT_TRUE(becomesActive(bench.window()));
  EXPECT_TRUE(hasActivated(bench));
  EXPECT_EQ(bench.program.forms.active(), &bench.form());
  bench.menu("About1(41)");
  EXPECT_TRUE(comesTrue([&] { return about.isActiveWindow(); })) << "shown again, it comes to the front";

  std::string said;
  bench.answerMessage(said);
  QTest::keyClick(&about, Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(comesTrue([&] { return !said.empty(); }));
  EXPECT_EQ(said, "System Information Is Unavailable At This Time");
  about.close();
  EXPECT_FALSE(about.isVisible());
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

}  // namespace
}  // namespace tessarine::desktop
