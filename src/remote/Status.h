// What a client can ask of how its commands went: the error queue and the registers of IEEE 488.2.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace tessarine::remote {

class Status {
 public:
  static constexpr std::size_t kDeepest = 30;  // errors kept
  // Bits of the event register.
  static constexpr int kComplete = 1;
  // Bits of the status byte.
  static constexpr int kErrorsWait = 4;
  static constexpr int kReplyWaits = 16;
  static constexpr int kEvents = 32;
  static constexpr int kRequests = 64;

  // One of SCPI's numbers; its standard text is put in front of `detail`.
  void add(int number, std::string_view detail = {});
  // `-113,"Undefined header;FOO"`, the oldest first; `0,"No error"` when there is none.
  [[nodiscard]] std::string takeError();
  [[nodiscard]] std::size_t errorCount() const { return errors_.size(); }

  void raise(int eventBit) { events_ |= eventBit; }
  [[nodiscard]] int takeEvents();
  [[nodiscard]] int statusByte(bool replyWaits) const;
  void clear();

  int eventsEnabled = 0;
  int requestsEnabled = 0;

 private:
  std::deque<std::string> errors_;
  int events_ = 0;
};

}  // namespace tessarine::remote
