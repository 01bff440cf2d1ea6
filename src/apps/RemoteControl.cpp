#include "apps/RemoteControl.h"

#include <cstdint>
#include <iostream>
#include <string>
#include <utility>

#include "platform/Fault.h"
#include "platform/linux/LinuxSockets.h"

namespace tessarine {
namespace {

// Host and port of "localhost:5025"; the brackets of "[::1]:5025" part them only.
Listening listenAt(const std::string& address) {
  const std::size_t colon = address.rfind(':');
  if (colon == std::string::npos) return listenOn({}, address);
  std::string host = address.substr(0, colon);
  if (host.starts_with('[') && host.ends_with(']')) host = host.substr(1, host.size() - 2);
  return listenOn(host, address.substr(colon + 1));
}

}  // namespace

RemoteControl::RemoteControl(const ProgramKind& kind, const Options& options)
    : kind_(kind), options_(options) {
  if (options.serve.empty()) return;
  Listening listening = listenAt(options.serve);
  if (!listening.isLoopback) {
    std::cerr << kind.name << ": anybody who reaches " << listening.listener->address()
              << " over the network can work this board: there is no password, and nothing is encrypted"
              << std::endl;
  }
  std::cout << "serving\t" << listening.listener->address() << std::endl;
  listener_ = std::move(listening.listener);
}

Screen& RemoteControl::screenOver(Screen& screen) {
  return listener_ ? static_cast<Screen&>(screen_.emplace(screen)) : screen;
}

std::unique_ptr<remote::Server> RemoteControl::connect(Program& program, BoardLink& link) {
  if (!listener_) return nullptr;
  link.listen();
  const bool hasPin = options_.board == BoardKind::gpio;
  return std::make_unique<remote::Server>(
      remote::Instrument{
          .program = program,
          .board = link.board(),
          .name = kind_.name,
          .readsLockPin = [&program, hasPin] { return hasPin || program.module.PortType == "USB"; }},
      *screen_, std::move(listener_));
}

void WatchfulTime::sleepUntil(std::int64_t time) {
  if (source_ == nullptr) return RealTime::sleepUntil(time);
  if (!source_->hasWork()) waitFor(source_->interests(), time - now());
}

void serveUntilEnd(EventSource& source, WatchfulTime& time, script::ScriptScreen& screen) {
  constexpr double kHour = 3600;  // in seconds: nothing but events ends the wait
  time.watch(&source);
  screen.runOtherEvents = [&source] { source.serve(); };
  screen.operateModal = [&screen](forms::Form& form) {
    while (form.Visible) {
      screen.sleepUntilEvent(kHour);
      screen.processEvents();
    }
  };
  try {
    for (;;) {
      screen.processEvents();
      screen.sleepUntilEvent(kHour);
    }
  } catch (const ProgramEnded&) {  // NOLINT(bugprone-empty-catch): what has been waited for
  }
  screen.operateModal = nullptr;
  screen.runOtherEvents = nullptr;
  time.watch(nullptr);
}

}  // namespace tessarine
