// An operator who does anything that the door lets in, but for the end.
#pragma once

#include <iterator>
#include <random>
#include <span>
#include <string>

#include "window/Program.h"

namespace tessarine {

// What was done and how it went, if anything was. What lasts for long is begun where `lasting`.
inline std::string actAtRandom(Program& program, std::mt19937& random, bool lasting) {
  static const char* const kMHz[] = {"900", "925.2", "1747.200001", "1800", "2400.06", "12.5", "3", "4100"};
  static const char* const kSteps[] = {"200", "40", "30", "1000", "2.5", "0"};
  static const char* const kOther[] = {
      "",   "1",    "2",     "3",   "7",     "16",  "40",    "63",   "255",          "-1",
      "10", "12.5", "16/17", "8/9", "whole", " 7 ", "\"a\"", "/x y", "../band/whole"};
  static const char* const kOften[] = {
      "ACommand", "AllCommand", "AllCommand", "Command14(0)", "Hop1",
      "VCOText",  "StartHop",   "StepOption", "Sweep1",       "StartSweepCommand(0)"};
  const auto oneOf = [&](const auto& texts) { return std::string(texts[random() % std::size(texts)]); };
  const auto& forms = program.forms.all();
  forms::Form& form = *forms[random() % 12 == 0 ? random() % forms.size() : 0];
  const auto& controls = form.controls();
  forms::Control* control = controls[random() % controls.size()];
  for (int i = 0; i < 8 && !control->isVisible(); ++i) control = controls[random() % controls.size()];
  if (random() % 4 == 0) control = program.forms.find(oneOf(kOften));
  const std::string& name = control->name();
  const bool isOfModels = control->container() == &program.window.pModel;
  // The menus of models and modes work on the first screen as well, and look like nothing that comes later.
  const bool isTooEarly =
      program.window.Picture1.Visible && (isOfModels || control->container() == &program.window.Mode1);
  if (name.starts_with("Exit1") || isTooEarly || (isOfModels && random() % 3 != 0)) return {};
  if (!lasting && (name.starts_with("StartHop") || name.starts_with("StartSweep"))) return {};

  const bool isFrequency = name == "VCOText" || name.ends_with("Text1") || name.ends_with("Text2");
  const std::string text =
      isFrequency ? oneOf(kMHz) : oneOf(name == "CompText" ? std::span<const char* const>(kSteps) : kOther);
  forms::Operator::Refusal refusal;
  if (random() % 32 == 0) {
    refusal = random() % 4 == 0 && &form != forms[0] ? program.door.close(form) : program.door.activate(form);
  } else if (random() % 16 == 0) {
    refusal = program.door.doubleClick(*control);
  } else if (dynamic_cast<forms::ListControl*>(control) && random() % 3 != 0) {
    refusal = program.door.pick(*control, static_cast<int>(random() % 12));
  } else if (dynamic_cast<forms::TextBox*>(control) || random() % 2 == 0) {
    refusal = program.door.set(*control, text);
  } else {
    refusal = program.door.click(*control);
  }
  return name + ' ' + text + ' ' + refusal.value_or("");
}

}  // namespace tessarine
