// The file browser by mouse and keyboard.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAbstractItemView>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "desktop/Bench.h"

namespace tessarine::desktop {
namespace {

namespace fs = std::filesystem;

struct Browse : ::testing::Test {
  Browse() {
    fs::create_directories(folder);
    std::ofstream(folder / "low band.txt") << "\n";
    std::ofstream(folder / "other.dat") << "\n";
    fs::current_path(root);
    bench.startTuned();
    bench.click("ACommand");
  }
  ~Browse() override {
    fs::current_path(before);
    fs::remove_all(root);
  }

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
  const fs::path root = fs::temp_directory_path() / ("browse test " + std::to_string(::getpid()));
  const fs::path folder = root / "bänds and more";
  Bench bench;
};

TEST_F(Browse, PicksAFileWithTheMouseWhileTheMainWindowIsBlocked) {
  bool mainWindowBlocked = false;
  browse([&] {
    EXPECT_EQ(dialog().windowModality(), Qt::ApplicationModal);
    QTest::mouseClick(bench.find("Label31(0)"), Qt::LeftButton);
    mainWindowBlocked = bench.form.Label31(0).value() == "0";
    clickRow("BrowseForm.Dir1", folder.filename(), true);
    EXPECT_EQ(bench.text("BrowseForm.Label4"), folder.string());
    clickRow("BrowseForm.File1", "low band.txt", false);
    EXPECT_EQ(bench.text("BrowseForm.Text2"), "low band.txt");
    bench.click("BrowseForm.Command1");
  });
  EXPECT_TRUE(mainWindowBlocked);
  const std::string taken = (folder / "low band.txt").string();
  EXPECT_EQ(bench.text("Text40"), taken);

  browse([&] {
    clickRow("BrowseForm.File1", "other.dat", false);
    bench.press("BrowseForm.Text1", Qt::Key_Escape);
  });
  EXPECT_EQ(bench.text("Text40"), taken) << "Cancel keeps it";
  browse([&] {
    clickRow("BrowseForm.File1", "other.dat", true);
    EXPECT_FALSE(dialog().isVisible()) << "a double click accepts";
  });
  EXPECT_EQ(bench.text("Text40"), (folder / "other.dat").string());
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
  browse([&] { dialog().close(); });
  EXPECT_EQ(bench.text("Text40"), (folder / "low band.txt").string());
}

}  // namespace
}  // namespace tessarine::desktop
