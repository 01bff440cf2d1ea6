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

std::string ListControl::picked() const {
  const auto& list = List.get();
  const auto item = static_cast<std::size_t>(ListIndex.get());
  return ListIndex >= 0 && item < list.size() ? list[item] : std::string();
}

ComboBox::ComboBox(Container& in, std::string name, int index, std::string text)
    : ListControl(Kind::ComboBox, &in, std::move(name), index) {
  Text.start(std::move(text));
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
    const auto& list = List.get();
    const auto found = std::find(list.begin(), list.end(), Text.get());
    ListIndex = found == list.end() ? -1 : static_cast<int>(found - list.begin());
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
