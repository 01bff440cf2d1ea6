#include "forms/Form.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace tessarine::forms {

Form::Form(FormList& forms, std::string name, std::string caption)
    : Container(Kind::Form, nullptr, std::move(name), kNoIndex), forms_(forms) {
  form_ = this;
  Visible.start(false);
  Caption.start(std::move(caption));
  caption_ = &Caption;
  forms_.add(*this);
}

Form::~Form() { forms_.remove(*this); }

void Form::Show() {
  if (!loaded_) {
    loaded_ = true;
    Form_Load();
  }
  Visible = true;
  forms_.activate(*this);
}

void Form::Hide() {
  Visible = false;
  forms_.deactivate(*this);
}

void Form::Unload() {
  loaded_ = false;
  Hide();
}

Control* Form::find(std::string_view controlName) const {
  Control* alone = nullptr;
  int members = 0;
  for (Control* control : controls_) {
    const std::string_view name = control->name();
    if (name == controlName) return control;
    if (name.size() > controlName.size() && name[controlName.size()] == '(' &&
        name.starts_with(controlName)) {
      alone = control;
      ++members;
    }
  }
  return members == 1 ? alone : nullptr;
}

namespace {

template <class Wanted>
CommandButton* visibleButton(const std::vector<Control*>& controls, Wanted&& wanted) {
  for (Control* control : controls) {
    if (control->kind() != Kind::CommandButton) continue;
    auto* const button = static_cast<CommandButton*>(control);
    if (wanted(*button) && button->isVisible() && button->isEnabled()) return button;
  }
  return nullptr;
}

}  // namespace

CommandButton* Form::defaultButton() const {
  return visibleButton(controls_, [](const CommandButton& button) { return button.Default; });
}

CommandButton* Form::cancelButton() const {
  return visibleButton(controls_, [](const CommandButton& button) { return button.Cancel; });
}

void FormList::add(Form& form) { forms_.push_back(&form); }

void FormList::remove(Form& form) {
  std::erase(forms_, &form);
  std::erase(order_, &form);
  std::erase(modal_, &form);
  if (active_ == &form) active_ = nullptr;
}

Control* FormList::find(std::string_view name) const {
  if (forms_.empty()) return nullptr;
  const auto dot = name.find('.');
  if (dot == std::string_view::npos) {
    if (Control* const control = forms_.front()->find(name)) return control;
  }
  for (Form* const form : forms_) {
    if (form->name() == name) return form;
    if (dot != std::string_view::npos && form->name() == name.substr(0, dot))
      return form->find(name.substr(dot + 1));
  }
  return nullptr;
}

std::string FormList::nameOf(const Control& control) const {
  const bool isMain = &control.form() == forms_.front() || &control == &control.form();
  return isMain ? control.name() : control.form().name() + "." + control.name();
}

void FormList::observe(Observer& observer) { observers_.push_back(&observer); }

void FormList::unobserve(Observer& observer) { std::erase(observers_, &observer); }

void FormList::tell(Control& control, Aspect aspect) {
  for (std::size_t i = 0; i < observers_.size(); ++i) observers_[i]->changed(control, aspect);
}

void FormList::activate(Form& form) {
  if (active_ == &form || !form.Visible) return;
  std::erase(order_, &form);
  order_.push_back(&form);
  active_ = &form;
  form.Form_Activate();
}

void FormList::deactivate(Form& form) {
  std::erase(order_, &form);
  if (active_ != &form) return;
  active_ = nullptr;
  if (!order_.empty()) activate(*order_.back());
}

}  // namespace tessarine::forms
