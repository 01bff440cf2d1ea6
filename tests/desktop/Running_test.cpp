// Waits, messages and the end of the program, with the toolkit's own event loop underneath.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <algorithm>
#include <clocale>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <optional>

#include "desktop/Bench.h"
#include "desktop/SocketWatch.h"
#include "transport/PortAccess.h"

namespace tessarine::desktop {
namespace {

// The lamp's text tells whether Form_Activate has run since.
void markLamp(Bench& bench) { bench.form.LDLabel.Caption = "seen"; }
bool hasActivated(Bench& bench) { return bench.form.LDLabel.value() == "Lock Detect Off"; }

TEST(Waiting, RunsWhatTheOperatorDoesEndsOnTimeAndSleepsInBetween) {
  Bench bench;
  bench.startWorking();
  bench.later(50, [&] { bench.type("RefText", "10"); });
  // Each sleep ends with an event of the deadline, and little else wakes it.
  const EventCounter ends(QEvent::SockAct);
  const EventCounter timers(QEvent::Timer);
  const auto open = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
  const auto before = open();
  qint64 shortest = 1'000'000'000;
  QElapsedTimer time;
  for (int i = 0; i < 10; ++i) {
    time.start();
    DelayMs(bench.program.module, 100);
    shortest = std::min(shortest, time.nsecsElapsed());
  }
  EXPECT_EQ(bench.form.RefText.value(), "10");
  EXPECT_GE(shortest, 99'500'000);
  EXPECT_LE(shortest, 200'000'000) << "a busy host holds up some of them, not all";
  EXPECT_LE(open(), before);
  EXPECT_LE(ends.count, 30);
  EXPECT_LE(timers.count, 10);
}

TEST(Ending, ExitOrClosingTheWindowInNestedWaitsEndsAllOfThemAtOnce) {
  for (const bool exit : {true, false}) {
    SCOPED_TRACE(exit ? "Exit" : "closing");
    Bench bench;
    bench.startTuned(true);
    bench.menu("Hop1");
    for (const auto& [field, text] :
         {std::pair{"VcoText1", "900"}, {"VcoText2", "925.2"}, {"HopText", "1000"}, {"DelayText", "30000"}})
      bench.type(field, text);
    bench.later(100, [&] { bench.click("StartHop"); });  // a second hop within the first
    bench.later(300, [&] { exit ? bench.menu("Exit1") : static_cast<void>(bench.window().close()); });
    QElapsedTimer time;
    time.start();
    bench.click("StartHop");
    EXPECT_LT(time.elapsed(), 10'000);
    EXPECT_TRUE(bench.desktop.hasEnded());
    EXPECT_EQ(std::ranges::count(bench.usb.calls, "close"), exit ? 0 : 1);
    bench.click("StopHop");
    bench.menu("Gen1");
    EXPECT_TRUE(bench.form.Hop1.Checked) << "an ended program takes no clicks";
  }
}

TEST(Ending, ReachesThroughWhateverLetsEventsRun) {
  const std::function<void(Bench&)> waits[] = {
      [](Bench& bench) { bench.desktop.messageBox("waiting", Icon::plain, "title"); },
      [](Bench& bench) { bench.desktop.showModal(bench.form.browseForm); },
      [](Bench& bench) {
        QTest::qSleep(50);  // the end is due
        bench.desktop.processEvents();
      },
  };
  for (const auto& wait : waits) {
    Bench bench;
    bench.startWorking();
    bench.later(20, [&] { bench.program.door.run([&] { bench.form.Form_QueryUnload(); }); });
    EXPECT_THROW(wait(bench), ProgramEnded);
    EXPECT_EQ(bench.program.forms.modal(), nullptr);
  }
}

TEST(Locale, HasADecimalCommaInAllOfTheseTests) {
  if (std::localeconv()->decimal_point != std::string(","))
    GTEST_SKIP() << "SKIPPED: the windows were NOT tried with a decimal comma: there is no such locale";
}

TEST(Messages, ShowAllOfTheirTitlesUnlessTheyAreAnswered) {
  Bench bench;
  bench.start();
  bool seen = false;
  bench.later(100, [&] {
    const QWidget& box = *QApplication::activeModalWidget();
    EXPECT_GE(box.width(), box.fontMetrics().horizontalAdvance("Ouput port Err: buttons"));
    seen = true;
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
  });
  bench.desktop.messageBox("text", Icon::critical, "Ouput port Err");
  EXPECT_TRUE(seen);
  bench.desktop.answer = [](const std::string& text, Icon, const std::string&) { return text == "known"; };
  bench.desktop.messageBox("known", Icon::plain, "title");
}

TEST(Activation, RunsWhenTheFocusComesBackFromAFormOfTheProgram) {
  Bench bench;
  bench.startTuned();
  bench.menu("About1");
  FormWindow& about = bench.window(bench.form.aboutForm);
  ASSERT_TRUE(becomesActive(about));
  markLamp(bench);
  bench.window().move(200, 150);
  ASSERT_TRUE(comesTrue([&] { return bench.form.Place.get().Left == 15 * 200; })) << "in twips";
  bench.click("frmAbout.cmdOK");
  EXPECT_TRUE(hasActivated(bench));
  EXPECT_TRUE(comesTrue([&] { return bench.window().pos() == QPoint(0, 0); }));

  // By the window manager: the operator turns to the main window and back, by what is behind it.
  bench.menu("About1");
  ASSERT_TRUE(becomesActive(about));
  markLamp(bench);
  ASSERT_TRUE(becomesActive(bench.window()));
  EXPECT_TRUE(hasActivated(bench));
  bench.menu("About1");
  EXPECT_TRUE(comesTrue([&] { return about.isActiveWindow(); })) << "shown again, it comes to the front";

  about.close();
  EXPECT_FALSE(about.isVisible());
  EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
  EXPECT_EQ(bench.program.forms.active(), &bench.form);
}

TEST(Activation, DoesNotRunWhenAnotherProgramLetsGo) {
  Bench bench;
  bench.startTuned();
  markLamp(bench);
  QWidget other;  // stands for the window of another program
  other.show();
  ASSERT_TRUE(becomesActive(other));
  ASSERT_TRUE(becomesActive(bench.window()));
  EXPECT_FALSE(hasActivated(bench));
}

TEST(Signals, TheFirstClosesTheWindowAndTheNextIsAsItWas) {
  static int plain = 0;
  for (const int number : {SIGTERM, SIGINT}) {
    plain = 0;
    const auto before = std::signal(number, [](int) { ++plain; });
    Bench bench;
    bench.desktop.run(bench.program.forms, bench.program.door, [&] {
      bench.startTuned(true);
      bench.later(0, [number] {
        std::raise(number);
        EXPECT_EQ(plain, 0);
        std::raise(number);
        EXPECT_EQ(plain, 1);
      });
    });
    EXPECT_TRUE(bench.desktop.hasEnded());
    EXPECT_EQ(bench.usb.calls.back(), "close");
    std::signal(number, before);
  }
}

struct Source : EventSource {
  [[nodiscard]] std::vector<Interest> interests() const override { return {{ready, listens, writes}}; }
  [[nodiscard]] bool hasWork() const override { return false; }
  void serve() override { ++served; }
  const int ready = ::eventfd(1, EFD_CLOEXEC);  // always has something to read
  bool listens = false, writes = false;
  int served = 0;
};

TEST(SocketWatch, ServesWhatComesAndEachWakingOnce) {
  Source source;
  std::optional<SocketWatch> watch(std::in_place, source);
  source.listens = true;
  source.changed();
  EXPECT_TRUE(comesTrue([&] { return source.served > 0; }));
  source.listens = false, source.writes = true;
  eventfd_t count = 0;
  ::eventfd_read(source.ready, &count);
  source.changed();
  source.served = 0;
  EXPECT_TRUE(comesTrue([&] { return source.served > 0; })) << "there is room to write";
  source.writes = false;
  source.changed();
  for (const int turn : {1, 2}) {
    source.served = 0;
    for (int i = 0; i < 3; ++i) source.woken();
    EXPECT_EQ(source.served, 0) << "not within what wakes it";
    QTest::qWait(20);
    EXPECT_EQ(source.served, 1) << turn;
  }
  watch.reset();
  EXPECT_FALSE(source.woken || source.changed);
  ::close(source.ready);
}

}  // namespace
}  // namespace tessarine::desktop
