// The file browser by mouse and keyboard, from the Browse button to a word that was made from the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "desktop/Bench.h"

namespace tessarine::desktop {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class Browse : public ::testing::Test {
 protected:
  Browse() : before_(fs::current_path()) {
    fs::remove_all(root);
    fs::create_directories(root / "bänds and more" / "deep");
    std::ofstream(root / "bänds and more" / "low band.txt") << "800 1000 101\n1000 2000 011\nend\n";
    std::ofstream(root / "bänds and more" / "other.dat") << "\n";
    std::ofstream(root / "alone.txt") << "\n";
    fs::current_path(root);
    bench.startTuned();
    bench.click("ACommand");
  }
  ~Browse() override {
    fs::current_path(before_);
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
  void clickRow(const char* name, const QString& text, bool twice) {
    QAbstractItemView& view = list(name);
    const auto rows =
        view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly);
    ASSERT_FALSE(rows.isEmpty()) << text.toStdString();
    view.scrollTo(rows.front());
    const QPoint middle = view.visualRect(rows.front()).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middle);
    if (twice) QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, middle);
  }

  const fs::path root = fs::temp_directory_path() / "tessarine browse test";
  Bench bench;

 private:
  fs::path before_;
};

TEST_F(Browse, PicksAFileWithTheMouseAndTheWordIsMadeFromIt) {
  bool mainWindowBlocked = false;
  browse([&] {
    QTest::mouseClick(bench.find("Label31(0)"), Qt::LeftButton);
    mainWindowBlocked = bench.form().Label31(0).value() == "0";
    clickRow("BrowseForm.Dir1", QStringLiteral("bänds and more"), true);
    EXPECT_EQ(bench.find<QLabel>("BrowseForm.Label4")->text().toStdString(),
              (root / "bänds and more").string());
    clickRow("BrowseForm.File1", QStringLiteral("low band.txt"), false);
    EXPECT_EQ(bench.find<QLineEdit>("BrowseForm.Text2")->text(), "low band.txt");
    bench.click("BrowseForm.Command1");
  });
  EXPECT_TRUE(mainWindowBlocked);
  EXPECT_EQ(bench.form().Text40.value(), (root / "bänds and more" / "low band.txt").string());
  bench.click("AllCommand");
  // 900 MHz lies in the first band: its code takes the place of current setting 2.
  EXPECT_EQ(bench.find<QLabel>("Fregister")->text().mid(3, 3), "101");
}

TEST_F(Browse, PicksAFileWithTheKeyboardAlone) {
  browse([&] {
    QWidget& directories = list("BrowseForm.Dir1");
    directories.setFocus();
    QTest::keyClicks(&directories, "b");  // jumps
    QTest::keyClick(&directories, Qt::Key_Return);
    EXPECT_TRUE(dialog().isVisible()) << "Enter goes into a directory";
    QWidget* const name = bench.find("BrowseForm.Text2");
    name->setFocus();
    QTest::keyClicks(name, "low");
    EXPECT_EQ(list("BrowseForm.File1").model()->rowCount(), 1) << "typing narrows the list";
    QWidget& files = list("BrowseForm.File1");
    files.setFocus();
    QTest::keyClick(&files, Qt::Key_Down);
    QTest::keyClick(&files, Qt::Key_Return);
    EXPECT_FALSE(dialog().isVisible()) << "Enter accepts";
  });
  EXPECT_EQ(bench.form().Text40.value(), (root / "bänds and more" / "low band.txt").string());
}

TEST_F(Browse, CancelKeepsTheTextAndTheDirectoryIsWhereItWasLast) {
  bench.type("Text40", "as before");
  browse([&] {
    clickRow("BrowseForm.Dir1", QStringLiteral("bänds and more"), true);
    QTest::keyClick(bench.find("BrowseForm.Text1"), Qt::Key_Escape);
  });
  EXPECT_EQ(bench.form().Text40.value(), "as before");
  browse([&] {
    EXPECT_EQ(bench.find<QLabel>("BrowseForm.Label4")->text().toStdString(),
              (root / "bänds and more").string());
    clickRow("BrowseForm.File1", QStringLiteral("other.dat"), true);
    EXPECT_FALSE(dialog().isVisible()) << "a double click accepts";
  });
  EXPECT_EQ(bench.form().Text40.value(), (root / "bänds and more" / "other.dat").string());
}

TEST_F(Browse, ShowsWhatCanBeShownOfWhatVanishesOrChanges) {
  browse([&] {
    bench.type("BrowseForm.Text1", "*.txt");
    EXPECT_EQ(list("BrowseForm.File1").model()->rowCount(), 1);
    clickRow("BrowseForm.Dir1", QStringLiteral("bänds and more"), false);
    fs::remove_all(root / "bänds and more");
    QTest::keyClick(&list("BrowseForm.Dir1"), Qt::Key_Return);
    EXPECT_EQ(bench.find<QLabel>("BrowseForm.Label4")->text().toStdString(), root.string());
    bench.pick("BrowseForm.Drive1", 0);
    EXPECT_TRUE(dialog().isVisible());
    dialog().close();
  });
  EXPECT_EQ(bench.form().Text40.value(), "");
}

TEST_F(Browse, OpensAFolderOfTensOfThousandsOfFilesWithoutAFeltPause) {
  const fs::path many = root / "many";
  fs::create_directories(many);
  for (int i = 0; i < 20'000; ++i) std::ofstream(many / ("phase" + std::to_string(10'000 + i) + ".txt"));
  browse([&] {
    const std::clock_t before = std::clock();
    clickRow("BrowseForm.Dir1", QStringLiteral("many"), true);
    QCoreApplication::processEvents();
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC);
    EXPECT_EQ(list("BrowseForm.File1").model()->rowCount(), 20'000);
    dialog().close();
  });
}

}  // namespace
}  // namespace tessarine::desktop
