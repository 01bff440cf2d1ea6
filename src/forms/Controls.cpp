#include "forms/Controls.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tessarine::forms {

Label::Label(Container& in, std::string name, int index, std::string caption)
    : Control(Kind::Label, &in, std::move(name), index) {
  Caption.start(std::move(caption));
}

void Label::changed(Aspect aspect) {
  tellObservers(aspect);
  if (aspect == Aspect::Caption) raise(Change);
}

TextBox::TextBox(Container& in, std::string name, int index, std::string text)
    : Control(Kind::TextBox, &in, std::move(name), index) {
  Text.start(std::move(text));
}

void TextBox::changed(Aspect aspect) {
  tellObservers(aspect);
  if (aspect == Aspect::Text) raise(Change);
}

Control::Effect TextBox::onType(std::string_view text) {
  return {.run = [this, typed = std::string(text)] {
    Text = typed;
    raise(KeyUp);
  }};
}

CommandButton::CommandButton(Container& in, std::string name, int index, std::string caption)
    : Control(Kind::CommandButton, &in, std::move(name), index) {
  Caption.start(std::move(caption));
}

CheckBox::CheckBox(Container& in, std::string name, int index, std::string caption)
    : Control(Kind::CheckBox, &in, std::move(name), index) {
  Caption.start(std::move(caption));
}

void CheckBox::changed(Aspect aspect) {
  tellObservers(aspect);
  if (aspect == Aspect::Value) raise(Click);
}

Control::Effect CheckBox::onClick() {
  return {.run = [this] { Value = Value ? 0 : 1; }};
}

Control::Effect CheckBox::onSet(std::string_view value) {
  if (value != "0" && value != "1") return {.refusal = "takes 0 or 1"};
  return {.run = [this, on = value == "1"] { Value = on ? 1 : 0; }};
}

OptionButton::OptionButton(Container& in, std::string name, int index, std::string caption)
    : Control(Kind::OptionButton, &in, std::move(name), index) {
  Caption.start(std::move(caption));
}

void OptionButton::changed(Aspect aspect) {
  tellObservers(aspect);
  if (aspect != Aspect::Value || !Value) return;
  for (Control* sibling : container()->children()) {
    if (sibling != this && sibling->kind() == Kind::OptionButton)
      static_cast<OptionButton*>(sibling)->Value = false;
  }
  raise(Click);
}

// One that is selected already raises its event all the same.
Control::Effect OptionButton::onClick() {
  return {.run = [this] {
    if (Value) {
      raise(Click);
    } else {
      Value = true;
    }
  }};
}

Control::Effect OptionButton::onSet(std::string_view value) {
  return value == "1" ? onClick() : Effect{.refusal = "takes 1"};
}

std::string ListControl::itemText(int item) const {
  const auto& list = List.get();
  const auto place = static_cast<std::size_t>(item);
  return item >= 0 && place < list.size() ? list[place] : std::string();
}

int ListControl::itemWith(std::string_view text) const {
  const auto& texts = List.get();
  const auto found = std::ranges::find(texts, text);
  return found == texts.end() ? -1 : static_cast<int>(found - texts.begin());
}

Control::Effect ListControl::onPick(int item) {
  if (item < 0 || static_cast<std::size_t>(item) >= List.get().size()) {
    return {.refusal = "has no item " + std::to_string(item)};
  }
  return {.run = [this, item] { take(item); }};
}

Control::Effect ListControl::onSet(std::string_view value) {
  const int item = itemWith(value);
  return item < 0 ? Effect{.refusal = "has no item \"" + std::string(value) + '"'} : onPick(item);
}

ComboBox::ComboBox(Container& in, std::string name, int index, std::string text)
    : ListControl(Kind::ComboBox, &in, std::move(name), index) {
  Text.start(std::move(text));
}

Control::Effect ComboBox::onType(std::string_view text) {
  return {.run = [this, typed = std::string(text)] {
    Text = typed;
    raise(KeyUp);
  }};
}

void ComboBox::rebuild(std::vector<std::string> items) {
  picking_ = true;
  ListIndex = -1;
  List = std::move(items);
  Text = std::string();
  picking_ = false;
}

void ComboBox::pick(int item) {
  picking_ = true;
  ListIndex = item;
  Text = picked();
  picking_ = false;
  raise(Click);
}

void ComboBox::changed(Aspect aspect) {
  if (aspect == Aspect::Text && !picking_) {
    ListIndex = itemWith(Text.get());
  }
  tellObservers(aspect);
  if (aspect == Aspect::Text && !picking_) raise(Change);
}

DropList::DropList(Container& in, std::string name, int index, std::string /*ignored*/)
    : ListControl(Kind::DropList, &in, std::move(name), index) {}

void DropList::changed(Aspect aspect) {
  tellObservers(aspect);
  if (aspect == Aspect::ListIndex) raise(Click);
}

Frame::Frame(Container& in, std::string name, int index, std::string caption)
    : Container(Kind::Frame, &in, std::move(name), index) {
  Caption.start(std::move(caption));
}

PictureBox::PictureBox(Container& in, std::string name, int index, std::string /*ignored*/)
    : Container(Kind::PictureBox, &in, std::move(name), index) {}

Line::Line(Container& in, std::string name, int index, std::string /*ignored*/)
    : Control(Kind::Line, &in, std::move(name), index) {}

Menu::Menu(Container& in, std::string name, int index, std::string caption)
    : Container(Kind::Menu, &in, std::move(name), index) {
  Caption.start(std::move(caption));
}

}  // namespace tessarine::forms
