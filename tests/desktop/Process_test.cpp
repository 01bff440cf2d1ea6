// tessarine-virtual as a process of its own: how soon it shows, what it costs, how it ends.
#include <gtest/gtest.h>
#include <signal.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <csignal>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>

#include "desktop/Signals.h"

namespace tessarine::desktop {
namespace {

// A corner of the screen that the window covers when it opens.
QRgb corner() {
  const QPixmap shot = QGuiApplication::primaryScreen()->grabWindow(0, 40, 300, 1, 1);
  return shot.toImage().pixel(0, 0);
}

struct Process : ::testing::Test {
  void start() {
    program.setProgram(QStringLiteral(TESSARINE_VIRTUAL));
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    constexpr QRgb empty = qRgb(0, 0, 0);
    ASSERT_TRUE(QTest::qWaitFor([] { return corner() == empty; }, 30'000)) << "something is in the way";
    QElapsedTimer time;
    time.start();
    program.start();
    while (corner() == empty && time.elapsed() < 30'000) QTest::qSleep(1);
    firstPaintMs = time.elapsed();
    ASSERT_NE(corner(), empty) << "nothing is painted";
  }
  ~Process() override {
    program.kill();
    program.waitForFinished();
  }
  // What the kernel tells of it in a file of /proc, from behind the last `mark` on.
  std::istringstream told(const std::string& file, const std::string& mark) const {
    std::ifstream in("/proc/" + std::to_string(program.processId()) + "/" + file);
    const std::string text((std::istreambuf_iterator<char>(in)), {});
    return std::istringstream(text.substr(text.rfind(mark) + mark.size()));
  }
  long residentKb() const {
    long size = 0;
    told("status", "VmRSS:") >> size;
    return size;
  }
  // The processor time it has used, in clock ticks.
  long ticks() const {
    std::istringstream fields = told("stat", ") ");
    for (int i = 0; i < 11; ++i) fields.ignore(100, ' ');
    long user = 0;
    long system = 0;
    fields >> user >> system;
    return user + system;
  }

  QProcess program;
  qint64 firstPaintMs = 0;
};

TEST_F(Process, ShowsSoonStaysSmallAndIdles) {
  start();
  std::cout << "first paint after " << firstPaintMs << " ms, " << residentKb() << " kB resident\n";
  EXPECT_LT(firstPaintMs, 10'000);
#ifndef TESSARINE_SANITIZE  // it has memory of its own
  EXPECT_LT(residentKb(), 64 * 1024);
#endif
  QTest::qWait(500);
  const long before = ticks();
  EXPECT_GT(before, 0);
  QTest::qWait(2000);
  EXPECT_LE(ticks() - before, 1) << "an idle window costs no processor time";
}

TEST(Signals, AreAskedForOnceAndThenEndAsTheyDid) {
  static int plain = 0;
  const auto before = std::signal(SIGTERM, [](int) { ++plain; });
  int asked = 0;
  {
    const Signals signals([&] { ++asked; });
    std::raise(SIGTERM);
    EXPECT_EQ(plain, 0);
    std::raise(SIGTERM);
    EXPECT_EQ(plain, 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked == 1; }));
  }
  std::signal(SIGTERM, before);
}

TEST_F(Process, EndsOrderlyOnASignal) {
  for (const int number : {SIGTERM, SIGINT}) {
    start();
    QTest::qWait(100);
    ::kill(static_cast<pid_t>(program.processId()), number);
    ASSERT_TRUE(program.waitForFinished(30'000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
  }
}

}  // namespace
}  // namespace tessarine::desktop
