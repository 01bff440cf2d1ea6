// What the operator does, written as a script that does it again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Form.h"
#include "forms/Operator.h"
#include "script/WaitedTime.h"

namespace tessarine::script {

// The line that scripts written by the program begin with: its name, its version and the day.
[[nodiscard]] std::string headLine();

class Recorder final : public forms::DoorWatch, public forms::Observer {
 public:
  // Records what comes in through `door` for as long as it lives.
  Recorder(forms::FormList& forms, forms::Operator& door, WaitedTime& time);
  ~Recorder() override;
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  void boardFault(std::string_view name);

  // The script so far, whole lines.
  [[nodiscard]] const std::string& text() const { return text_; }
  [[nodiscard]] std::uint64_t version() const { return version_; }  // another one for each change
  // How much of it will not change any more: actions in the waits of a line are written in front of it, and
  // typing goes on in the last line.
  [[nodiscard]] std::size_t settled() const;
  // Called after each change, with where in the text it begins, and when more of it is settled.
  std::function<void(std::size_t from)> onChange;

  void begins(const forms::Action& action) override;
  void ends() override;
  void changed(forms::Control& control, forms::Aspect aspect) override;

 private:
  // Lines that are carried out one behind the other: the script's own, or those that work a modal form.
  struct Sequence {
    const forms::Form* modal;  // null: the script's own
    bool isTimed;              // it was opened in a wait, which goes on when it is closed
    std::int64_t since;        // when its last line ended, or the form was opened
    std::int64_t begun = 0;    // its present line
    std::size_t place = 0;     // of that line in the text
  };
  struct Running {
    std::size_t sequence;
    bool isLine;  // and not an action in the wait of one
  };

  [[nodiscard]] bool isInWait() const;
  void write(const std::string& command, const forms::Control* typedInto);
  void passTime(Sequence& sequence);
  void insert(std::size_t place, const std::string& line);
  void tell();

  forms::FormList& forms_;
  forms::Operator& door_;
  WaitedTime& time_;
  std::string text_;
  std::uint64_t version_ = 0;
  std::size_t changedFrom_ = std::string::npos;  // what is still to be told
  std::vector<Sequence> sequences_;
  std::vector<Running> running_;
  // The field that the last line typed into, if the next text may take that line's place.
  const forms::Control* typed_ = nullptr;
};

}  // namespace tessarine::script
