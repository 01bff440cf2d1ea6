#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

// A small tree of files that the browser walks; the process's directory is put back afterwards.
struct BrowseFormTest : testing::Test {
  BrowseFormTest() {
    fs::create_directories(root_ / "setups" / "old ones");
    for (const char* name :
         {"setups/adf4113.txt", "setups/ADF4193.txt", "setups/bänd.set", "setups/plain", "top.txt"}) {
      std::ofstream(root_ / name) << "!\n";
    }
    fs::current_path(root_ / "setups");
    bench_.set("Text38", "before");
  }
  ~BrowseFormTest() override {
    fs::current_path(before_);
    fs::remove_all(root_);
  }
  // Clicks "Browse" and works the dialog.
  void browse(const std::function<void()>& work) {
    bench_.host.screen.whileModal = [&](forms::Form&) { work(); };
    bench_.click("Command13");
  }
  Texts files() { return bench_.window.browseForm.File1.List; }
  std::string in(const std::string& name) { return (root_ / name).string(); }

  fs::path before_ = fs::current_path();
  fs::path root_ = fs::canonical(fs::path(testing::TempDir())) / ("browse" + std::to_string(::getpid()));
  ProgramBench bench_{"ADF4193"};
};

TEST_F(BrowseFormTest, TakesThePickedFile) {
  bench_.host.host.roots = {"/", in("set")};
  browse([&] {
    EXPECT_EQ(bench_.window.browseForm.Place.get().Left, 4170);
    EXPECT_EQ(bench_.value("BrowseForm.Label4"), in("setups"));
    EXPECT_EQ(files(), (Texts{"ADF4193.txt", "adf4113.txt", "bänd.set", "plain"}));
    bench_.set("BrowseForm.File1", "adf4113.txt");
    EXPECT_EQ(bench_.value("BrowseForm.Text2"), "adf4113.txt");
    EXPECT_TRUE(bench_.program.door.click(bench_.window.AllCommand)) << "the main window is blocked";
    bench_.click("BrowseForm.Command1");
  });
  EXPECT_EQ(bench_.value("Text38"), in("setups/adf4113.txt"));
  EXPECT_EQ(bench_.program.module.BrowseFileName, "adf4113.txt");
  EXPECT_EQ(bench_.program.module.BrowsePath, in("setups"));
  EXPECT_EQ(bench_.program.module.BrowseDrive, "/");
}

TEST_F(BrowseFormTest, CancelKeepsTheTextAndTheDirectory) {
  browse([&] {
    bench_.set("BrowseForm.Dir1", in("setups/old ones"));
    bench_.set("BrowseForm.Text1", "*.x");
    bench_.click("BrowseForm.Command2");
  });
  EXPECT_EQ(bench_.value("Text38"), "before");
  browse([&] {
    EXPECT_EQ(bench_.value("BrowseForm.Label4"), in("setups/old ones"));
    EXPECT_EQ(bench_.value("BrowseForm.Text1"), "*.*");
    EXPECT_EQ(bench_.value("BrowseForm.Text2"), "");
    bench_.click("BrowseForm.Command2");
  });
}

TEST_F(BrowseFormTest, ListsFollowDirectoryPatternAndName) {
  browse([&] {
    auto& form = bench_.window.browseForm;
    bench_.set("BrowseForm.Text1", "*.txt; *.set");
    EXPECT_EQ(files(), (Texts{"ADF4193.txt", "adf4113.txt", "bänd.set"}));
    bench_.set("BrowseForm.Text2", "ADF");
    EXPECT_EQ(form.File1.Pattern.get(), "ADF*.*");
    EXPECT_EQ(files(), Texts{"ADF4193.txt"});
    bench_.set("BrowseForm.Text1", "b?nd*");
    EXPECT_EQ(files(), Texts{"bänd.set"});
    bench_.set("BrowseForm.Dir1", "old ones");
    EXPECT_TRUE(files().empty());
    EXPECT_EQ(fs::current_path(), root_ / "setups" / "old ones");
    // Up again by a line of the list, as a double click does it.
    form.Dir1.ListIndex = form.Dir1.depth() - 3;
    EXPECT_FALSE(bench_.program.door.doubleClick(form.Dir1));
    EXPECT_EQ(bench_.value("BrowseForm.Label4"), root_.string());
    bench_.click("BrowseForm.Command2");
  });
}

TEST_F(BrowseFormTest, DoubleClickAcceptsAndTypedTextsPassUnchecked) {
  browse([&] {
    bench_.set("BrowseForm.File1", "plain");
    EXPECT_FALSE(bench_.program.door.doubleClick(bench_.window.browseForm.File1));
  });
  EXPECT_EQ(bench_.value("Text38"), in("setups/plain"));
  browse([&] { bench_.click("BrowseForm.Command1"); });
  EXPECT_EQ(bench_.value("Text38"), in("setups/")) << "no name: the directory";
  browse([&] {
    bench_.set("BrowseForm.Dir1", "/");
    bench_.set("BrowseForm.Text2", "no such file");
    bench_.click("BrowseForm.Command1");
  });
  EXPECT_EQ(bench_.value("Text38"), "/no such file") << "at the root no second separator";
}

TEST_F(BrowseFormTest, DriveThatCannotBeEnteredFallsBack) {
  bench_.host.host.roots = {"/", in("setups"), in("gone")};
  browse([&] {
    EXPECT_EQ(bench_.value("BrowseForm.Drive1"), in("setups"));
    bench_.set("BrowseForm.Drive1", in("gone"));
    EXPECT_EQ(bench_.value("BrowseForm.Drive1"), in("setups"));
    EXPECT_EQ(bench_.value("BrowseForm.Label4"), in("setups"));
    bench_.set("BrowseForm.Drive1", "/");
    EXPECT_EQ(bench_.value("BrowseForm.Label4"), "/");
    bench_.click("BrowseForm.Command2");
  });
  EXPECT_TRUE(bench_.messages().empty());
}

TEST_F(BrowseFormTest, DirectoriesThatVanishOrCannotBeReadLoseNothing) {
  browse([&] {
    fs::remove_all(root_ / "setups" / "old ones");
    bench_.set("BrowseForm.Dir1", "old ones");
    EXPECT_EQ(bench_.value("BrowseForm.Label4"), in("setups"));
    EXPECT_EQ(bench_.window.browseForm.Dir1.List.get().back(), "setups") << "taken off the list";
    bench_.click("BrowseForm.Command2");
  });
  fs::remove_all(root_ / "setups");
  browse([&] {
    EXPECT_EQ(bench_.value("BrowseForm.Label4"), "/");
    bench_.click("BrowseForm.Command2");
  });
  EXPECT_TRUE(bench_.messages().empty());
}

TEST(FilePattern, MatchesAsFileDialogsDo) {
  const struct {
    const char* name;
    const char* pattern;
    bool matches;
  } rows[] = {{"a.txt", "*.*", true},
              {"plain", "*.*", true},
              {"plain", "*.", false},
              {".rc", "*.*", false},
              {".rc", "*;.r*", true},
              {"plain", "pl*.*", true},
              {"a.txt", "*.set", false},
              {"a.txt", "*.set;*.txt", true},
              {"a.txt", "?.txt", true},
              {"ab.txt", "?.txt", false},
              {"ä.txt", "?.txt", true},
              {"A.TXT", "*.txt", false},
              {"a.txt", "", false},
              {"aXbXc", "a*X*c", true},
              {"aaaaaaaaaaaaaaaaaaaaaaaaab", "*a*a*a*a*a*a*a*c", false}};
  for (const auto& row : rows) {
    EXPECT_EQ(forms::matchesPattern(row.name, row.pattern), row.matches) << row.name << " " << row.pattern;
  }
}

}  // namespace
}  // namespace tessarine
