// tessarine-virtual as a process of its own: how soon it shows, what it costs, how it ends.
#include <gtest/gtest.h>
#include <signal.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <fstream>
#include <sstream>
#include <string>

namespace tessarine::desktop {
namespace {

// A corner of the screen that the window covers when it opens.
QRgb corner() {
  const QPixmap shot = QGuiApplication::primaryScreen()->grabWindow(0, 40, 300, 1, 1);
  return shot.toImage().pixel(0, 0);
}

class Process : public ::testing::Test {
 protected:
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
  void TearDown() override {
    program.kill();
    program.waitForFinished();
  }
  // A number of the kernel's status file, in kB.
  long status(const std::string& key) const {
    std::ifstream file("/proc/" + std::to_string(program.processId()) + "/status");
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with(key + ":")) return std::stol(line.substr(key.size() + 1));
    }
    return -1;
  }
  // The processor time it has used, in clock ticks.
  long ticks() const {
    std::ifstream file("/proc/" + std::to_string(program.processId()) + "/stat");
    std::string text((std::istreambuf_iterator<char>(file)), {});
    std::istringstream fields(text.substr(text.rfind(')') + 2));
    std::string skipped;
    for (int i = 0; i < 11; ++i) fields >> skipped;
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
  RecordProperty("firstPaintMs", static_cast<int>(firstPaintMs));
  RecordProperty("residentKb", static_cast<int>(status("VmRSS")));
  std::cout << "first paint after " << firstPaintMs << " ms, " << status("VmRSS") << " kB resident\n";
  QTest::qWait(500);
  const long before = ticks();
  QTest::qWait(2000);
  EXPECT_LE(ticks() - before, 1) << "an idle window costs no processor time";
  EXPECT_LT(firstPaintMs, 10'000);
#ifndef __SANITIZE_ADDRESS__
  EXPECT_LT(status("VmRSS"), 64 * 1024);
#endif
}

TEST_F(Process, EndsOrderlyOnASignal) {
  for (const int number : {SIGTERM, SIGINT}) {
    start();
    QTest::qWait(100);
    ::kill(static_cast<pid_t>(program.processId()), number);
    ASSERT_TRUE(program.waitForFinished(30'000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    QTest::qWait(200);
  }
}

}  // namespace
}  // namespace tessarine::desktop
