// What --serve asks for: other programs work this one over TCP, beside its operator.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "apps/BoardLink.h"
#include "apps/Options.h"
#include "platform/Platform.h"
#include "platform/Sockets.h"
#include "remote/ClientScreen.h"
#include "remote/Server.h"
#include "script/ScriptScreen.h"
#include "script/ScriptTime.h"
#include "window/Program.h"

namespace tessarine {

class RemoteControl {
 public:
  // Listens from now on and tells where, if the options say so; a Fault tells why not.
  RemoteControl(const ProgramKind& kind, const Options& options);

  // The one to make a program with that is to show on `screen`.
  [[nodiscard]] Screen& screenOver(Screen& screen);
  // Answers clients from now on, as often as it is let, until it goes, which is before the program, the link
  // and this. Null where nothing is served.
  [[nodiscard]] std::unique_ptr<remote::Server> connect(Program& program, BoardLink& link);

 private:
  const ProgramKind& kind_;
  const Options& options_;
  std::optional<remote::ClientScreen> screen_;
  std::unique_ptr<Listener> listener_;
};

// Real time that is slept away watching over what comes in from outside.
class WatchfulTime : public script::RealTime {
 public:
  void sleepUntil(std::int64_t time) override;
  // Null: nothing any more.
  void watch(const EventSource* source) { source_ = source; }

 private:
  const EventSource* source_ = nullptr;
};

// Lets clients work a program without a window until it has ended.
void serveUntilEnd(EventSource& source, WatchfulTime& time, script::ScriptScreen& screen);

}  // namespace tessarine
