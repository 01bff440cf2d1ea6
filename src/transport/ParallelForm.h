// The wiring dialog: the port's base address and the connector pins that carry clock, data and load enable.
#pragma once

#include "engine/Module1.h"
#include "forms/Build.h"
#include "forms/Form.h"

namespace tessarine {

class ParallelForm : public forms::Form {
 public:
  ParallelForm(forms::FormList& forms, Module1& module);

  // Confirms the dialog's settings: checks the pins, sets port address and line masks, drives the lines low.
  // Runs at every selection of a model too, so that the masks are valid from the first model on.
  void OKButton_Click();
  void CancelButton_Click();
  void Command1_Click();
  void Form_QueryUnload() override { CancelButton_Click(); }

  // clang-format off
  forms::One<forms::Label>   Label1       {*this, "Label1", "Parallel port Address:", forms::at(240, 240, 1860, 300)};
  forms::One<forms::TextBox> ParallelText {*this, "ParallelText", "378", forms::at(2160, 240, 900, 300)};
  forms::One<forms::Label>   Label2       {*this, "Label2", "Hex", forms::at(3140, 240, 500, 300)};
  forms::One<forms::Label>   Label3       {*this, "Label3", "  LPT1  Wiring       ", forms::at(240, 780, 3000, 280), forms::heading};
  forms::One<forms::Label>   Label4       {*this, "Label4", "Function", forms::at(240, 1140, 1200, 280)};
  forms::One<forms::Label>   Label5       {*this, "Label5", "Pin Number", forms::at(240, 1480, 1200, 300)};
  forms::Array<forms::Label> Label6{"Label6", {
      {0, *this, "Clock", forms::at(1560, 1140, 960, 280)},
      {1, *this, "Data", forms::at(2640, 1140, 960, 280)},
      {2, *this, "Load Ena", forms::at(3720, 1140, 960, 280)},
      {3, *this, "Gnd", forms::at(4800, 1140, 960, 280)},
    }};
  forms::Array<forms::TextBox> LPTwText{"LPTwText", {
      {0, *this, "2", forms::at(1560, 1480, 960, 300)},
      {1, *this, "3", forms::at(2640, 1480, 960, 300)},
      {2, *this, "4", forms::at(3720, 1480, 960, 300)},
      {3, *this, "18-25", forms::at(4800, 1480, 960, 300)},
    }};
  forms::One<forms::Label>   Label7       {*this, "Label7", "*   Pin Number 2-9", forms::at(1560, 1860, 3000, 280)};
  forms::One<forms::CommandButton> Command1{*this, "Command1", "Default Value", forms::at(240, 2400, 1560, 360), forms::click(this, &ParallelForm::Command1_Click)};
  forms::One<forms::CommandButton> OKButton{*this, "OKButton", "OK", forms::at(3480, 2400, 1140, 360), forms::isDefault, forms::click(this, &ParallelForm::OKButton_Click)};
  forms::One<forms::CommandButton> CancelButton{*this, "CancelButton", "Cancel", forms::at(4740, 2400, 1140, 360), forms::isCancel, forms::click(this, &ParallelForm::CancelButton_Click)};
  // clang-format on

 private:
  Module1& module_;
};

}  // namespace tessarine
