#include "forms/Controls.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tessarine::forms {

Setting Label::setting() const {
  return look == Look::bit || look == Look::clickable ? Setting::byClick : Setting::none;
}

void Label::changed(Aspect aspect) {
  tellObservers(aspect);
  if (aspect == Aspect::Caption) raise(Change);
}

void TextBox::changed(Aspect aspect) {
  tellObservers(aspect);
  if (aspect == Aspect::Text) raise(Change);
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

void DropList::changed(Aspect aspect) {
  tellObservers(aspect);
  if (aspect == Aspect::ListIndex) raise(Click);
}

}  // namespace tessarine::forms
