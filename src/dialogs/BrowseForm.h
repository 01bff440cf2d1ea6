// The program's own file picker. The picked path is handed back through the shared strings of Module1.
#pragma once

#include "engine/Module1.h"
#include "forms/Build.h"
#include "forms/FileControls.h"
#include "forms/Form.h"

namespace tessarine {

class BrowseForm : public forms::Form {
 public:
  BrowseForm(forms::FormList& forms, Module1& module);

  void Form_Load() override;
  void Drive1_Change();
  void Dir1_Change();
  void File1_Click();
  void File1_DblClick();
  void Text1_Change();
  void Text2_KeyUp();
  void Command1_Click();
  void Command2_Click();

  // clang-format off
  forms::One<forms::Label>   Label1 {*this, "Label1", "Select File:", {}, forms::heading};
  forms::One<forms::Label>   Label2 {*this, "Label2", "Search File:", {}};
  forms::One<forms::TextBox> Text1  {*this, "Text1", "*.*", {}, forms::change(this, &BrowseForm::Text1_Change)};
  forms::One<forms::Label>   Label3 {*this, "Label3", "File Name:", {}};
  forms::One<forms::TextBox> Text2  {*this, "Text2", "", {}, forms::keyUp(this, &BrowseForm::Text2_KeyUp)};
  forms::One<forms::DriveListBox> Drive1{*this, "Drive1", "", {}, forms::change(this, &BrowseForm::Drive1_Change)};
  forms::One<forms::DirListBox> Dir1{*this, "Dir1", "", {}, forms::change(this, &BrowseForm::Dir1_Change)};
  forms::One<forms::FileListBox> File1{*this, "File1", "", {}, forms::click(this, &BrowseForm::File1_Click), forms::doubleClick(this, &BrowseForm::File1_DblClick)};
  forms::One<forms::Label>   Label4 {*this, "Label4", "Path", {}};
  forms::One<forms::CommandButton> Command1{*this, "Command1", "O.K", {}, forms::isDefault, forms::click(this, &BrowseForm::Command1_Click)};
  forms::One<forms::CommandButton> Command2{*this, "Command2", "Cancel", {}, forms::isCancel, forms::click(this, &BrowseForm::Command2_Click)};
  // clang-format on

 private:
  Module1& module_;
  bool settingDrive_ = false;  // the form itself sets Drive1
};

}  // namespace tessarine
