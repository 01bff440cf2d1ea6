// The program on a real screen, with fakes behind it: what the operator sees and does, and what goes out.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

#include "desktop/Desktop.h"
#include "platform/linux/LinuxClock.h"
#include "support/FakePlatform.h"
#include "window/Program.h"

namespace tessarine::desktop {

// Waits until `holds`; false if it does not come to that.
template <class Condition>
[[nodiscard]] bool comesTrue(Condition holds) {
  constexpr int kPatienceMs = 30'000;
  return QTest::qWaitFor(holds, kPatienceMs);
}

// Gives the window the keyboard, and waits for it; false if that does not come.
[[nodiscard]] inline bool becomesActive(QWidget& window) {
  return comesTrue([&] {
    if (QApplication::activeWindow() == &window) return true;
    window.activateWindow();  // a window manager that is still busy with the last test may pass one over
    QTest::qWait(50);
    return false;
  });
}

// The widget or menu entry of this name and kind. Throws without one.
template <class Object = QWidget>
[[nodiscard]] Object* objectIn(const QWidget& window, const std::string& name) {
  for (QObject* const object : window.findChildren<QObject*>(QString::fromStdString(name)))
    if (auto* const found = dynamic_cast<Object*>(object)) return found;
  throw std::runtime_error("nothing of this kind is called " + name);
}

// Whether a click in its middle comes to it.
[[nodiscard]] inline bool isOnTop(const QWidget& widget) {
  const QWidget* const top = widget.window()->childAt(widget.mapTo(widget.window(), widget.rect().center()));
  return widget.isVisible() && top && (top == &widget || widget.isAncestorOf(top));
}

// The wheel over a place of a widget; a notch is 120.
inline void turnWheel(QWidget& widget, const QPoint& at, const QPoint& by) {
  QWheelEvent wheel(at, widget.mapToGlobal(at), {}, by, {}, {}, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &wheel);
}

struct Bench {
  Bench() {
    // A program that ended before has told all event loops to end; a main loop takes that back.
    QTimer::singleShot(0, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
    desktop.attach(program.forms, program.door);
  }
  ~Bench() { desktop.detach(); }

  // Opens the program at its first screen.
  void start() {
    program.start();
    EXPECT_TRUE(becomesActive(window()));
  }
  // The same, and past the first screen, on a host that needs no port driver.
  void startWorking(bool onUsb = false) {
    host.version.reset();
    start();
    if (onUsb) click("IOOption(1)");
    click("ContinueCommand");
  }
  // The same with the ADF4113 tuned to 900 MHz.
  void startTuned(bool onUsb = false) {
    startWorking(onUsb);
    menu("pllM(9)");
    type("RefText", "10");
    type("CompText", "200");
    type("VCOText", "900");
    pick("PrescalarText", 0);
  }

  [[nodiscard]] FormWindow& window() { return window(form); }
  [[nodiscard]] FormWindow& window(const forms::Form& of) {
    FormWindow* const shown = desktop.windowOf(of);
    if (!shown) throw std::runtime_error(of.name() + " has never been shown");
    return *shown;
  }
  // The widget or menu entry of this control, one of another form behind "Form.".
  template <class Object = QWidget>
  [[nodiscard]] Object* find(const std::string& name) {
    const forms::Control* const control = program.forms.find(name);
    if (!control) throw std::runtime_error("no control " + name);
    return objectIn<Object>(window(control->form()), control->name());
  }
  [[nodiscard]] std::string text(const std::string& name) {
    return find(name)->property("text").toString().toStdString();
  }
  [[nodiscard]] bool shows(const std::string& name) {
    const QWidget* const widget = window().widgetOf(*program.forms.find(name));
    return widget && widget->isVisible();
  }

  // The operator: a click in the middle, a whole text, an item of a list, a key, a menu entry.
  void click(const std::string& name) {
    auto* const widget = find(name);
    for (QWidget* in = widget; in; in = in->parentWidget())
      if (auto* const area = qobject_cast<QScrollArea*>(in)) area->ensureWidgetVisible(widget);
    EXPECT_TRUE(isOnTop(*widget)) << name << " is hidden or covered";
    QTest::mouseClick(widget, Qt::LeftButton);
  }
  void type(const std::string& name, const char* text) {
    press(name, QKeySequence::SelectAll);
    press(name, Qt::Key_Delete);
    QTest::keyClicks(find(name), QString::fromUtf8(text));
  }
  void pick(const std::string& name, int item) {
    auto* const box = find<QComboBox>(name);
    box->showPopup();
    QAbstractItemView* const view = box->view();
    const QPoint middle = view->visualRect(view->model()->index(item, 0)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, middle);
  }
  void press(const std::string& name, const QKeySequence& keys) {
    find(name)->setFocus();
    QTest::keySequence(find(name), keys);
    QCoreApplication::processEvents();
  }
  void menu(const std::string& name) {
    find<QAction>(name)->trigger();
    QCoreApplication::processEvents();
  }
  // What the operator does once events run, that many milliseconds from now.
  void later(int milliseconds, std::function<void()> action) {
    QTimer::singleShot(milliseconds, &window(), std::move(action));
  }

  LinuxClock clock{[] {}};
  FakePort port;
  FakeUsb usb;
  FakeHost host;
  Desktop desktop;
  Platform platform{port, port, usb, host, clock, desktop};
  Program program{platform};
  PllForm1& form = program.window;
};

// Counts the events of one type while it lives, those of one object or all.
struct EventCounter : QObject {
  explicit EventCounter(QEvent::Type counted, const QObject* object = nullptr) : type(counted), of(object) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == type && (!of || watched == of)) ++count;
    return false;
  }
  const QEvent::Type type;
  const QObject* const of;
  int count = 0;
};

}  // namespace tessarine::desktop
