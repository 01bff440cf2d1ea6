// The operator as a text: one command a line, carried out on the program's controls through the same door
// that the desktop uses.
#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <ostream>
#include <set>
#include <string>
#include <string_view>

#include "forms/Form.h"
#include "forms/Operator.h"
#include "script/BoardProbe.h"
#include "script/ScriptText.h"
#include "script/Stage.h"

namespace tessarine::script {

class Interpreter {
 public:
  enum Status { kDone = 0, kExpectFailed = 1, kRefused = 2 };

  // What a script works on and where it prints. `board` is null where there is no virtual board.
  struct Surroundings {
    forms::FormList& forms;
    forms::Operator& door;
    Stage& stage;
    BoardProbe* board;
    std::ostream& out;
    std::ostream& errors;
    std::function<std::string()> snapshot = {};  // the present settings as a script
    // What "board reach" prints; empty where nobody can tell.
    std::function<std::string()> reach = {};
  };

  // `fileName` stands in front of messages.
  Interpreter(const Surroundings& around, std::istream& script, std::string fileName);
  ~Interpreter();
  Interpreter(const Interpreter&) = delete;
  Interpreter& operator=(const Interpreter&) = delete;

  // Carries the script out to its end, to the program's end or to a line that cannot be carried out.
  Status run();

 private:
  // A line that is read and looked up, ready to be carried out. Throws Refused.
  using Action = std::function<void()>;
  struct Commands;  // one function a command

  [[nodiscard]] Action prepare(std::string_view line, int number);
  void perform(const Action& action, int number);
  void performLine(const Line& line);
  void operateModal(forms::Form& form);
  // Ends the run: the line cannot be carried out.
  void refuse(int number, const std::string& why);
  void report(int number, const std::string& what);
  void print(const std::string& line);

  [[nodiscard]] forms::Control& control(std::string_view name) const;
  // The one form or control that `rest` names.
  [[nodiscard]] forms::Form& form(std::string_view rest) const;
  [[nodiscard]] forms::Control& only(std::string_view rest) const;
  [[nodiscard]] forms::Control& model(std::string_view caption) const;
  [[nodiscard]] BoardProbe& board() const;

  Surroundings around_;
  ScriptReader lines_;
  std::string fileName_;
  std::set<int> waiting_;  // the lines of "at" that are still to come
  Status status_ = kDone;
};

}  // namespace tessarine::script
