#include "desktop/Bench.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

namespace tessarine::desktop {

void Bench::start() {
  program.start();
  if (!QTest::qWaitForWindowActive(&window())) ADD_FAILURE() << "the window does not become active";
}

void Bench::startWorking(bool usbChosen) {
  // A host that is no NT needs no driver, so that nothing has to be waited for.
  host.version.reset();
  start();
  if (usbChosen) click("IOOption(1)");
  click("ContinueCommand");
}

void Bench::click(QWidget* widget) {
  if (!widget || !widget->isVisible()) {
    ADD_FAILURE() << "nothing to click";
    return;
  }
  QTest::mouseClick(widget, Qt::LeftButton);
}

void Bench::type(const char* name, const char* text) {
  auto* const widget = find<QWidget>(name);
  if (!widget) {
    ADD_FAILURE() << "no widget " << name;
    return;
  }
  widget->setFocus();
  QTest::keySequence(widget, QKeySequence::SelectAll);
  if (*text == '\0') {
    QTest::keyClick(widget, Qt::Key_Delete);
  } else {
    QTest::keyClicks(widget, QString::fromUtf8(text));
  }
}

void Bench::pick(const char* name, int item) {
  auto* const box = find<QComboBox>(name);
  if (!box) {
    ADD_FAILURE() << "no list " << name;
    return;
  }
  box->showPopup();
  QAbstractItemView* const view = box->view();
  const QRect row = view->visualRect(view->model()->index(item, 0));
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, row.center());
}

void Bench::menu(const char* name) {
  auto* const action = find<QAction>(name);
  if (!action) {
    ADD_FAILURE() << "no menu entry " << name;
    return;
  }
  action->trigger();
  QCoreApplication::processEvents();
}

}  // namespace tessarine::desktop
