// A value of a control that is assigned like a plain variable and tells when it changes.
#pragma once

#include <string_view>
#include <utility>

namespace tessarine::forms {

class Control;

// What of a control has changed.
enum class Aspect {
  Caption,
  Text,
  Value,
  Visible,
  Enabled,
  ListIndex,
  List,
  ToolTip,
  Place,
  BackColor,
  Checked,
  MousePointer,
  ZOrder,
};

namespace detail {
void tellChanged(Control& owner, Aspect aspect);
}

template <class T>
class Property {
 public:
  Property(Control& owner, Aspect aspect, T start = {})
      : owner_(owner), aspect_(aspect), value_(std::move(start)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;

  Property& operator=(T value) {
    if (!(value_ == value)) {
      value_ = std::move(value);
      detail::tellChanged(owner_, aspect_);
    }
    return *this;
  }
  // Sets the start value: tells nobody.
  void start(T value) { value_ = std::move(value); }

  [[nodiscard]] const T& get() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): reads like a variable
  friend bool operator==(const Property& a, const T& b) { return a.value_ == b; }

 private:
  Control& owner_;
  Aspect aspect_;
  T value_;
};

}  // namespace tessarine::forms
