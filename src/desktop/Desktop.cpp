#include "desktop/Desktop.h"

#include <QAbstractButton>
#include <QEventLoop>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <cstdlib>
#include <iostream>
#include <string>

#include "desktop/Deadline.h"
#include "desktop/Icon.h"
#include "desktop/Signals.h"
#include "desktop/Style.h"
#include "platform/Fault.h"

namespace tessarine::desktop {

namespace {

// Room for the title, and a button of the size that those of the windows have.
void fitBox(QMessageBox& box) {
  const QFontMetrics metrics = box.fontMetrics();
  constexpr int kTitleButtons = 12;  // what a frame puts beside its title, in letters of it
  const int title = metrics.horizontalAdvance(box.windowTitle()) +
                    kTitleButtons * metrics.horizontalAdvance(QLatin1Char('M'));
  auto* const text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  // A least width of its own would cut a text that needs more.
  if (text && text->sizeHint().width() < title) text->setMinimumWidth(title);
  if (box.icon() == QMessageBox::NoIcon) {
    for (int index = 0; index < box.layout()->count(); ++index) {
      if (QSpacerItem* const place = box.layout()->itemAt(index)->spacerItem()) place->changeSize(0, 0);
    }
  }
  for (QAbstractButton* const button : box.buttons()) {
    button->setMinimumSize(metrics.averageCharWidth() * 14, metrics.height() * 2);
  }
}

void endOnFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type != QtFatalMsg) return;  // the reasons on the way there stand in the last message as well
  constexpr int kUnavailable = 69;
  std::cerr << "No window can be opened: " << text.section(QLatin1Char('\n'), 0, 0).toStdString()
            << "\nIs there a display at DISPLAY or WAYLAND_DISPLAY?" << std::endl;
  std::_Exit(kUnavailable);
}

}  // namespace

void endWithoutDisplay() { qInstallMessageHandler(endOnFatal); }

void dress(QApplication& application, const char* program) {
  qInstallMessageHandler(nullptr);
  application.setApplicationName(QString::fromLatin1(kApplicationTitle));
  application.setDesktopFileName(QLatin1String(program));
  application.setQuitOnLastWindowClosed(false);
  application.setCursorFlashTime(0);  // a blinking cursor would cost time while nothing happens
  auto style = std::make_unique<Style>();
  // A desktop that brings colours of its own keeps them.
  const QPalette plain = style->baseStyle()->standardPalette();
  const QPalette given = QApplication::palette();
  QApplication::setStyle(style.release());
  if (given.color(QPalette::Window) == plain.color(QPalette::Window) &&
      given.color(QPalette::Highlight) == plain.color(QPalette::Highlight)) {
    QApplication::setPalette(lightPalette());
  }
  QApplication::setWindowIcon(windowIcon());
}

Desktop::~Desktop() { detach(); }

void Desktop::run(forms::FormList& forms, forms::Operator& door, const std::function<void()>& start) {
  attach(forms, door);
  const Signals signals([this, &forms, &door] {
    if (!ended_) door.run([&] { forms.all().front()->Form_QueryUnload(); });
  });
  start();
  if (!ended_) QCoreApplication::exec();
  detach();
}

void Desktop::attach(forms::FormList& forms, forms::Operator& door) {
  forms_ = &forms;
  door_ = &door;
  forms.observe(*this);
}

void Desktop::detach() {
  if (!forms_) return;
  forms_->unobserve(*this);
  // The main window goes last: the others stand over it.
  const forms::Form* const main = forms_->all().front();
  std::erase_if(windows_, [&](const auto& entry) { return entry.first != main; });
  windows_.clear();
  forms_ = nullptr;
  door_ = nullptr;
}

FormWindow* Desktop::windowOf(const forms::Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.get();
}

FormWindow& Desktop::windowFor(forms::Form& form) {
  if (FormWindow* const window = windowOf(form)) return *window;
  const bool isMain = &form == forms_->all().front();
  QWidget* const owner = isMain ? nullptr : &windowFor(*forms_->all().front());
  return *windows_.emplace(&form, std::make_unique<FormWindow>(form, *this, owner)).first->second;
}

void Desktop::tell(const std::string& text) {
  if (!forms_ || ended_) return;
  auto* const note = new QMessageBox(QMessageBox::Warning, QString::fromLatin1(kApplicationTitle), toQt(text),
                                     QMessageBox::Ok, windowOf(*forms_->all().front()));
  note->setObjectName(QStringLiteral("note"));
  note->setAttribute(Qt::WA_DeleteOnClose);
  note->setTextFormat(Qt::PlainText);
  note->setModal(false);
  fitBox(*note);
  note->show();
}

// -------------------------------------------------------------------------------------------------- Screen

void Desktop::messageBox(const std::string& text, Icon icon, const std::string& title) {
  throwIfEnded();
  if (answer && answer(text, icon, title)) return;
  // It holds up all windows of the program, and no other: a fault of the virtual board can still be mended.
  QWidget* owner = dynamic_cast<FormWindow*>(QApplication::activeWindow());
  if (!owner && forms_) owner = windowOf(*forms_->all().front());
  QMessageBox box(icon == Icon::critical ? QMessageBox::Critical : QMessageBox::NoIcon, toQt(title),
                  toQt(text), QMessageBox::Ok, owner);
  if (owner) box.setWindowModality(Qt::WindowModal);
  box.setObjectName(QStringLiteral("messageBox"));
  box.setTextFormat(Qt::PlainText);
  if (const std::string more = remark ? remark(text) : std::string(); !more.empty()) {
    box.setInformativeText(toQt(more));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  fitBox(box);
  box.exec();
  throwIfEnded();
}

void Desktop::showModal(forms::Form& form) {
  throwIfEnded();
  FormWindow& window = windowFor(form);
  window.setWindowModality(Qt::ApplicationModal);
  const forms::Modality modality(form);
  form.Show();
  if (operateModal) operateModal(form);
  QEventLoop loop;
  while (form.Visible && !ended_) loop.processEvents(QEventLoop::WaitForMoreEvents);
  throwIfEnded();
}

void Desktop::repaint(forms::Control& control) {
  FormWindow* const window = windowOf(control.form());
  if (!window) return;
  if (&control == &control.form()) {
    window->repaint();
  } else if (QWidget* const widget = window->widgetOf(control)) {
    widget->repaint();
  }
}

void Desktop::processEvents() {
  throwIfEnded();
  QCoreApplication::processEvents();
  throwIfEnded();
  if (runOtherEvents) runOtherEvents();
  throwIfEnded();
}

void Desktop::breathe() { QCoreApplication::processEvents(); }

void Desktop::sleepUntilEvent(double seconds) {
  throwIfEnded();
  if (untilOtherEvents) seconds = std::min(seconds, untilOtherEvents());
  if (!(seconds > 0)) return;
  // The deadline is the event that ends the sleep when nothing else does. The toolkit cannot wait without
  // handing events on, so what wakes us has been handled when this returns; the caller lets events run next
  // all the same.
  const Deadline deadline(seconds);
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  throwIfEnded();
}

void Desktop::endProgram() {
  ended_ = true;
  QCoreApplication::exit();
  throw ProgramEnded{};
}

void Desktop::throwIfEnded() const {
  if (ended_) throw ProgramEnded{};
}

// ------------------------------------------------------------------------------------------------ Observer

void Desktop::changed(forms::Control& control, forms::Aspect aspect) {
  const bool showsNow = &control == &control.form() && aspect == forms::Aspect::Visible && control.Visible;
  FormWindow* const window = showsNow ? &windowFor(control.form()) : windowOf(control.form());
  if (window) window->take(control, aspect);
}

// --------------------------------------------------------------------------------------------------- Hands

void Desktop::act(forms::Control& control, const std::function<Refusal(forms::Operator&)>& action) {
  if (ended_ || !door_) return;
  const Refusal refused = action(*door_);
  if (ended_) return;
  if (FormWindow* const window = windowOf(control.form()); window && refused) window->takeBack(control);
  showActiveForm();
}

void Desktop::showActiveForm() {
  // A form that was shown again while it stood behind another one comes to the front.
  const forms::Form* const active = forms_->active();
  FormWindow* const window = active ? windowOf(*active) : nullptr;
  const bool ours = QApplication::activeWindow() && !QApplication::activeModalWidget();
  if (window && ours && window->isVisible() && !window->isActiveWindow()) {
    window->raise();
    window->activateWindow();
  }
}

void Desktop::click(forms::Control& control) {
  act(control, [&](forms::Operator& door) { return door.click(control); });
}

void Desktop::doubleClick(forms::Control& control) {
  act(control, [&](forms::Operator& door) { return door.doubleClick(control); });
}

void Desktop::type(forms::Control& control, const QString& text) {
  act(control, [&](forms::Operator& door) { return door.type(control, text.toStdString()); });
}

void Desktop::pick(forms::Control& control, int item) {
  act(control, [&](forms::Operator& door) { return door.pick(control, item); });
}

void Desktop::activate(forms::Form& form) {
  if (!ended_ && door_ && forms_->active() != &form) (void)door_->activate(form);
}

void Desktop::close(forms::Form& form) {
  act(form, [&](forms::Operator& door) { return door.close(form); });
}

}  // namespace tessarine::desktop
