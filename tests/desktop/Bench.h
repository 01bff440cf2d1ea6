// The program on a real screen, with fakes behind it: what the operator sees and does, and what goes out.
#pragma once

#include <QAction>
#include <QEvent>
#include <QTest>
#include <QWidget>
#include <functional>
#include <stdexcept>
#include <string>

#include "desktop/Desktop.h"
#include "support/FakePlatform.h"
#include "window/Program.h"

namespace tessarine::desktop {

// Real time, for waits on a real screen.
class SteadyClock : public Clock {
 public:
  double secondsSinceMidnight() override;
  void beep() override {}
};

// Gives the window the keyboard, and waits for it; false if that does not come.
[[nodiscard]] bool becomesActive(QWidget& window);

// Waits until `holds`; false if it does not come to that.
template <class Condition>
[[nodiscard]] bool comesTrue(Condition holds) {
  constexpr int kPatienceMs = 30'000;
  return QTest::qWaitFor(holds, kPatienceMs);
}

struct Bench {
  Bench();
  ~Bench() { desktop.detach(); }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  // Opens the program at its first screen.
  void start();
  // The same, and past the first screen, on a host that needs no port driver.
  void startWorking(bool onUsb = false);
  // The same with the ADF4113 tuned to 900 MHz.
  void startTuned(bool onUsb = false);

  [[nodiscard]] PllForm1& form() { return program.window; }
  [[nodiscard]] FormWindow& window() { return window(program.window); }
  [[nodiscard]] FormWindow& window(const forms::Form& of);
  // The widget or menu entry of this control, one of another form behind "Form.". Throws without one.
  template <class Object = QWidget>
  [[nodiscard]] Object* find(const std::string& name);
  [[nodiscard]] std::string text(const std::string& name);
  [[nodiscard]] bool shows(const std::string& name);

  // The operator: a click in the middle, a whole text, an item of a list, a key, a menu entry.
  void click(const std::string& name);
  void type(const std::string& name, const char* text);
  void pick(const std::string& name, int item);
  void press(const std::string& name, const QKeySequence& keys);
  void menu(const std::string& name);
  // What the operator does once events run, that many milliseconds from now.
  void later(int milliseconds, std::function<void()> action);
  // Answers the next message box; `text` is what it said.
  void answerMessage(std::string& text);

  SteadyClock clock;
  FakePort port;
  FakeUsb usb;
  FakeHost host;
  Desktop desktop;
  Platform platform{port, port, usb, host, clock, desktop};
  Program program{platform};
};

template <class Object>
Object* Bench::find(const std::string& name) {
  const forms::Control* const control = program.forms.find(name);
  auto* const object =
      control ? window(control->form()).findChild<Object*>(QString::fromStdString(control->name())) : nullptr;
  if (!object) throw std::runtime_error("nothing of this kind is called " + name);
  return object;
}

// Counts the events of one type while it lives, those of one object or all.
class EventCounter : public QObject {
 public:
  explicit EventCounter(QEvent::Type type, const QObject* of = nullptr) : type_(type), of_(of) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == type_ && (!of_ || watched == of_)) ++count;
    return false;
  }
  int count = 0;

 private:
  QEvent::Type type_;
  const QObject* of_;
};

// Brings the program into all its states: the first screen, each model with its panel closed and open in each
// mode, with the longest texts that come there, and the dialogs. `visit` gets the window, its form and the
// state's name.
void visitStates(Bench& bench,
                 const std::function<void(FormWindow&, const forms::Form&, const std::string&)>& visit);

// Shows windows in another font while it lives.
class WithFontSize {
 public:
  explicit WithFontSize(double points);
  ~WithFontSize() { QApplication::setFont(before_); }
  WithFontSize(const WithFontSize&) = delete;
  WithFontSize& operator=(const WithFontSize&) = delete;

 private:
  QFont before_ = QApplication::font();
};

}  // namespace tessarine::desktop
