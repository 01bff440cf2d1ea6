#include "desktop/board/BoardWindow.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QTabBar>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "desktop/board/Texts.h"

namespace tessarine::desktop {

namespace {

// At most 60 refreshes a second, and at most a 25th of the time spent on them: they run while a load waits,
// and must not make it wait for pictures.
constexpr std::int64_t kLeastPause = 1'000'000'000 / 60 + 1;  // nanoseconds
constexpr std::int64_t kMostPause = 500'000'000;
constexpr std::int64_t kCostShare = 25;
constexpr std::int64_t kMillisecond = 1'000'000;

QString faultText(board::BoardFault fault) {
  switch (fault) {
    case board::BoardFault::none:
      return QStringLiteral("none");
    case board::BoardFault::noEcho:
      return QStringLiteral("parallel port does not echo");
    case board::BoardFault::stuckData:
      return QStringLiteral("stuck data line");
    case board::BoardFault::noLe:
      return QStringLiteral("LE not connected");
    case board::BoardFault::noReference:
      return QStringLiteral("reference missing");
  }
  return {};
}

bool knowsPlaces() { return !QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }

QFont enlarged(const QFont& base, double factor, bool bold) {
  QFont font = base;
  font.setPointSizeF(base.pointSizeF() * factor);
  font.setBold(bold);
  return font;
}

}  // namespace

BoardWindow::BoardWindow(BoardFeed feed)
    : feed_(std::move(feed)),
      saving_{askWithDialog, [this](const QString& text) { status_.setText(text); }, askToOpenWithDialog},
      chip_(feed_.reach),
      wire_(feed_.board, saving_),
      frequency_(feed_.board, saving_),
      script_(feed_.script, saving_) {
  setObjectName(QStringLiteral("boardWindow"));
  setWindowTitle(QStringLiteral("Virtual board"));
  // Looked at when the native window is made: later it would be too late.
  setAttribute(Qt::WA_ShowWithoutActivating);
  auto* const column = new QVBoxLayout(this);
  fillHeader(*column);

  views_.setObjectName(QStringLiteral("boardViews"));
  views_.addTab(&chip_, QStringLiteral("&Chip"));
  views_.addTab(&registers_, QStringLiteral("&Registers"));
  views_.addTab(&wire_, QStringLiteral("&Wire"));
  views_.addTab(&frequency_, QStringLiteral("Fre&quency"));
  views_.addTab(&script_, QStringLiteral("Scri&pt"));
  column->addWidget(&views_, 1);
  // Keys that are pressed by mistake must not make the board faulty.
  views_.tabBar()->setFocusPolicy(Qt::StrongFocus);
  views_.setFocus();
  status_.setObjectName(QStringLiteral("boardStatus"));
  status_.setTextFormat(Qt::PlainText);
  status_.setWordWrap(true);
  if (feed_.virtualBoard == nullptr) {
    status_.setText(
        QStringLiteral("What was sent since this window opened; frequencies and lock are worked "
                       "out from it, not measured."));
  }
  column->addWidget(&status_);
  remote_.setObjectName(QStringLiteral("boardRemote"));
  remote_.setTextFormat(Qt::PlainText);
  remote_.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  remote_.setVisible(!feed_.remote().empty());
  column->addWidget(&remote_);
  resize(fontMetrics().averageCharWidth() * 140, fontMetrics().height() * 46);

  next_.setSingleShot(true);
  next_.setTimerType(Qt::PreciseTimer);
  connect(&next_, &QTimer::timeout, this, [this] { refresh(); });
  connect(&views_, &QTabWidget::currentChanged, this, [this] { refresh(); });
  // Everything is sent by a handler of some event. So looking when events have run finds whatever is new, and
  // an idle program is never woken to look in vain.
  const auto* const events = QAbstractEventDispatcher::instance();
  connect(events, &QAbstractEventDispatcher::aboutToBlock, this, [this] { watch(); });
  connect(events, &QAbstractEventDispatcher::awake, this, [this] { watch(); });
}

// The pages leave one by one; none of the others is to be shown in its place.
BoardWindow::~BoardWindow() { views_.disconnect(this); }

void BoardWindow::fillHeader(QBoxLayout& column) {
  name_.setObjectName(QStringLiteral("boardChip"));
  name_.setFont(enlarged(font(), 1.5, true));
  output_.setObjectName(QStringLiteral("boardOutput"));
  output_.setFont(enlarged(font(), 1.5, false));
  reason_.setObjectName(QStringLiteral("boardReason"));
  reason_.setTextFormat(Qt::PlainText);
  reason_.setWordWrap(true);
  reason_.setMinimumHeight(fontMetrics().height());
  auto* const upper = new QHBoxLayout;
  upper->addWidget(&name_, 1);
  if (feed_.virtualBoard != nullptr) {
    fillFaults();
    upper->addWidget(&faultCaption_);
    upper->addWidget(&fault_);
  }
  auto* const lower = new QHBoxLayout;
  lower->setSpacing(fontMetrics().height());
  lower->addWidget(&output_);
  lower->addWidget(&lock_);
  lower->addStretch(1);
  column.addLayout(upper);
  column.addLayout(lower);
  column.addWidget(&reason_);
}

void BoardWindow::fillFaults() {
  fault_.setObjectName(QStringLiteral("boardFault"));
  fault_.setAccessibleName(QStringLiteral("Fault of the board"));
  fault_.setToolTip(QStringLiteral("Makes the board faulty on purpose"));
  faultCaption_.setBuddy(&fault_);
  for (const board::BoardFaultName& entry : board::boardFaults()) fault_.addItem(faultText(entry.fault));
  connect(&fault_, &QComboBox::activated, this, [this](int item) {
    feed_.virtualBoard->setFault(board::boardFaults()[static_cast<std::size_t>(item)].fault);
    refresh();
  });
}

// ------------------------------------------------------------------------------------------------ Refreshing

bool BoardWindow::isUpToDate() const {
  return shownVersion_ == feed_.board.version() && shownAsked_ == feed_.askedMHz() &&
         shownRemote_ == feed_.remote() && shownFields_ == feed_.fieldsVersion() &&
         (views_.currentWidget() != &script_ || script_.isUpToDate());
}

void BoardWindow::watch() {
  if (next_.isActive() || !isVisible() || isMinimized() || isUpToDate()) return;
  const std::int64_t pause = std::clamp(cost_ * kCostShare, kLeastPause, kMostPause);
  const std::int64_t left = sinceRefresh_.isValid() ? pause - sinceRefresh_.nsecsElapsed() : 0;
  next_.start(static_cast<int>((std::max<std::int64_t>(left, 0) + kMillisecond - 1) / kMillisecond));
}

void BoardWindow::refresh() {
  if (!isVisible()) return;
  sinceRefresh_.start();
  shownVersion_ = feed_.board.version();
  shownAsked_ = feed_.askedMHz();
  shownRemote_ = feed_.remote();
  shownFields_ = feed_.fieldsVersion();
  setTextIfNew(remote_, QString::fromStdString(shownRemote_));
  takeHeader();
  // The tab widget knows its pages as plain widgets.
  const std::array<BoardView*, 5> views = {&chip_, &registers_, &wire_, &frequency_, &script_};
  for (BoardView* const view : views) {
    if (view == views_.currentWidget()) view->take(feed_.board, shownAsked_);
  }
  if (windowHandle() != nullptr && windowHandle()->isExposed()) {
    // Paints at once, so that the cost of it is known.
    QEvent paint(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(this, &paint);
  }
  cost_ = sinceRefresh_.nsecsElapsed();
}

void BoardWindow::takeHeader() {
  const board::Tuning& tuning = feed_.board.tuning();
  const board::Chip* const chip = feed_.board.chip();
  setTextIfNew(name_, chip == nullptr ? QStringLiteral("No chip") : text(chip->model().name));
  setTextIfNew(output_, tuning.outputMHz ? megahertzText(*tuning.outputMHz) : QStringLiteral("– MHz"));
  lock_.take(tuning);
  setTextIfNew(reason_, text(tuning.reason()));
  if (feed_.virtualBoard != nullptr) {
    const auto found =
        std::ranges::find(board::boardFaults(), feed_.virtualBoard->fault(), &board::BoardFaultName::fault);
    fault_.setCurrentIndex(static_cast<int>(found - board::boardFaults().begin()));
  }
}

bool BoardWindow::event(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) shownVersion_.reset();
  return QWidget::event(event);
}

// ------------------------------------------------------------------------------------------- Showing, hiding

void BoardWindow::showEvent(QShowEvent* event) {
  if (!std::exchange(opened_, true)) feed_.onFirstShow();
  QWidget::showEvent(event);
  refresh();
}

void BoardWindow::toggle() {
  if (isVisible() && !isMinimized() && !isCovered()) {
    hide();
    return;
  }
  inFront_ = true;
  if (isMinimized()) {
    showNormal();
  } else {
    show();
  }
  raise();
}

void BoardWindow::runScript(const QString& path) {
  views_.setCurrentWidget(&script_);
  if (!isVisible() && beside_.isNull()) toggle();
  script_.run(path);
}

bool BoardWindow::isCovered() const {
  if (inFront_) return false;
  return std::ranges::any_of(QApplication::topLevelWidgets(), [this](const QWidget* other) {
    return other != this && other->isVisible() && other->isWindow() &&
           other->frameGeometry().intersects(frameGeometry());
  });
}

void BoardWindow::openBelow() {
  if (!knowsPlaces()) show();
}

void BoardWindow::openBeside(QWidget* other) {
  if (!knowsPlaces()) return;
  QWindow* const handle = other == nullptr ? nullptr : other->windowHandle();
  if (handle == nullptr) return;
  if (!handle->isExposed()) {
    // Only then does it have its place and its frame.
    if (beside_.isNull()) handle->installEventFilter(this);
    beside_ = other;
    return;
  }
  placeBeside(*other);
  show();
  if (frameGeometry().intersects(other->frameGeometry())) other->raise();
}

bool BoardWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose && !beside_.isNull() && beside_->windowHandle()->isExposed()) {
    watched->removeEventFilter(this);
    QWidget* const other = beside_;
    beside_.clear();
    // Not in the midst of the other one's event.
    QTimer::singleShot(0, other, [this, other] { openBeside(other); });
  }
  return QWidget::eventFilter(watched, event);
}

// Right or left of it; where there is no room, in the corner.
void BoardWindow::placeBeside(const QWidget& other) {
  const QRect room = other.screen()->availableGeometry();
  const QRect taken = other.frameGeometry();
  const int gap = fontMetrics().height() / 2;
  const int right = room.right() - taken.right() - gap;
  const int left = taken.left() - room.left() - gap;
  if (std::max(left, right) < minimumSizeHint().width()) {
    move(std::max(room.left(), room.right() - width()), std::max(room.top(), room.bottom() - height()));
    return;
  }
  resize(QSize(std::min(width(), std::max(left, right)), std::min(height(), room.height() - 2 * gap))
             .expandedTo(minimumSizeHint()));
  const int x = right >= left ? taken.right() + gap : taken.left() - gap - width();
  move(x, std::clamp(taken.top(), room.top(), std::max(room.top(), room.bottom() - height())));
}

// ------------------------------------------------------------------------------------------------------- F12

BoardKey::BoardKey(BoardWindow& window) : window_(window) { qApp->installEventFilter(this); }

// A shortcut would be dead while its window is hidden.
bool BoardKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowActivate || event->type() == QEvent::MouseButtonPress) {
    if (const auto* const widget = qobject_cast<QWidget*>(watched)) window_.reachedFor(*widget->window());
  }
  if (event->type() == QEvent::KeyPress) {
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_F12 && key->modifiers() == Qt::NoModifier) {
      if (!key->isAutoRepeat()) window_.toggle();
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace tessarine::desktop
