#include "dialogs/BrowseForm.h"

#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/Fault.h"
#include "platform/Platform.h"

namespace tessarine {

namespace {

constexpr const char* kAnyFile = "*.*";
constexpr const char* kLastResort = "/";  // the one drive that is always there
constexpr char kSeparator = '/';

// True while a change by the form itself must not be followed as if the operator had made it.
class Following {
 public:
  explicit Following(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~Following() { flag_ = before_; }
  Following(const Following&) = delete;
  Following& operator=(const Following&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

BrowseForm::BrowseForm(forms::FormList& forms, Module1& module)
    : Form(forms, "BrowseForm", "Browse"), module_(module) {
  Place.start(forms::at(0, 0, 8160, 5370));
}

void BrowseForm::Form_Load() {
  const Following following(settingDrive_);
  const forms::Twips place = Place;
  Move(4170, 2715, place.Width, place.Height);
  Text1.Text = kAnyFile;
  Text2.Text = "";
  File1.Pattern = std::string(kAnyFile);
  ignoringErrors("no drive can be asked for: the root stays",
                 [&] { Drive1.List = module_.platform.host.drives(); });
  std::error_code vanished;
  std::string start = std::filesystem::current_path(vanished).string();
  if (vanished) start = kLastResort;
  Drive1.select(start);
  // An unreadable directory is shown all the same, with empty lists.
  if (Dir1.Path == start) {
    Dir1.refresh();
    Dir1_Change();
  } else {
    Dir1.Path = start;
  }
}

void BrowseForm::Drive1_Change() {
  if (settingDrive_) return;
  const Following following(settingDrive_);
  const std::string drive = Drive1.picked();
  try {
    std::filesystem::current_path(drive);
    Dir1.enter(drive);
  } catch (const std::exception&) {
    std::error_code vanished;
    std::filesystem::current_path(Dir1.Path.get(), vanished);
    // No medium, no permission: back to the drive of the directory on show.
    if (!Drive1.select(Dir1.Path)) Drive1.select(kLastResort);
  }
}

void BrowseForm::Dir1_Change() {
  std::error_code unreadable;
  std::filesystem::current_path(Dir1.Path.get(), unreadable);
  Label4.Caption = Dir1.Path.get();
  if (File1.Path == Dir1.Path.get()) {
    File1.refresh();
  } else {
    File1.Path = Dir1.Path.get();
  }
}

void BrowseForm::File1_Click() { Text2.Text = File1.FileName(); }

void BrowseForm::File1_DblClick() { Command1_Click(); }

void BrowseForm::Text1_Change() { File1.Pattern = Text1.Text.get(); }

void BrowseForm::Text2_KeyUp() { File1.Pattern = Text2.Text.get() + kAnyFile; }

void BrowseForm::Command1_Click() {
  std::string path = Label4.Caption;
  if (!path.ends_with(kSeparator)) path += kSeparator;
  module_.BrowseResult = path + Text2.Text.get();
  module_.BrowsePath = Dir1.Path;
  module_.BrowseDrive = Drive1.picked();
  module_.BrowseFileName = Text2.Text;
  Unload();
}

void BrowseForm::Command2_Click() { Unload(); }

}  // namespace tessarine
