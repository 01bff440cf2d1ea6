#include "desktop/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "desktop/Fit.h"
#include "desktop/Names.h"
#include "desktop/ReadingOrder.h"

namespace tessarine::desktop {

using forms::Aspect;
using forms::Container;
using forms::Control;
using forms::Kind;

namespace {

// Left free of a screen too small for the window: for its borders, its title bar and a panel of the desktop.
constexpr QSize kScreenReserve(8, 60);

bool holdsOthers(const Control& control) {
  return control.kind() == Kind::Frame || control.kind() == Kind::PictureBox;
}

// The button that Enter can only mean, where the form names none.
forms::CommandButton* onlyButton(const forms::Form& form) {
  forms::CommandButton* only = nullptr;
  for (Control* const control : form.controls()) {
    if (control->kind() != Kind::CommandButton || !control->isVisible() || !control->isEnabled()) continue;
    if (only) return nullptr;
    only = static_cast<forms::CommandButton*>(control);
  }
  return only;
}

}  // namespace

FormWindow::FormWindow(forms::Form& form, Hands& hands, QWidget* owner)
    : QWidget(owner, owner ? Qt::Dialog : Qt::Window),
      form_(form),
      hands_(hands),
      owner_(owner),
      scale_(fittingScale(form, font())),
      bar_(this),
      scroll_(this),
      menus_(form, bar_, hands) {
  setObjectName(toQt(form.name()));
  setWindowTitle(toQt(form.Caption));
  scroll_.setFrameShape(QFrame::NoFrame);
  scroll_.setFocusPolicy(Qt::NoFocus);
  scroll_.setWidget(&canvas_);
  bar_.setVisible(menus_.any());
}

FormWindow::~FormWindow() {
  byControl_.clear();
  while (!made_.empty()) made_.pop_back();  // children before parents
  scroll_.takeWidget();
}

QWidget* FormWindow::widgetOf(const Control& control) const {
  const auto found = byControl_.find(&control);
  return found == byControl_.end() ? nullptr : &found->second->widget();
}

QWidget* FormWindow::ground(const Container& container) {
  return &container == &form_ ? &canvas_ : widgetOf(container);
}

// ----------------------------------------------------------------------------------------------- Building

void FormWindow::build(Container& container, QWidget& parent) {
  for (Control* child : container.children()) {
    if (child->Visible && child->kind() != Kind::Menu) buildOne(*child, parent);
  }
}

void FormWindow::buildOne(Control& control, QWidget& parent) {
  auto made = makeWidget(control, parent, hands_);
  if (!made) return;
  QWidget& widget = made->widget();
  widget.setObjectName(toQt(control.name()));
  if (const std::string name = spokenName(control); !name.empty()) widget.setAccessibleName(toQt(name));
  for (const Aspect aspect : {Aspect::Place, Aspect::Enabled, Aspect::ToolTip}) {
    takeCommon(control, widget, aspect);
  }
  made->takeAll();
  byControl_.emplace(&control, made.get());
  made_.push_back(std::move(made));
  putBelowLaterOnes(control, widget);
  if (holdsOthers(control)) build(static_cast<Container&>(control), widget);
  widget.show();
}

void FormWindow::putBelowLaterOnes(const Control& control, QWidget& widget) {
  const auto& siblings = control.container()->children();
  auto later = std::find(siblings.begin(), siblings.end(), &control);
  while (++later != siblings.end()) {
    if (QWidget* const above = widgetOf(**later)) {
      widget.stackUnder(above);
      return;
    }
  }
}

void FormWindow::restack(const Container& container) {
  for (const Control* child : container.children()) {
    if (QWidget* const widget = widgetOf(*child)) widget->raise();
  }
}

// ------------------------------------------------------------------------------------------------- Changes

void FormWindow::take(Control& control, Aspect aspect) {
  if (&control == &form_) {
    takeForm(aspect);
  } else if (control.kind() == Kind::Menu) {
    menus_.take(control);
  } else if (const auto found = byControl_.find(&control); found != byControl_.end()) {
    takeCommon(control, found->second->widget(), aspect);
    found->second->take(aspect);
  } else if (QWidget* const parent = ground(*control.container());
             parent && control.Visible && form_.Visible) {
    buildOne(control, *parent);
  }
  if (aspect != Aspect::Visible) return;
  notePage(control);
  QTimer::singleShot(0, this, [this] { focusAfterChange(); });
}

// The frames of an array are pages: one takes the place of another.
void FormWindow::notePage(const Control& control) {
  if (control.kind() != Kind::Frame || control.index() == forms::kNoIndex) return;
  (control.Visible ? pageCome_ : pageGone_) = &control;
}

void FormWindow::takeBack(Control& control) {
  if (const auto found = byControl_.find(&control); found != byControl_.end()) found->second->takeAll();
}

void FormWindow::takeCommon(Control& control, QWidget& widget, Aspect aspect) {
  switch (aspect) {
    case Aspect::Visible:
      widget.setVisible(control.Visible);
      break;
    case Aspect::Enabled:
      widget.setEnabled(control.Enabled);
      break;
    case Aspect::ToolTip:
      widget.setToolTip(toQt(control.ToolTip));
      break;
    case Aspect::Place:
      widget.setGeometry(scale_.toPixels(control.Place));
      break;
    case Aspect::ZOrder:
      restack(*control.container());
      break;
    default:
      break;
  }
}

void FormWindow::takeForm(Aspect aspect) {
  switch (aspect) {
    case Aspect::Caption:
      setWindowTitle(toQt(form_.Caption));
      break;
    case Aspect::Visible:
      if (form_.Visible) {
        open();
      } else {
        hide();
      }
      break;
    case Aspect::Enabled:
      setEnabled(form_.Enabled);
      break;
    case Aspect::Place:
      if (placed_) place();
      break;
    case Aspect::MousePointer:
      if (form_.MousePointer == forms::Pointer::hourglass) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
      } else {
        QApplication::restoreOverrideCursor();
      }
      break;
    default:
      break;
  }
}

// -------------------------------------------------------------------------------------- Size and position

void FormWindow::open() {
  if (made_.empty()) build(form_, canvas_);
  if (!placed_) {
    fit();
    place();
    placed_ = true;
  }
  // Opened again it begins where it began, not at the button that closed it.
  if (!isVisible() && focusWidget()) focusWidget()->clearFocus();
  show();
  raise();
  activateWindow();
  focusFirstIfNone();
}

void FormWindow::place() {
  const forms::Twips at = form_.Place;
  if (!owner_ || at.Left != 0 || at.Top != 0) {
    move(pixelsOnScreen(at.Left), pixelsOnScreen(at.Top));
  } else {
    move(owner_->geometry().center() - rect().center());
  }
}

void FormWindow::fit() {
  const QSize content = contentSize(form_, scale_);
  const int barHeight = menus_.any() ? bar_.sizeHint().height() : 0;
  const QSize whole = content + QSize(0, barHeight);
  const QSize room = screen()->availableSize() - kScreenReserve;
  canvas_.setFixedSize(content);
  if (whole.width() <= room.width() && whole.height() <= room.height()) {
    setFixedSize(whole);
  } else {
    // The screen is too small for this font: the window scrolls. A bar for one way takes room from the other.
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &scroll_);
    const QSize most =
        whole + QSize(whole.height() > room.height() ? bar : 0, whole.width() > room.width() ? bar : 0);
    setMinimumSize(0, 0);
    setMaximumSize(most);
    resize(most.boundedTo(room));
  }
}

void FormWindow::layOut() {
  scale_ = fittingScale(form_, font());
  for (const auto& [control, made] : byControl_) {
    made->widget().setGeometry(scale_.toPixels(control->Place));
  }
  fit();
}

void FormWindow::resizeEvent(QResizeEvent*) {
  const int barHeight = menus_.any() ? bar_.sizeHint().height() : 0;
  bar_.setGeometry(0, 0, width(), barHeight);
  scroll_.setGeometry(0, barHeight, width(), height() - barHeight);
}

void FormWindow::moveEvent(QMoveEvent*) {
  // The model knows where the operator has put the window, so that putting it elsewhere is a change.
  if (!placed_ || !isVisible()) return;
  forms::Twips at = form_.Place;
  at.Left = twipsOnScreen(pos().x());
  at.Top = twipsOnScreen(pos().y());
  form_.Place.start(at);
}

// ------------------------------------------------------------------------------------------ Keys and focus

bool FormWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowActivate:
      hands_.activate(form_);
      break;
    case QEvent::FontChange:
      if (placed_) layOut();
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  hands_.close(form_);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  forms::CommandButton* button = nullptr;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (auto* const pressed = qobject_cast<QPushButton*>(focusWidget())) {
        pressed->click();
        return;
      }
      button = form_.defaultButton();
      if (!button) button = onlyButton(form_);
      break;
    case Qt::Key_Escape:
      button = form_.cancelButton();
      break;
    case Qt::Key_F10:
      if (menus_.any()) bar_.setActiveAction(bar_.actions().front());
      return;
    default:
      break;
  }
  if (button) {
    hands_.click(*button);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void FormWindow::focusAfterChange() {
  const Control* const come = std::exchange(pageCome_, nullptr);
  const Control* const gone = std::exchange(pageGone_, nullptr);
  // As with Tab, so that what is typed next takes the place of the text.
  if (come && gone) focusFirstOf(static_cast<const Container&>(*come), Qt::TabFocusReason);
  focusFirstIfNone();
}

void FormWindow::focusFirstIfNone() {
  if (!focusWidget() || !focusWidget()->isVisible()) focusFirstOf(form_, Qt::OtherFocusReason);
}

void FormWindow::focusFirstOf(const Container& container, Qt::FocusReason reason) {
  std::vector<QWidget*> stops;
  collectStops(container, stops);
  if (!stops.empty()) stops.front()->setFocus(reason);
}

bool FormWindow::focusNextPrevChild(bool next) {
  const auto stops = tabStops();
  if (stops.empty()) return QWidget::focusNextPrevChild(next);
  const auto now = std::find(stops.begin(), stops.end(), focusWidget());
  const auto count = static_cast<std::ptrdiff_t>(stops.size());
  std::ptrdiff_t index = next ? 0 : count - 1;
  if (now != stops.end()) index = (now - stops.begin() + (next ? 1 : count - 1)) % count;
  stops[static_cast<std::size_t>(index)]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

std::vector<QWidget*> FormWindow::tabStops() const {
  std::vector<QWidget*> stops;
  collectStops(form_, stops);
  return stops;
}

// What an open panel covers is left out.
void FormWindow::collectStops(const Container& container, std::vector<QWidget*>& stops) const {
  std::vector<Placed> shown;
  for (const Control* child : container.children()) {
    QWidget* const widget = widgetOf(*child);
    if (widget && widget->isVisible() && widget->isEnabled()) shown.push_back({child, widget});
  }
  for (const Placed& item : inReadingOrder(std::move(shown))) {
    if (holdsOthers(*item.control)) {
      collectStops(static_cast<const Container&>(*item.control), stops);
    } else if ((item.widget->focusPolicy() & Qt::TabFocus) != 0 && isOnTop(*item.widget)) {
      stops.push_back(item.widget);
    }
  }
}

bool FormWindow::isOnTop(const QWidget& widget) const {
  const QWidget* const top = canvas_.childAt(widget.mapTo(&canvas_, widget.rect().center()));
  return top && (top == &widget || widget.isAncestorOf(top));
}

}  // namespace tessarine::desktop
