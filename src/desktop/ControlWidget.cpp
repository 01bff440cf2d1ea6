#include "desktop/ControlWidget.h"

#include <string>

#include "forms/FileControls.h"

namespace tessarine::desktop {

using forms::Aspect;
using forms::Kind;

void ControlWidget::takeAll() {
  for (const Aspect aspect :
       {Aspect::Caption, Aspect::List, Aspect::ListIndex, Aspect::Text, Aspect::Value, Aspect::BackColor}) {
    take(aspect);
  }
}

std::unique_ptr<ControlWidget> makeWidget(forms::Control& control, QWidget& parent, Hands& hands) {
  switch (control.kind()) {
    case Kind::Label:
      return makeLabel(static_cast<forms::Label&>(control), parent, hands);
    case Kind::TextBox:
      return makeTextBox(static_cast<forms::TextBox&>(control), parent, hands);
    case Kind::ComboBox:
      return makeComboBox(static_cast<forms::ComboBox&>(control), parent, hands);
    case Kind::DropList:
    case Kind::DriveListBox:
      return makePickList(static_cast<forms::ListControl&>(control), parent, hands);
    case Kind::CheckBox:
      return makeCheckBox(static_cast<forms::CheckBox&>(control), parent, hands);
    case Kind::OptionButton:
      return makeOptionButton(static_cast<forms::OptionButton&>(control), parent, hands);
    case Kind::CommandButton:
      return makeCommandButton(static_cast<forms::CommandButton&>(control), parent, hands);
    case Kind::Frame:
      return makeFrame(static_cast<forms::Frame&>(control), parent);
    case Kind::PictureBox:
      return makePictureBox(static_cast<forms::PictureBox&>(control), parent);
    case Kind::Line:
      return makeLine(static_cast<forms::Line&>(control), parent);
    case Kind::DirListBox:
    case Kind::FileListBox:
      return makeItemList(static_cast<forms::ListControl&>(control), parent, hands);
    case Kind::Menu:
    case Kind::Form:
      break;
  }
  return nullptr;
}

QString literal(const std::string& caption) {
  return toQt(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace tessarine::desktop
