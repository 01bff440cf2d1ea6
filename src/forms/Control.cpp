#include "forms/Control.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "forms/Form.h"

namespace tessarine::forms {

namespace detail {
void tellChanged(Control& owner, Aspect aspect) { owner.changed(aspect); }
}  // namespace detail

std::string_view kindName(Kind kind) {
  switch (kind) {
    case Kind::Label:
      return "Label";
    case Kind::TextBox:
      return "TextBox";
    case Kind::ComboBox:
      return "ComboBox";
    case Kind::DropList:
      return "DropList";
    case Kind::CheckBox:
      return "CheckBox";
    case Kind::OptionButton:
      return "OptionButton";
    case Kind::CommandButton:
      return "CommandButton";
    case Kind::Frame:
      return "Frame";
    case Kind::PictureBox:
      return "PictureBox";
    case Kind::Line:
      return "Line";
    case Kind::Menu:
      return "Menu";
    case Kind::DriveListBox:
      return "DriveListBox";
    case Kind::DirListBox:
      return "DirListBox";
    case Kind::FileListBox:
      return "FileListBox";
    case Kind::Form:
      return "Form";
  }
  return "";
}

Control::Control(Kind kind, Container* container, std::string name, int index)
    : kind_(kind),
      container_(container),
      form_(container ? container->form_ : nullptr),
      name_(index == kNoIndex ? std::move(name) : name + "(" + std::to_string(index) + ")"),
      index_(index) {
  if (container_) {
    container_->children_.push_back(this);
    form_->controls_.push_back(this);
  }
}

bool Control::isVisible() const {
  for (const Control* c = this; c; c = c->container_) {
    if (!c->Visible) return false;
  }
  return true;
}

bool Control::isEnabled() const {
  for (const Control* c = this; c; c = c->container_) {
    if (!c->Enabled) return false;
  }
  return true;
}

void Control::tellObservers(Aspect aspect) { form_->forms().tell(*this, aspect); }

Control::Effect Control::onClick() { return {.refusal = "is not for clicking"}; }

Control::Effect Control::onDoubleClick() {
  return DblClick ? handled(DblClick) : Effect{.refusal = "is not for double-clicking"};
}

Control::Effect Control::onType(std::string_view /*text*/) { return {.refusal = "takes no text"}; }

Control::Effect Control::onPick(int /*item*/) { return {.refusal = "is no list"}; }

Control::Effect Control::handled(const Event& event) {
  return {.run = [&event] {
    if (const Event handler = event) handler();
  }};
}

void Control::raise(const Event& event) {
  // A copy: the handler may put another one in its place.
  if (const Event handler = event) handler();
}

void Container::bringToFront(Control& child) {
  const auto found = std::find(children_.begin(), children_.end(), &child);
  if (found == children_.end()) return;
  std::rotate(found, found + 1, children_.end());
  detail::tellChanged(child, Aspect::ZOrder);
}

}  // namespace tessarine::forms
