// The recording of a program: what comes in through its door and what is done to its board, into the file of
// --record where there is one.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "apps/BoardLink.h"
#include "apps/RecordFile.h"
#include "board/VirtualBoard.h"
#include "script/Recorder.h"
#include "script/WaitedTime.h"
#include "window/Program.h"

namespace tessarine {

class Recording {
 public:
  struct Clock {
    std::function<std::int64_t()> microseconds;  // never goes back
    bool isVirtual;                              // it passes in waits alone
  };
  // `tell` as for RecordFile. Link and program outlive this.
  Recording(const std::string& path, BoardLink& link, Program& program, const Clock& clock,
            std::function<void(const std::string& why)> tell)
      : program_(program),
        board_(link.virtualBoard()),
        time_(clock.microseconds, clock.isVirtual),
        recorder_(program.forms, program.door, time_),
        file_(path, std::move(tell)) {
    program_.module.waitWatch = &time_;
    if (board_ != nullptr) {
      board_->onFault = [this](std::string_view name) { recorder_.boardFault(name); };
    }
  }
  ~Recording() {
    program_.module.waitWatch = nullptr;
    if (board_ != nullptr) board_->onFault = nullptr;
  }
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  [[nodiscard]] script::Recorder& recorder() { return recorder_; }
  [[nodiscard]] script::WaitedTime& time() { return time_; }
  // Writes the file from now on.
  void open() { file_.listen(recorder_); }
  [[nodiscard]] bool finish() { return file_.finish(); }

 private:
  Program& program_;
  board::VirtualBoard* board_;
  script::WaitedTime time_;
  script::Recorder recorder_;
  RecordFile file_;
};

}  // namespace tessarine
