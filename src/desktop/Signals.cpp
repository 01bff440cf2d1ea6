#include "desktop/Signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace tessarine::desktop {

namespace {

struct Ending {
  int number;
  struct sigaction before;
};

std::array<Ending, 2> endings = {{{SIGINT, {}}, {SIGTERM, {}}}};

// A handler may do nothing but write to a pipe; the event loop reads it.
std::array<int, 2> wakePipe = {-1, -1};

void restore() {
  for (const Ending& ending : endings) ::sigaction(ending.number, &ending.before, nullptr);
}

void onSignal(int /*number*/) {
  const int before = errno;
  restore();
  const char byte = 1;
  [[maybe_unused]] const auto written = ::write(wakePipe[1], &byte, 1);
  errno = before;
}

}  // namespace

Signals::Signals(std::function<void()> end) {
  if (::pipe2(wakePipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(wakePipe[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [end = std::move(end)] {
    char byte = 0;
    if (::read(wakePipe[0], &byte, 1) == 1) end();
  });
  struct sigaction action = {};
  action.sa_handler = onSignal;
  action.sa_flags = SA_RESTART;
  for (Ending& ending : endings) ::sigaction(ending.number, &action, &ending.before);
}

Signals::~Signals() {
  if (!notifier_) return;
  restore();
  notifier_.reset();
  for (int& end : wakePipe) {
    ::close(end);
    end = -1;
  }
}

}  // namespace tessarine::desktop
