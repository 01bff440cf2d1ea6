// The page "Script" of the board's window, and a whole session in the windows.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProcess>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBlock>
#include <fstream>

#include "board/EvaluationBoard.h"
#include "desktop/Bench.h"
#include "desktop/board/ScriptView.h"

namespace tessarine::desktop {
namespace {

QByteArray bytesOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll();
}

struct ScriptPage : ::testing::Test {
  ScriptPage() {
    saving.ask = saving.askToOpen = [this](QWidget&, const FileKind&) { return path; };
    saving.tell = [](const QString&) {};
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
    record("# head\n");
  }
  void record(const std::string& text) {
    recording += text;
    ++version;
    view.take(board, {});
  }
  void press(const char* button) { QTest::mouseClick(&find<QWidget>(button), Qt::LeftButton); }
  template <class Widget>
  Widget& find(const char* name) {
    return *objectIn<Widget>(view, name);
  }
  std::string shown(const char* edit = "scriptText") {
    return find<QPlainTextEdit>(edit).toPlainText().toStdString();
  }
  std::string status() { return find<QLabel>("scriptStatus").text().toStdString(); }
  int markedLine() {
    const auto marks = find<QPlainTextEdit>("scriptText").extraSelections();
    return marks.isEmpty() ? 0 : marks.front().cursor.block().blockNumber() + 1;
  }
  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("x.script"));
  Saving saving;
  std::string recording;
  std::uint64_t version = 0;
  std::function<ScriptEnd(ScriptRun&)> script;
  board::EvaluationBoard board{{[] { return 0; }, [] { return 10.0; }}};
  ScriptView view{{.version = [this] { return version; },
                   .recording = [this] { return recording; },
                   .snapshot = [] { return std::string("# snap\n"); },
                   .run =
                       [this](const std::string& text, const std::string& name, ScriptRun& run) {
                         EXPECT_EQ(text, "one\r\ntwo\nthree\n");
                         EXPECT_EQ(name, "x.script");
                         return script(run);
                       }},
                  saving};
};

TEST_F(ScriptPage, ShowsSavesAndCopiesTheRecordingAndTheSnapshot) {
  record("click A\n");
  EXPECT_EQ(shown(), "# head\nclick A\n");
  recording = "# head\n";
  record("at 5 click B\nclick A\n");  // it came in front
  EXPECT_EQ(shown(), "# head\nat 5 click B\nclick A\n");
  QScrollBar& bar = *find<QPlainTextEdit>("scriptText").verticalScrollBar();
  for (const bool atEnd : {true, false}) {
    record(std::string(100, '\n'));
    EXPECT_EQ(bar.value() == bar.maximum(), atEnd) << "the end in sight stays there";
    bar.setValue(0);
  }
  press("takeSnapshot");
  record("click C\n");
  EXPECT_EQ(shown(), "# snap\n");
  press("copyScript");
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("# snap\n"));
  press("saveScript");
  EXPECT_EQ(bytesOf(path), "# snap\n");
  QTest::keyClick(&find<QWidget>("scriptShown"), Qt::Key_Up);
  EXPECT_TRUE(shown().ends_with("click C\n")) << "the recording again";
}

TEST_F(ScriptPage, RunsAScriptThatCanBeStoppedAndShowsItsLine) {
  std::ofstream(path.toStdString()) << "one\r\ntwo\nthree\n";
  script = [this](ScriptRun& run) {
    run.comesTo(2);
    EXPECT_EQ(status(), "x.script, line 2 of 3");
    EXPECT_EQ(markedLine(), 2);
    run.prints("a\tb\n");
    EXPECT_FALSE(find<QWidget>("runScript").isEnabled());
    EXPECT_EQ(view.focusWidget(), &find<QWidget>("stopScript"))
        << "the keyboard goes from one button to the other";
    view.run(path);  // one at a time
    press("stopScript");
    EXPECT_TRUE(run.isStopped());
    EXPECT_EQ(status(), "x.script stops: line 2 is still at work");
    EXPECT_EQ(view.focusWidget(), &find<QWidget>("scriptText"));
    return ScriptEnd::done;
  };
  press("runScript");
  EXPECT_EQ(status(), "x.script was stopped at line 2");
  EXPECT_EQ(shown("scriptPrinted"), "a\tb");
  script = [](ScriptRun& run) {
    EXPECT_FALSE(run.isStopped());
    run.comesTo(3);
    run.complains("x.script:3: Off is disabled\n");
    return ScriptEnd::refused;
  };
  press("runScript");
  EXPECT_EQ(status(), "x.script:3: Off is disabled");
  EXPECT_EQ(view.focusWidget(), &find<QWidget>("runScript"));
  EXPECT_EQ(markedLine(), 3);
  EXPECT_EQ(shown("scriptPrinted"), "x.script:3: Off is disabled");
}

// What goes over the wires, without the times.
QByteArray wires(const QString& path) {
  QByteArray kept;
  for (const QByteArray& line : bytesOf(path).split('\n'))
    if (!line.startsWith('#')) kept += line + '\n';
  return kept;
}

TEST(ScriptInTheWindows, SendsTheSameAsItsRecording) {
  const QTemporaryDir folder;
  const auto in = [&](const char* name) { return folder.filePath(QString::fromLatin1(name)); };
  std::ofstream(in("hop").toStdString())
      << "click ContinueCommand\npick ADF4113\nset RefText 10\nset CompText 200\nset PrescalarText 8/9\n"
         "click Hop1\nset VcoText1 900\nset VcoText2 905.2\nset HopText 30\nset DelayText 20\n"
         "at 150 click File1\nat 310 click StopHop\nat 400 click Gen1\nclick StartHop\nwait 30\nclick Gen1\n"
         "click ACommand\nclick Command1\nset BrowseForm.Text2 x\nclick BrowseForm.Command2\nclick Exit1\n";
  const QString program = TESSARINE_VIRTUAL;
  EXPECT_EQ(QProcess::execute(program, {"--record", in("recorded"), "--trace", in("1.vcd"), in("hop")}), 0);
  EXPECT_EQ(QProcess::execute(program, {"--trace", in("2.vcd"), in("recorded")}), 0);
  EXPECT_EQ(wires(in("1.vcd")), wires(in("2.vcd")));
  EXPECT_GT(wires(in("1.vcd")).count('\n'), 500);
  std::ofstream(in("end").toStdString()) << "click Exit1\n";
  EXPECT_EQ(QProcess::execute(program, {"--record", "/dev/full", in("end")}), 2);
}

}  // namespace
}  // namespace tessarine::desktop
