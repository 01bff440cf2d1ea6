// Work from outside in the toolkit's loop.
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <map>
#include <memory>

#include "platform/Sockets.h"

namespace tessarine::desktop {

// Serves `source`, which outlives this, wherever the toolkit runs events: between the operator's actions,
// within their waits, and under an open message.
class SocketWatch : public QObject {
 public:
  explicit SocketWatch(EventSource& source);
  ~SocketWatch() override;
  SocketWatch(const SocketWatch&) = delete;
  SocketWatch& operator=(const SocketWatch&) = delete;

 private:
  // A notifier may have to go while it is telling.
  struct Later {
    void operator()(QSocketNotifier* notifier) const {
      notifier->setEnabled(false);
      notifier->deleteLater();
    }
  };
  using Notifier = std::unique_ptr<QSocketNotifier, Later>;
  using Notifiers = std::map<int, Notifier>;  // by descriptor

  void follow();
  void post();
  void watch(Notifiers& notifiers, int descriptor, QSocketNotifier::Type type);

  EventSource& source_;
  Notifiers reading_;
  Notifiers writing_;
  bool isPosted_ = false;
};

}  // namespace tessarine::desktop
