// What is filled in and pressed: text boxes, combo boxes, check boxes, option buttons, buttons. The model
// alone decides what they hold: a widget never changes its own state, it asks the door.
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <memory>
#include <string>

#include "desktop/ControlWidget.h"

namespace tessarine::desktop {

using forms::Aspect;

namespace {

constexpr int kTextMargin = 3;  // pixels between a field's edge and its text

// A letter with Alt is no text, whether or not a control answers to it.
bool isAccessKey(const QKeyEvent& event) {
  return event.modifiers() == Qt::AltModifier && !event.text().isEmpty();
}

class TextField : public QLineEdit, public ControlWidget {
 public:
  TextField(forms::TextBox& box, QWidget& parent, Hands& hands)
      : QLineEdit(&parent), box_(box), hands_(hands) {
    setTextMargins(kTextMargin, 0, kTextMargin, 0);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
      handedOver_ = true;
      hands_.type(box_, text);
    });
  }

  QWidget& widget() override { return *this; }

  void take(Aspect aspect) override {
    const QString text = toQt(box_.Text);
    if (aspect == Aspect::Text && text != this->text()) setText(text);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    handedOver_ = false;
    if (isAccessKey(*event)) {
      event->ignore();
    } else {
      QLineEdit::keyPressEvent(event);
    }
  }

  // Each key counts for a box that listens to keys, those that change nothing too.
  void keyReleaseEvent(QKeyEvent* event) override {
    QLineEdit::keyReleaseEvent(event);
    if (box_.KeyUp && !handedOver_ && !event->isAutoRepeat() && movesInText(event->key())) {
      hands_.type(box_, text());
    }
    handedOver_ = false;
  }

 private:
  static bool movesInText(int key) {
    switch (key) {
      case Qt::Key_Left:
      case Qt::Key_Right:
      case Qt::Key_Home:
      case Qt::Key_End:
      case Qt::Key_Delete:
      case Qt::Key_Backspace:
        return true;
      default:
        return false;
    }
  }

  forms::TextBox& box_;
  Hands& hands_;
  bool handedOver_ = false;  // the key that is down has changed the text
};

// Both kinds of combo box: a list that drops down.
class DropDown : public QComboBox, public ControlWidget {
 public:
  DropDown(forms::ListControl& list, QWidget& parent, Hands& hands) : QComboBox(&parent), list_(list) {
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(this, &QComboBox::activated, this, [this, &hands](int item) { hands.pick(list_, item); });
  }

  QWidget& widget() override { return *this; }

  void take(Aspect aspect) override {
    const QSignalBlocker quiet(this);
    if (aspect == Aspect::List) {
      clear();
      for (const std::string& item : list_.List.get()) addItem(toQt(item));
    }
    if (aspect == Aspect::List || aspect == Aspect::ListIndex) setCurrentIndex(list_.ListIndex);
  }

 protected:
  // A value changes by the wheel only where the operator is at work, not where the pointer happens to rest.
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus()) {
      QComboBox::wheelEvent(event);
    } else {
      event->ignore();
    }
  }

  // Enter is the window's: it clicks the default button.
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || isAccessKey(*event)) {
      event->ignore();
    } else {
      QComboBox::keyPressEvent(event);
    }
  }

 private:
  forms::ListControl& list_;
};

class EditableDropDown : public DropDown {
 public:
  EditableDropDown(forms::ComboBox& box, QWidget& parent, Hands& hands)
      : DropDown(box, parent, hands), box_(box) {
    setEditable(true);
    lineEdit()->setTextMargins(kTextMargin - 1, 0, 0, 0);
    setCompleter(nullptr);       // what is typed stays as typed
    setDuplicatesEnabled(true);  // and Enter looks for no item like it
    connect(lineEdit(), &QLineEdit::textEdited, this,
            [this, &hands](const QString& text) { hands.type(box_, text); });
  }

  void take(Aspect aspect) override {
    const bool mayDiffer = aspect == Aspect::Text || aspect == Aspect::List || aspect == Aspect::ListIndex;
    if (!mayDiffer) {
      DropDown::take(aspect);
      return;
    }
    // A change of the list item rewrites the field: the operator must be able to type on where he was.
    const QString before = lineEdit()->text();
    const int cursor = lineEdit()->cursorPosition();
    DropDown::take(aspect);
    const QString text = toQt(box_.Text);
    if (text != lineEdit()->text()) lineEdit()->setText(text);
    if (text == before) lineEdit()->setCursorPosition(cursor);
  }

 private:
  forms::ComboBox& box_;
};

// A button that does not switch itself.
template <class Button>
class ModelSwitch : public Button, public ControlWidget {
 public:
  ModelSwitch(QWidget& parent, forms::Control& control, Hands& hands) : Button(&parent) {
    QObject::connect(this, &QAbstractButton::clicked, this, [&hands, &control] { hands.click(control); });
  }
  QWidget& widget() override { return *this; }

 protected:
  void nextCheckState() override {}
  bool hitButton(const QPoint& point) const override { return Button::rect().contains(point); }
};

class TickBox : public ModelSwitch<QCheckBox> {
 public:
  TickBox(forms::CheckBox& box, QWidget& parent, Hands& hands) : ModelSwitch(parent, box, hands), box_(box) {}
  void take(Aspect aspect) override {
    if (aspect == Aspect::Caption) setText(literal(box_.Caption));
    if (aspect == Aspect::Value) setChecked(box_.Value != 0);
  }

 private:
  forms::CheckBox& box_;
};

class Choice : public ModelSwitch<QRadioButton> {
 public:
  Choice(forms::OptionButton& option, QWidget& parent, Hands& hands)
      : ModelSwitch(parent, option, hands), option_(option), hands_(hands) {
    setAutoExclusive(false);
  }
  void choose() { hands_.click(option_); }
  void take(Aspect aspect) override {
    if (aspect == Aspect::Caption) setText(literal(option_.Caption));
    if (aspect == Aspect::Value) setChecked(option_.Value);
  }

 protected:
  // An arrow key that reaches another option of the group chooses it.
  void keyPressEvent(QKeyEvent* event) override {
    QRadioButton::keyPressEvent(event);
    switch (event->key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_Left:
      case Qt::Key_Right:
        if (auto* const next = dynamic_cast<Choice*>(window()->focusWidget());
            next && next != this && next->parentWidget() == parentWidget()) {
          next->choose();
        }
        break;
      default:
        break;
    }
  }

 private:
  forms::OptionButton& option_;
  Hands& hands_;
};

class Button : public QPushButton, public ControlWidget {
 public:
  Button(forms::CommandButton& button, QWidget& parent, Hands& hands)
      : QPushButton(&parent), button_(button) {
    setDefault(button.Default);
    connect(this, &QAbstractButton::clicked, this, [this, &hands] { hands.click(button_); });
  }
  QWidget& widget() override { return *this; }
  void take(Aspect aspect) override {
    if (aspect == Aspect::Caption) setText(toQt(button_.Caption).trimmed());
  }

 private:
  forms::CommandButton& button_;
};

}  // namespace

std::unique_ptr<ControlWidget> makeTextBox(forms::TextBox& box, QWidget& parent, Hands& hands) {
  return std::make_unique<TextField>(box, parent, hands);
}

std::unique_ptr<ControlWidget> makeComboBox(forms::ComboBox& box, QWidget& parent, Hands& hands) {
  return std::make_unique<EditableDropDown>(box, parent, hands);
}

std::unique_ptr<ControlWidget> makePickList(forms::ListControl& list, QWidget& parent, Hands& hands) {
  return std::make_unique<DropDown>(list, parent, hands);
}

std::unique_ptr<ControlWidget> makeCheckBox(forms::CheckBox& box, QWidget& parent, Hands& hands) {
  return std::make_unique<TickBox>(box, parent, hands);
}

std::unique_ptr<ControlWidget> makeOptionButton(forms::OptionButton& option, QWidget& parent, Hands& hands) {
  return std::make_unique<Choice>(option, parent, hands);
}

std::unique_ptr<ControlWidget> makeCommandButton(forms::CommandButton& button, QWidget& parent,
                                                 Hands& hands) {
  return std::make_unique<Button>(button, parent, hands);
}

}  // namespace tessarine::desktop
