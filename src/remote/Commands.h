// What clients can say: the table of headers, and the commands behind it, which work the program through the
// operator's door.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "board/EvaluationBoard.h"
#include "remote/Decimal.h"
#include "remote/Hands.h"
#include "remote/Session.h"
#include "remote/Syntax.h"
#include "window/Program.h"

namespace tessarine::remote {

// What the commands work on. All of it outlives them.
struct Instrument {
  Program& program;
  const board::EvaluationBoard& board;
  std::string name;                    // of the program
  std::function<bool()> readsLockPin;  // whether the way out in use has a pin for lock detect
};

// What a parameter is to be.
enum class Takes { nothing, frequency, time, count, byte, text, name, port, sweepMode };

// What the program has three modes for.
enum class Mode { general, hop, sweep, any };

// A field of the window that holds a number.
struct Field {
  const char* control;
  int power;               // its unit, as a power of ten of Hz or of a second
  Mode mode = Mode::any;   // the one in which it is on show
  bool isInteger = false;  // of 16 bits
};

struct Argument {
  std::string text;
  CommandNumber number = {};  // its exponent includes the unit
};

// A command that is carried out, with its parameters as they were asked for.
struct Call {
  const Instrument& instrument;
  Hands& hands;
  Session& session;
  const Field* field;
  std::vector<Argument> arguments;

  [[nodiscard]] PllForm1& window() const { return instrument.program.window; }
  // Until "Continue" was clicked.
  [[nodiscard]] bool isOnFirstScreen() const { return !window().ACommand.Enabled; }
  void click(forms::Control& control) const { hands.click(session, control); }
  void set(forms::Control& control, const std::string& value) const { hands.set(session, control, value); }
  // Picks a mode, unless the window is in it.
  void enter(Mode mode) const;
  void reply(const std::string& text) const { session.reply(text); }
  void replyFlag(bool flag) const { session.reply(flag ? "1" : "0"); }
};

// A row of the table.
struct Header {
  const char* pattern;  // "SYSTem:ERRor[:NEXT]?"
  void (*run)(const Call& call);
  std::vector<Takes> takes = {};
  const Field* field = nullptr;
  bool onFirstScreen = false;  // works there too
};
[[nodiscard]] const std::vector<Header>& headers();

// Carries out one command of a client; throws Refused.
void perform(const Instrument& instrument, Hands& hands, Session& session, const Command& command);

}  // namespace tessarine::remote
