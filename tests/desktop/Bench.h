// The program on a real screen, with fakes behind it: what the operator sees and does, and what goes out.
#pragma once

#include <QAction>
#include <QTest>
#include <QWidget>
#include <chrono>
#include <cmath>

#include "desktop/Desktop.h"
#include "support/FakePlatform.h"
#include "window/Program.h"

namespace tessarine::desktop {

// Real time, for waits on a real screen.
class SteadyClock : public Clock {
 public:
  double secondsSinceMidnight() override {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::fmod(std::chrono::duration<double>(now).count(), 86400.0);
  }
  void beep() override {}
};

struct Bench {
  Bench() { desktop.attach(program.forms, program.door); }
  ~Bench() { desktop.detach(); }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  // Opens the program at its first screen.
  void start();
  // The same, and past the first screen.
  void startWorking(bool usb = false);

  [[nodiscard]] PllForm1& form() { return program.window; }
  [[nodiscard]] FormWindow& window(forms::Form& of) { return *desktop.windowOf(of); }
  [[nodiscard]] FormWindow& window() { return window(program.window); }
  // The widget with this object name; a test failure where there is none.
  template <class Widget = QWidget>
  [[nodiscard]] Widget* find(const char* name) {
    return window().findChild<Widget*>(QString::fromLatin1(name));
  }

  // The operator: a mouse click in the middle, a whole text, an item of a list, a menu entry.
  void click(const char* name) { click(find(name)); }
  void click(QWidget* widget);
  void type(const char* name, const char* text);
  void pick(const char* name, int item);
  void menu(const char* name);

  SteadyClock clock;
  FakePort port;
  FakeUsb usb;
  FakeHost host;
  Desktop desktop;
  Platform platform{port, port, usb, host, clock, desktop};
  Program program{platform};
};

}  // namespace tessarine::desktop
