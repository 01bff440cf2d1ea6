// Counts the events of one type while it lives.
#pragma once

#include <QApplication>
#include <QEvent>
#include <functional>
#include <utility>

namespace tessarine::desktop {

class EventCounter : public QObject {
 public:
  using Choice = std::function<bool(const QObject&)>;

  explicit EventCounter(
      QEvent::Type type, Choice counts = [](const QObject&) { return true; })
      : type_(type), counts_(std::move(counts)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == type_ && counts_(*watched)) ++count;
    return false;
  }

  int count = 0;

 private:
  QEvent::Type type_;
  Choice counts_;
};

}  // namespace tessarine::desktop
