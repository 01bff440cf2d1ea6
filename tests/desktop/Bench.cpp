#include "desktop/Bench.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <chrono>
#include <cmath>

namespace tessarine::desktop {

namespace {
constexpr double kSecondsPerDay = 86400;
constexpr int kADF4113Entry = 9;
}  // namespace

double SteadyClock::secondsSinceMidnight() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::fmod(std::chrono::duration<double>(now).count(), kSecondsPerDay);
}

bool becomesActive(QWidget& window) {
  constexpr int kPatienceMs = 30'000;
  return QTest::qWaitFor(
      [&] {
        if (QApplication::activeWindow() == &window) return true;
        window.activateWindow();  // a window manager that is still busy with the last test may pass one over
        QTest::qWait(50);
        return false;
      },
      kPatienceMs);
}

Bench::Bench() {
  // A program that ended before has told all event loops to end; a main loop takes that back.
  QTimer::singleShot(0, [] { QCoreApplication::exit(); });
  QCoreApplication::exec();
  desktop.attach(program.forms, program.door);
}

void Bench::start() {
  program.start();
  if (!becomesActive(window())) ADD_FAILURE() << "the window does not become active";
}

void Bench::startWorking(bool onUsb) {
  host.version.reset();
  start();
  if (onUsb) click("IOOption(1)");
  click("ContinueCommand");
}

void Bench::startTuned(bool onUsb) {
  startWorking(onUsb);
  menu("pllM(" + std::to_string(kADF4113Entry) + ")");
  type("RefText", "10");
  type("CompText", "200");
  type("VCOText", "900");
  pick("PrescalarText", 0);
}

FormWindow& Bench::window(const forms::Form& of) {
  FormWindow* const shown = desktop.windowOf(of);
  if (!shown) throw std::runtime_error(of.name() + " has never been shown");
  return *shown;
}

QObject* Bench::findObject(const std::string& name) {
  const forms::Form* in = &program.window;
  std::string inside = name;
  if (const auto dot = name.find('.'); dot != std::string::npos) {
    inside = name.substr(dot + 1);
    for (const forms::Form* other : program.forms.all()) {
      if (other->name() == name.substr(0, dot)) in = other;
    }
  }
  auto* const object = window(*in).findChild<QObject*>(QString::fromStdString(inside));
  if (!object) ADD_FAILURE() << "nothing is called " << name;
  return object;
}

void Bench::click(const std::string& name) {
  auto* const widget = find<QWidget>(name);
  if (!widget) return;
  if (!widget->isVisible()) ADD_FAILURE() << name << " is not visible";
  QTest::mouseClick(widget, Qt::LeftButton);
}

void Bench::type(const std::string& name, const char* text) {
  auto* const widget = find<QWidget>(name);
  if (!widget) return;
  widget->setFocus();
  QTest::keySequence(widget, QKeySequence::SelectAll);
  QTest::keyClick(widget, Qt::Key_Delete);
  QTest::keyClicks(widget, QString::fromUtf8(text));
}

void Bench::pick(const std::string& name, int item) {
  auto* const box = find<QComboBox>(name);
  if (!box) return;
  box->showPopup();
  QAbstractItemView* const view = box->view();
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                    view->visualRect(view->model()->index(item, 0)).center());
}

void Bench::menu(const std::string& name) {
  auto* const entry = find<QAction>(name);
  if (!entry) return;
  entry->trigger();
  QCoreApplication::processEvents();
}

void Bench::later(int milliseconds, std::function<void()> action) {
  QTimer::singleShot(milliseconds, &window(), std::move(action));
}

void Bench::answerMessage(std::string& text) {
  auto* const timer = new QTimer(&window());  // NOLINT(cppcoreguidelines-owning-memory): the window owns it
  QObject::connect(timer, &QTimer::timeout, timer, [timer, &text] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    text = box->text().toStdString();
    timer->deleteLater();
    timer->stop();
    QTest::keyClick(box, Qt::Key_Return);
  });
  timer->start(20);
}

WithFontSize::WithFontSize(double points) : before_(QApplication::font()) {
  QFont font = before_;
  font.setPointSizeF(points);
  QApplication::setFont(font);
}

WithFontSize::~WithFontSize() { QApplication::setFont(before_); }

}  // namespace tessarine::desktop
