#include "desktop/Bench.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QMessageBox>
#include <QScrollArea>
#include <QTimer>
#include <chrono>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace tessarine::desktop {

double SteadyClock::secondsSinceMidnight() {
  constexpr double kSecondsPerDay = 86400;
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::fmod(std::chrono::duration<double>(now).count(), kSecondsPerDay);
}

bool becomesActive(QWidget& window) {
  return comesTrue([&] {
    if (QApplication::activeWindow() == &window) return true;
    window.activateWindow();  // a window manager that is still busy with the last test may pass one over
    QTest::qWait(50);
    return false;
  });
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
  menu("pllM(9)");
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

std::string Bench::text(const std::string& name) {
  return find(name)->property("text").toString().toStdString();
}

bool Bench::shows(const std::string& name) {
  const QWidget* const widget = window().widgetOf(*program.forms.find(name));
  return widget && widget->isVisible();
}

void Bench::click(const std::string& name) {
  auto* const widget = find(name);
  for (QWidget* in = widget; in; in = in->parentWidget())
    if (auto* const area = qobject_cast<QScrollArea*>(in)) area->ensureWidgetVisible(widget);
  const QPoint middle = widget->mapTo(widget->window(), widget->rect().center());
  const QWidget* const top = widget->window()->childAt(middle);
  if (!widget->isVisible() || !top || (top != widget && !widget->isAncestorOf(top)))
    ADD_FAILURE() << name << " is hidden or covered";
  QTest::mouseClick(widget, Qt::LeftButton);
}

void Bench::type(const std::string& name, const char* text) {
  press(name, QKeySequence::SelectAll);
  press(name, Qt::Key_Delete);
  QTest::keyClicks(find(name), QString::fromUtf8(text));
}

void Bench::pick(const std::string& name, int item) {
  auto* const box = find<QComboBox>(name);
  box->showPopup();
  QAbstractItemView* const view = box->view();
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                    view->visualRect(view->model()->index(item, 0)).center());
}

void Bench::press(const std::string& name, const QKeySequence& keys) {
  find(name)->setFocus();
  QTest::keySequence(find(name), keys);
  QCoreApplication::processEvents();
}

void Bench::menu(const std::string& name) {
  find<QAction>(name)->trigger();
  QCoreApplication::processEvents();
}

void Bench::later(int milliseconds, std::function<void()> action) {
  QTimer::singleShot(milliseconds, &window(), std::move(action));
}

void Bench::answerMessage(std::string& text) {
  later(20, [this, &text] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return answerMessage(text);
    text = box->text().toStdString();
    EXPECT_EQ(box->windowModality(), Qt::WindowModal) << "the board's window goes on";
    QTest::keyClick(box, Qt::Key_Return);
  });
}

void visitStates(Bench& bench,
                 const std::function<void(FormWindow&, const forms::Form&, const std::string&)>& visit) {
  PllForm1& form = bench.form();
  bench.host.version.reset();
  bench.start();
  visit(bench.window(), form, "first");
  form.ContinueCommand_Click();
  visit(bench.window(), form, "start");
  for (const auto& [index, entry] : form.pllM.members()) {
    if (entry.isSeparator()) continue;
    form.pllM_Click(index);
    form.Mregister.Caption = std::string(24, '0');
    for (auto& [row, label] : form.Label21.members()) label.Caption = "R4_2: " + std::string(24, '1');
    for (const bool open : {false, true}) {
      if (open) form.ACommand_Click();
      form.Label70.Caption = "Main: Power Steering/LD";
      form.Label71.Caption = "Aux: Power Steering/LD";
      form.Label8.Caption = "    Current Hop  \r\n 32767\r\n\r\nFrequency:\r\n1747.20000012345";
      form.Label15.Caption = "Current Freq:\r\n12747.200000 MHz";
      const std::string name = entry.value() + (open ? "-panel" : "");
      form.Hop1_Click();
      visit(bench.window(), form, name + "-hop");
      form.Sweep1_Click();
      bench.program.door.click(open ? form.AutoOption1 : form.StepOption);
      visit(bench.window(), form, name + "-sweep");
      form.Gen1_Click();
      visit(bench.window(), form, name);
    }
    if (form.ACommand.Caption == "Close") form.ACommand_Click();
    form.Label17_Click();
  }
  for (forms::Form* dialog : bench.program.forms.all()) {
    if (dialog == &form) continue;
    dialog->Show();
    if (!becomesActive(bench.window(*dialog))) ADD_FAILURE() << dialog->name() << " does not become active";
    visit(bench.window(*dialog), *dialog, dialog->name());
    dialog->Unload();
  }
}

WithFontSize::WithFontSize(double points) {
  QFont font = before_;
  font.setPointSizeF(points);
  QApplication::setFont(font);
}

}  // namespace tessarine::desktop
