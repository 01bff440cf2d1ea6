// The program under the operator's hands, from the first screen to the words on the wire.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "desktop/Bench.h"
#include "desktop/Painted.h"

namespace tessarine::desktop {
namespace {

using namespace ::testing;
namespace fs = std::filesystem;

TEST(FirstScreen, ShowsTheChoiceAloneThenTheHourglassThenTheWorkingScreen) {
  Bench bench;
  bench.start();
  EXPECT_EQ(bench.window().windowTitle(), "Tessarine  Rev. C0");
  EXPECT_TRUE(bench.shows("ContinueCommand"));
  EXPECT_FALSE(bench.shows("GeneralFrame"));
  EXPECT_THAT(paintedTexts(*bench.find("Picture1")), Contains(std::pair("Tessarine", "#1c252b")));
  bool hourglass = false;
  bench.later(500, [&] { hourglass = QApplication::overrideCursor() != nullptr; });
  QTest::keyClick(&bench.window(), Qt::Key_Return);  // can only mean the one button there
  EXPECT_TRUE(hourglass) << "while the driver starts";
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_TRUE(bench.shows("AllCommand"));
  EXPECT_FALSE(bench.shows("ContinueCommand"));
  EXPECT_TRUE(comesTrue([&] { return bench.find("RefText")->hasFocus(); }));
}

TEST(Modes, AModeBeginsAtItsFirstFieldAndTabGoesDownTheOthers) {
  const char* const fields[] = {"VcoText1", "VcoText2", "HopText", "DelayText"};
  const char* const texts[] = {"900", "925.2", "5", "100"};
  Bench bench;
  bench.startTuned();
  bench.form.VcoText1.Text = "typed over";
  ASSERT_TRUE(becomesActive(bench.window()));
  bench.menu("Hop1");
  EXPECT_TRUE(comesTrue([&] { return bench.find(fields[0])->hasFocus(); }));
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

TEST(Wiring, TheDialogOpensInTheMiddleAndEscapeClosesIt) {
  Bench bench;
  bench.startWorking();
  bench.menu("Parallel");
  FormWindow& dialog = bench.window(bench.form.parallelForm);
  EXPECT_TRUE(comesTrue([&] {
    return (dialog.geometry().center() - bench.window().geometry().center()).manhattanLength() < 60;
  }));
  bench.press("ParallelForm.LPTwText(0)", Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

struct Browse : ::testing::Test {
  Browse() {
    fs::create_directories(folder);
    fs::create_directories(folder.parent_path() / "zone");
    std::ofstream(folder / "low band.txt") << "\n";
    fs::current_path(folder.parent_path());
    bench.startTuned();
    bench.click("ACommand");
  }
  ~Browse() override { fs::current_path(before); }

  // Opens the browser on the function latch's file and acts in it.
  void browse(const std::function<void()>& act) {
    EXPECT_TRUE(becomesActive(bench.window()));
    bench.later(100, [&] {
      EXPECT_TRUE(becomesActive(dialog()));
      act();
    });
    bench.click("Command1");
  }
  FormWindow& dialog() { return bench.window(bench.form.browseForm); }
  void clickRow(const char* name, const std::string& text, bool twice) {
    auto& view = *bench.find<QAbstractItemView>(name);
    const auto found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole,
                                           QString::fromStdString(text), 1, Qt::MatchExactly);
    ASSERT_FALSE(found.isEmpty()) << text;
    const QPoint middle = view.visualRect(found.front()).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middle);
    if (twice) QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, middle);
  }

  const fs::path before = fs::current_path();
  const QTemporaryDir root;
  const fs::path folder = fs::path(root.path().toStdString()) / "bänds and more";
  Bench bench;
};

TEST_F(Browse, PicksAFileWithTheMouseWhileTheMainWindowIsBlocked) {
  bool mainWindowBlocked = false;
  browse([&] {
    EXPECT_EQ(dialog().windowModality(), Qt::ApplicationModal);
    QTest::mouseClick(bench.find("Label31(0)"), Qt::LeftButton);
    mainWindowBlocked = bench.form.Label31(0).value() == "0";
    const TextCanvas directories(*bench.find("BrowseForm.Dir1"));
    std::map<double, std::string> steps;  // by their indentation
    for (std::size_t i = 0; i < directories.notes.texts.size(); ++i)
      steps[directories.notes.places[i].left()] += directories.notes.texts[i].first + " ";
    EXPECT_THAT(
        steps, ElementsAre(Pair(_, "/ "), Pair(_, "tmp "), Pair(_, root.path().toStdString().substr(5) + " "),
                           Pair(_, "bänds and more zone ")));
    clickRow("BrowseForm.Dir1", folder.filename(), true);
    EXPECT_EQ(bench.text("BrowseForm.Label4"), folder.string());
    const QModelIndex first = bench.find<QAbstractItemView>("BrowseForm.File1")->model()->index(0, 0);
    EXPECT_EQ(first.data(Qt::ToolTipRole).toString(), "low band.txt");
    clickRow("BrowseForm.File1", "low band.txt", false);
    EXPECT_EQ(bench.text("BrowseForm.Text2"), "low band.txt");
    bench.click("BrowseForm.Command1");
  });
  EXPECT_TRUE(mainWindowBlocked);
  EXPECT_EQ(bench.text("Text40"), (folder / "low band.txt").string());
}

TEST_F(Browse, PicksAFileWithTheKeyboardAlone) {
  browse([&] {
    bench.press("BrowseForm.Dir1", Qt::Key_B);  // jumps
    bench.press("BrowseForm.Dir1", Qt::Key_Return);
    EXPECT_TRUE(dialog().isVisible()) << "Enter goes into a directory";
    bench.type("BrowseForm.Text2", "low");  // narrows the list
    bench.press("BrowseForm.File1", Qt::Key_Down);
    bench.press("BrowseForm.File1", Qt::Key_Return);
    EXPECT_FALSE(dialog().isVisible()) << "Enter accepts";
  });
  EXPECT_EQ(bench.text("Text40"), (folder / "low band.txt").string());
}

}  // namespace
}  // namespace tessarine::desktop
