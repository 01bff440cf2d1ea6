// The widget of one control: shows what the model holds, and hands what the operator does to it to the door.
#pragma once

#include <QString>
#include <QWidget>
#include <memory>
#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"

namespace tessarine::desktop {

// The way from the widgets to the door of the operator's actions.
class Hands {
 public:
  virtual ~Hands() = default;
  virtual void click(forms::Control& control) = 0;
  virtual void doubleClick(forms::Control& control) = 0;
  virtual void type(forms::Control& control, const QString& text) = 0;
  virtual void pick(forms::Control& control, int item) = 0;
  virtual void activate(forms::Form& form) = 0;
  virtual void close(forms::Form& form) = 0;
};

class ControlWidget {
 public:
  virtual ~ControlWidget() = default;
  [[nodiscard]] virtual QWidget& widget() = 0;
  // Shows the present value of one property. Never reaches the door.
  virtual void take(forms::Aspect aspect) = 0;
  // Shows everything anew.
  void takeAll();
};

// Makes the widget of any control but menus and forms.
[[nodiscard]] std::unique_ptr<ControlWidget> makeWidget(forms::Control& control, QWidget& parent,
                                                        Hands& hands);

// The same, kind by kind.
[[nodiscard]] std::unique_ptr<ControlWidget> makeLabel(forms::Label& label, QWidget& parent, Hands& hands);
[[nodiscard]] std::unique_ptr<ControlWidget> makeTextBox(forms::TextBox& box, QWidget& parent, Hands& hands);
[[nodiscard]] std::unique_ptr<ControlWidget> makeComboBox(forms::ComboBox& box, QWidget& parent,
                                                          Hands& hands);
[[nodiscard]] std::unique_ptr<ControlWidget> makePickList(forms::ListControl& list, QWidget& parent,
                                                          Hands& hands);
[[nodiscard]] std::unique_ptr<ControlWidget> makeCheckBox(forms::CheckBox& box, QWidget& parent,
                                                          Hands& hands);
[[nodiscard]] std::unique_ptr<ControlWidget> makeOptionButton(forms::OptionButton& option, QWidget& parent,
                                                              Hands& hands);
[[nodiscard]] std::unique_ptr<ControlWidget> makeCommandButton(forms::CommandButton& button, QWidget& parent,
                                                               Hands& hands);
[[nodiscard]] std::unique_ptr<ControlWidget> makeFrame(forms::Frame& frame, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> makePictureBox(forms::PictureBox& box, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> makeLine(forms::Line& line, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> makeItemList(forms::ListControl& list, QWidget& parent,
                                                          Hands& hands);

[[nodiscard]] inline QString toQt(const std::string& text) { return QString::fromStdString(text); }

// A caption in which "&" marks nothing.
[[nodiscard]] QString literal(const std::string& caption);

}  // namespace tessarine::desktop
