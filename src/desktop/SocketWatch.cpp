#include "desktop/SocketWatch.h"

#include <QMetaObject>
#include <algorithm>
#include <utility>
#include <vector>

namespace tessarine::desktop {

SocketWatch::SocketWatch(EventSource& source) : source_(source) {
  source_.changed = [this] { follow(); };
  source_.woken = [this] { post(); };
  follow();
}

SocketWatch::~SocketWatch() {
  source_.changed = nullptr;
  source_.woken = nullptr;
}

void SocketWatch::follow() {
  const std::vector<Interest> wanted = source_.interests();
  const auto forget = [&](Notifiers& notifiers, bool Interest::*wants) {
    std::erase_if(notifiers, [&](const auto& entry) {
      return std::ranges::none_of(wanted, [&](const Interest& interest) {
        return interest.descriptor == entry.first && interest.*wants;
      });
    });
  };
  forget(reading_, &Interest::readable);
  forget(writing_, &Interest::writable);
  for (const Interest& interest : wanted) {
    if (interest.readable) watch(reading_, interest.descriptor, QSocketNotifier::Read);
    if (interest.writable) watch(writing_, interest.descriptor, QSocketNotifier::Write);
  }
}

void SocketWatch::watch(Notifiers& notifiers, int descriptor, QSocketNotifier::Type type) {
  Notifier& notifier = notifiers[descriptor];
  if (notifier) return;
  notifier.reset(new QSocketNotifier(descriptor, type, this));
  connect(notifier.get(), &QSocketNotifier::activated, this, [this] { source_.serve(); });
}

// Not a timer: one that is being handled is not handled again in the waits of its handler.
void SocketWatch::post() {
  if (std::exchange(isPosted_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        isPosted_ = false;
        source_.serve();
      },
      Qt::QueuedConnection);
}

}  // namespace tessarine::desktop
