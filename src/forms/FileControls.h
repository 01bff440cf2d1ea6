// Lists of the host's drives, directories and files. They read the host's file system; what cannot be read is
// left out of the list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/Controls.h"

namespace tessarine::forms {

// The drives of the host; where it has no drive letters, the root and the mounted volumes.
class DriveListBox : public Of<Kind::DriveListBox, ListControl> {
 public:
  using Of::Of;
  [[nodiscard]] std::string value() const override { return picked(); }
  // Selects the drive that holds `path`, the longest match; false where none does.
  bool select(const std::string& path);

 protected:
  void changed(Aspect aspect) override;  // ListIndex raises Change
};

// The directories on the way down to Path, then those below it. Entering one (double click, Enter) moves
// Path.
class DirListBox : public Of<Kind::DirListBox, ListControl> {
 public:
  using Of::Of;
  [[nodiscard]] std::string value() const override { return Path; }
  [[nodiscard]] static bool canEnter(const std::string& path);
  // Moves to a directory. Throws std::filesystem::filesystem_error when it cannot be read.
  void enter(const std::string& path);
  // Moves to the directory of a list line; one that has vanished is taken off the list instead.
  void enterItem(int item);
  // The directory of a list line, empty for none.
  [[nodiscard]] std::string pathOf(int item) const;
  // How many of the list's lines lead down to Path; the others stand below it.
  [[nodiscard]] int depth() const { return depth_; }
  void refresh();
  Effect onDoubleClick() override;
  Effect onSet(std::string_view value) override;

  Property<std::string> Path{*this, Aspect::Text};

 protected:
  void changed(Aspect aspect) override;  // Path raises Change

 private:
  void rebuild();
  std::vector<std::string> paths_;  // the full path of each line
  int depth_ = 0;
};

// The files of Path whose names match Pattern: "*" and "?", several patterns parted by ";"; "*.*" is every
// file.
class FileListBox : public Of<Kind::FileListBox, ListControl> {
 public:
  using Of::Of;
  [[nodiscard]] std::string value() const override { return picked(); }
  [[nodiscard]] std::string FileName() const { return picked(); }
  void refresh() { rebuild(); }

  Property<std::string> Path{*this, Aspect::Text};
  Property<std::string> Pattern{*this, Aspect::Value, "*.*"};

 protected:
  void changed(Aspect aspect) override;  // ListIndex raises Click
  // A click on the file that is selected already counts: its name may have been cleared since.
  void take(int item) override;

 private:
  void rebuild();
};

// Whether a file name matches a pattern, letter case as the host has it.
[[nodiscard]] bool matchesPattern(std::string_view name, std::string_view patterns);

}  // namespace tessarine::forms
