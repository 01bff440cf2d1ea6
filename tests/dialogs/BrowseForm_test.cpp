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
struct BrowseFormTest : testing::Test, ProgramBench {
  BrowseFormTest() : ProgramBench("ADF4193") {
    fs::create_directories(root / "setups" / "old ones");
    for (const char* name :
         {"setups/adf4113.txt", "setups/ADF4193.txt", "setups/bänd.set", "setups/plain", "top.txt"}) {
      std::ofstream(root / name) << "!\n";
    }
    fs::current_path(root / "setups");
    set("Text38", "before");
  }
  ~BrowseFormTest() override {
    fs::current_path(before);
    fs::remove_all(root);
  }
  // Clicks "Browse" and works the dialog; what the field of the file then holds.
  std::string browse(const std::function<void()>& work) {
    host.screen.whileModal = [&](Form&) { work(); };
    click("Command13");
    EXPECT_TRUE(messages().empty());
    return value("Text38");
  }
  Texts files() { return form.File1.List; }
  [[nodiscard]] std::string in(const std::string& name) const { return (root / name).string(); }

  BrowseForm& form = window.browseForm;
  fs::path before = fs::current_path();
  fs::path root = fs::canonical(fs::path(testing::TempDir())) / ("browse" + std::to_string(::getpid()));
};

TEST_F(BrowseFormTest, TakesThePickedFile) {
  host.host.roots = {"/", in("set")};
  const std::string taken = browse([&] {
    EXPECT_EQ(form.Place.get(), (Twips{4170, 2715, 8160, 5370}));
    EXPECT_EQ(value("BrowseForm.Label4"), in("setups"));
    EXPECT_EQ(files(), (Texts{"ADF4193.txt", "adf4113.txt", "bänd.set", "plain"}));
    set("BrowseForm.File1", "adf4113.txt");
    EXPECT_EQ(value("BrowseForm.Text2"), "adf4113.txt");
    EXPECT_TRUE(program.door.click(window.AllCommand)) << "the main window is blocked";
    click("BrowseForm.Command1");
  });
  EXPECT_EQ(taken, in("setups/adf4113.txt"));
  EXPECT_EQ(program.module.BrowseFileName, "adf4113.txt");
  EXPECT_EQ(program.module.BrowsePath, in("setups"));
  EXPECT_EQ(program.module.BrowseDrive, "/");
}

TEST_F(BrowseFormTest, CancelKeepsTheTextAndTheDirectory) {
  const std::string kept = browse([&] {
    set({{"BrowseForm.Dir1", in("setups/old ones/")}, {"BrowseForm.Text1", "*.x"}});
    EXPECT_EQ(value("BrowseForm.Label4"), in("setups/old ones"));
    click("BrowseForm.Command2");
  });
  EXPECT_EQ(kept, "before");
  fs::create_directory(root / "setups" / "old ones" / "new");
  browse([&] {
    EXPECT_EQ(value("BrowseForm.Label4"), in("setups/old ones"));
    EXPECT_EQ(value("BrowseForm.Text1"), "*.*");
    EXPECT_EQ(value("BrowseForm.Text2"), "");
    EXPECT_EQ(form.Dir1.List.get().back(), "new") << "looked at anew";
  });
}

TEST_F(BrowseFormTest, ListsFollowDirectoryPatternAndName) {
  browse([&] {
    set("BrowseForm.File1", "plain");
    set("BrowseForm.Text1", "*.txt; *.set");
    EXPECT_EQ(form.File1.ListIndex.get(), -1);
    EXPECT_EQ(files(), (Texts{"ADF4193.txt", "adf4113.txt", "bänd.set"}));
    set("BrowseForm.Text2", "ADF");
    EXPECT_EQ(files(), Texts{"ADF4193.txt"});
    set("BrowseForm.Text1", "b?nd*");
    EXPECT_EQ(files(), Texts{"bänd.set"});
    set("BrowseForm.Dir1", "old ones");
    EXPECT_TRUE(files().empty());
    EXPECT_EQ(fs::current_path(), root / "setups" / "old ones");
    // Up again by a line of the list, as a double click does it.
    form.Dir1.ListIndex = form.Dir1.depth() - 3;
    EXPECT_FALSE(program.door.doubleClick(form.Dir1));
    EXPECT_EQ(value("BrowseForm.Label4"), root.string());
  });
}

TEST_F(BrowseFormTest, TypedTextsPassUnchecked) {
  EXPECT_EQ(browse([&] { click("BrowseForm.Command1"); }), in("setups/")) << "no name: the directory";
  const std::string typed = browse([&] {
    set({{"BrowseForm.Dir1", "/"}, {"BrowseForm.Text2", "no such file"}});
    click("BrowseForm.Command1");
  });
  EXPECT_EQ(typed, "/no such file") << "at the root no second separator";
  browse(
      [&] { EXPECT_EQ(form.File1.Pattern.get() + value("BrowseForm.Text2"), "*.*") << "nothing is kept"; });
}

TEST_F(BrowseFormTest, DriveThatCannotBeEnteredFallsBack) {
  host.host.roots = {"/", in("setups"), in("gone")};
  browse([&] {
    EXPECT_EQ(value("BrowseForm.Drive1"), in("setups"));
    set("BrowseForm.Drive1", in("gone"));
    EXPECT_EQ(value("BrowseForm.Drive1"), in("setups"));
    EXPECT_EQ(value("BrowseForm.Label4"), in("setups"));
    set("BrowseForm.Drive1", "/");
    EXPECT_EQ(value("BrowseForm.Label4"), "/");
  });
}

TEST_F(BrowseFormTest, DirectoriesThatVanishOrCannotBeReadLoseNothing) {
  browse([&] {
    fs::remove_all(root / "setups" / "old ones");
    set("BrowseForm.Dir1", "old ones");
    EXPECT_EQ(value("BrowseForm.Label4"), in("setups"));
    EXPECT_EQ(form.Dir1.List.get().back(), "setups") << "taken off the list";
  });
  fs::remove_all(root / "setups");
  browse([&] { EXPECT_EQ(value("BrowseForm.Label4"), "/"); });
}

TEST(FilePattern, MatchesAsFileDialogsDo) {
  const Texts names = {"a.txt", "ab.txt", "A.TXT", "plain", "ä.txt", "aXbXc", ".rc"};
  const struct {
    const char* pattern;
    Texts matches;
  } rows[] = {{"*.*", {"a.txt", "ab.txt", "A.TXT", "plain", "ä.txt", "aXbXc"}},
              {"*;.r*", names},
              {"*.", {}},
              {"", {}},
              {"pl*.*", {"plain"}},
              {"*.set;*.txt", {"a.txt", "ab.txt", "ä.txt"}},
              {"?.txt", {"a.txt", "ä.txt"}},
              {"a*X*c", {"aXbXc"}}};
  for (const auto& row : rows) {
    Texts matching = names;
    std::erase_if(matching, [&](const auto& name) { return !matchesPattern(name, row.pattern); });
    EXPECT_EQ(matching, row.matches) << row.pattern;
  }
}

}  // namespace
}  // namespace tessarine
