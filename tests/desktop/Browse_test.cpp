// The file browser by mouse and keyboard, from the Browse button to a word that was made from the file.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAbstractItemView>
#include <QTimer>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "desktop/Bench.h"

namespace tessarine::desktop {
namespace {

namespace fs = std::filesystem;

const QString kFolder = QStringLiteral("bänds and more");

struct Browse : ::testing::Test {
  Browse() : before(fs::current_path()) {
    fs::remove_all(root);
    fs::create_directories(folder);
    std::ofstream(folder / "low band.txt") << "800 1000 101\n1000 2000 011\nend\n";
    std::ofstream(folder / "other.dat") << "\n";
    std::ofstream(root / "alone.txt") << "\n";
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
    QTimer::singleShot(100, &bench.window(), [&] {
      EXPECT_TRUE(becomesActive(dialog()));
      act();
    });
    bench.click("Command1");
  }
  FormWindow& dialog() { return bench.window(bench.form().browseForm); }
  QAbstractItemView& list(const char* name) { return *bench.find<QAbstractItemView>(name); }
  int rows(const char* name) { return list(name).model()->rowCount(); }
  void clickRow(const char* name, const QString& text, bool twice) {
    QAbstractItemView& view = list(name);
    const auto found =
        view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly);
    ASSERT_FALSE(found.isEmpty()) << text.toStdString();
    view.scrollTo(found.front());
    const QPoint middle = view.visualRect(found.front()).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middle);
    if (twice) QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, middle);
  }

  const fs::path root = fs::temp_directory_path() / ("browse test " + std::to_string(::getpid()));
  const fs::path folder = root / kFolder.toStdString();
  const fs::path before;
  Bench bench;
};

TEST_F(Browse, PicksAFileWithTheMouseAndTheWordIsMadeFromIt) {
  bool mainWindowBlocked = false;
  browse([&] {
    EXPECT_TRUE(dialog().isModal());
    QTest::mouseClick(bench.find("Label31(0)"), Qt::LeftButton);
    mainWindowBlocked = bench.form().Label31(0).value() == "0";
    clickRow("BrowseForm.Dir1", kFolder, true);
    EXPECT_EQ(bench.text("BrowseForm.Label4"), folder.string());
    clickRow("BrowseForm.File1", QStringLiteral("low band.txt"), false);
    EXPECT_EQ(bench.text("BrowseForm.Text2"), "low band.txt");
    bench.click("BrowseForm.Command1");
  });
  EXPECT_TRUE(mainWindowBlocked);
  const std::string taken = (folder / "low band.txt").string();
  EXPECT_EQ(bench.text("Text40"), taken);
  bench.click("AllCommand");
  // 900 MHz lies in the first band: its code takes the place of current setting 2.
  EXPECT_EQ(bench.text("Fregister").substr(3, 3), "101");

  browse([&] {
    clickRow("BrowseForm.File1", QStringLiteral("other.dat"), false);
    bench.press("BrowseForm.Text1", Qt::Key_Escape);
  });
  EXPECT_EQ(bench.text("Text40"), taken) << "Cancel keeps it";
  browse([&] {
    EXPECT_EQ(bench.text("BrowseForm.Label4"), folder.string()) << "where it was last";
    clickRow("BrowseForm.File1", QStringLiteral("other.dat"), true);
    EXPECT_FALSE(dialog().isVisible()) << "a double click accepts";
  });
  EXPECT_EQ(bench.text("Text40"), (folder / "other.dat").string());
}

TEST_F(Browse, PicksAFileWithTheKeyboardAlone) {
  browse([&] {
    list("BrowseForm.Dir1").setFocus();
    QTest::keyClicks(&list("BrowseForm.Dir1"), "b");  // jumps
    bench.press("BrowseForm.Dir1", Qt::Key_Return);
    EXPECT_TRUE(dialog().isVisible()) << "Enter goes into a directory";
    bench.find("BrowseForm.Text2")->setFocus();
    QTest::keyClicks(bench.find("BrowseForm.Text2"), "low");
    EXPECT_EQ(rows("BrowseForm.File1"), 1) << "typing narrows the list";
    bench.press("BrowseForm.File1", Qt::Key_Down);
    bench.press("BrowseForm.File1", Qt::Key_Return);
    EXPECT_FALSE(dialog().isVisible()) << "Enter accepts";
  });
  EXPECT_EQ(bench.text("Text40"), (folder / "low band.txt").string());
}

TEST_F(Browse, ShowsWhatIsThereOfWhatVanishesOrIsVeryLong) {
  const fs::path many = root / "many";
  fs::create_directories(many);
  for (int i = 0; i < 20'000; ++i)
    fs::create_hard_link(root / "alone.txt", many / ("phase" + std::to_string(10'000 + i) + ".txt"));
  browse([&] {
    bench.type("BrowseForm.Text1", "*.txt");
    EXPECT_EQ(rows("BrowseForm.File1"), 1);
    clickRow("BrowseForm.Dir1", kFolder, false);
    fs::remove_all(folder);
    bench.press("BrowseForm.Dir1", Qt::Key_Return);
    EXPECT_EQ(bench.text("BrowseForm.Label4"), root.string());
    bench.pick("BrowseForm.Drive1", 0);
    const std::clock_t start = std::clock();
    clickRow("BrowseForm.Dir1", QStringLiteral("many"), true);
    QCoreApplication::processEvents();
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC) << "a pause that is felt";
    EXPECT_EQ(rows("BrowseForm.File1"), 20'000);
    dialog().close();
  });
  EXPECT_EQ(bench.text("Text40"), "");
}

}  // namespace
}  // namespace tessarine::desktop
