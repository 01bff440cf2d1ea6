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
  forms::One<forms::Label>   Label1       {*this, "Label1", "Parallel port Address:", {}};
  forms::One<forms::TextBox> ParallelText {*this, "ParallelText", "378", {}};
  forms::One<forms::Label>   Label2       {*this, "Label2", "Hex", {}};
  forms::One<forms::Label>   Label3       {*this, "Label3", "  LPT1  Wiring       ", {}, forms::heading};
  forms::One<forms::Label>   Label4       {*this, "Label4", "Function", {}};
  forms::One<forms::Label>   Label5       {*this, "Label5", "Pin Number", {}};
  forms::Array<forms::Label> Label6{"Label6", {
      {0, *this, "Clock", {}},
      {1, *this, "Data", {}},
      {2, *this, "Load Ena", {}},
      {3, *this, "Gnd", {}},
    }};
  forms::Array<forms::TextBox> LPTwText{"LPTwText", {
      {0, *this, "2", {}},
      {1, *this, "3", {}},
      {2, *this, "4", {}},
      {3, *this, "18-25", {}},
    }};
  forms::One<forms::Label>   Label7       {*this, "Label7", "*   Pin Number 2-9", {}};
  forms::One<forms::CommandButton> Command1{*this, "Command1", "Default Value", {}, forms::click(this, &ParallelForm::Command1_Click)};
  forms::One<forms::CommandButton> OKButton{*this, "OKButton", "OK", {}, forms::isDefault, forms::click(this, &ParallelForm::OKButton_Click)};
  forms::One<forms::CommandButton> CancelButton{*this, "CancelButton", "Cancel", {}, forms::isCancel, forms::click(this, &ParallelForm::CancelButton_Click)};
  // clang-format on

 private:
  Module1& module_;
};

}  // namespace tessarine
