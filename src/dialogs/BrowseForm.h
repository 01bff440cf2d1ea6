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
  forms::One<forms::Label>   Label1 {*this, "Label1", "Select File:", forms::at(240, 180, 2400, 280), forms::heading};
  forms::One<forms::Label>   Label2 {*this, "Label2", "Search File:", forms::at(240, 4380, 1200, 300)};
  forms::One<forms::TextBox> Text1  {*this, "Text1", "*.*", forms::at(1500, 4380, 3600, 300), forms::change(this, &BrowseForm::Text1_Change)};
  forms::One<forms::Label>   Label3 {*this, "Label3", "File Name:", forms::at(240, 4800, 1200, 300)};
  forms::One<forms::TextBox> Text2  {*this, "Text2", "", forms::at(1500, 4800, 3600, 300), forms::keyUp(this, &BrowseForm::Text2_KeyUp)};
  forms::One<forms::DriveListBox> Drive1{*this, "Drive1", "", forms::at(240, 540, 3000, 320), forms::change(this, &BrowseForm::Drive1_Change)};
  forms::One<forms::DirListBox> Dir1{*this, "Dir1", "", forms::at(240, 960, 3000, 2880), forms::change(this, &BrowseForm::Dir1_Change)};
  forms::One<forms::FileListBox> File1{*this, "File1", "", forms::at(3420, 540, 4500, 3300), forms::click(this, &BrowseForm::File1_Click), forms::doubleClick(this, &BrowseForm::File1_DblClick)};
  forms::One<forms::Label>   Label4 {*this, "Label4", "Path", forms::at(240, 3960, 7680, 280)};
  forms::One<forms::CommandButton> Command1{*this, "Command1", "O.K", forms::at(5460, 4770, 1170, 360), forms::isDefault, forms::click(this, &BrowseForm::Command1_Click)};
  forms::One<forms::CommandButton> Command2{*this, "Command2", "Cancel", forms::at(6750, 4770, 1170, 360), forms::isCancel, forms::click(this, &BrowseForm::Command2_Click)};
  // clang-format on

 private:
  Module1& module_;
  bool settingDrive_ = false;  // the form itself sets Drive1
};

}  // namespace tessarine
