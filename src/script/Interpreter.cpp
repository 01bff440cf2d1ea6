#include "script/Interpreter.h"

#include <initializer_list>
#include <span>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/Fault.h"
#include "platform/Text.h"

namespace tessarine::script {
namespace {

using forms::Control;
using forms::Form;
using forms::Kind;
using forms::Operator;

// Why a line cannot be carried out.
class Refused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A line whose words do not make a command; the usage of its verb says what would.
class Malformed {};

void orRefuse(const Operator::Refusal& why) {
  if (why) throw Refused(*why);
}

std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string flag(bool on) { return on ? "1" : "0"; }

std::string row(std::initializer_list<std::string_view> cells) {
  std::string text;
  for (const auto& cell : cells) {
    if (&cell != cells.begin()) text += '\t';
    text += cell;
  }
  return text;
}

std::int64_t takeSpan(std::string_view& rest) {
  const std::string_view milliseconds = takeWord(rest);
  if (milliseconds.empty()) throw Malformed{};
  const auto time = microseconds(milliseconds);
  if (!time) throw Refused(inQuotes(milliseconds) + " is no number of milliseconds (0 up to a year)");
  return *time;
}

void nothingMore(std::string_view rest) {
  if (!trimmed(rest).empty()) throw Malformed{};
}

std::string itemsOf(const Control& control) {
  const auto* const list = dynamic_cast<const forms::ListControl*>(&control);
  if (!list) throw Refused(control.name() + " is no list");
  std::string text;
  for (const std::string& item : list->List.get()) {
    if (!text.empty()) text += '\t';
    text += escaped(item);
  }
  return text;
}

std::string checkMark(const Control& control) {
  if (control.kind() != Kind::Menu) throw Refused(control.name() + " is no menu entry");
  return flag(static_cast<const forms::Menu&>(control).Checked);
}

}  // namespace

Interpreter::Interpreter(const Surroundings& around, std::istream& script, std::string fileName)
    : around_(around), lines_(script), fileName_(std::move(fileName)) {
  around_.stage.operateModal = [this](Form& form) { operateModal(form); };
}

Interpreter::~Interpreter() { around_.stage.operateModal = nullptr; }

Interpreter::Status Interpreter::run() {
  try {
    while (!around_.stage.ended()) {
      const auto line = lines_.next();
      if (!line) {
        for (const int number : waiting_) report(number, "not carried out: the script ended before its time");
        break;
      }
      performLine(*line);
    }
  } catch (const ProgramEnded&) {
    // By a line that was refused, or by the program itself within a wait.
  }
  return status_;
}

void Interpreter::performLine(const Line& line) {
  around_.stage.comesTo(line.number);
  if (around_.stage.ended()) return;
  Action action;
  perform([&] { action = prepare(line.text, line.number); }, line.number);
  if (action) perform(action, line.number);
}

void Interpreter::perform(const Action& action, int number) {
  try {
    action();
  } catch (const Refused& why) {
    refuse(number, why.what());
  }
}

void Interpreter::operateModal(Form& form) {
  while (form.Visible && !around_.stage.ended()) {
    const auto line = lines_.next();
    if (!line) break;
    performLine(*line);
  }
  if (!form.Visible || around_.stage.ended() || !around_.stage.endsWithScript()) return;
  // The script is over: the form is left as an operator leaves it who wants nothing. None does: a recording
  // of the script ends in front of this, and so comes to it again.
  around_.door.run([&form] {
    if (const Control* const cancel = form.cancelButton()) {
      if (const forms::Event handler = cancel->Click) handler();
    } else {
      form.Form_QueryUnload();
    }
  });
  if (form.Visible) form.Hide();
}

void Interpreter::refuse(int number, const std::string& why) {
  report(number, why);
  status_ = kRefused;
  around_.stage.fail();
}

void Interpreter::report(int number, const std::string& what) {
  around_.errors << fileName_ << ':' << number << ": " << what << '\n' << std::flush;
}

void Interpreter::print(const std::string& line) { around_.out << line << '\n' << std::flush; }

Form& Interpreter::form(std::string_view rest) const {
  const auto names = words(rest);
  if (names.size() != 1) throw Malformed{};
  for (Form* const each : around_.forms.all()) {
    if (each->name() == names.front()) return *each;
  }
  throw Refused("there is no window " + inQuotes(names.front()));
}

Control& Interpreter::control(std::string_view name) const {
  if (Control* const found = around_.forms.find(name)) return *found;
  throw Refused("there is no control " + inQuotes(name));
}

Control& Interpreter::model(std::string_view caption) const {
  const auto& menu = static_cast<const forms::Container&>(control("pModel"));
  for (Control* const entry : menu.children()) {
    if (entry->value() == caption && caption != "-") return *entry;
  }
  throw Refused("the model menu has no entry " + inQuotes(caption));
}

BoardProbe& Interpreter::board() const {
  if (!around_.board) throw Refused("there is no virtual board");
  return *around_.board;
}

Control& Interpreter::only(std::string_view rest) const {
  const auto names = words(rest);
  if (names.size() != 1) throw Malformed{};
  return control(names.front());
}

// ---------------------------------------------------------------------------------------------- The commands

// Each looks its words up when the line is read, and is carried out later.

struct Interpreter::Commands {
  struct Command {
    std::string_view word;
    std::string_view usage;
    Action (*prepare)(Interpreter& script, std::string_view rest, int number);
    bool operatorsOwn = false;  // what the operator does between actions: it has no place behind "at"
  };
  static std::span<const Command> all();

  static Action click(Interpreter& script, std::string_view rest, int /*number*/) {
    return [&script, &target = script.only(rest)] { orRefuse(script.around_.door.click(target)); };
  }

  static Action doubleClick(Interpreter& script, std::string_view rest, int /*number*/) {
    return [&script, &target = script.only(rest)] { orRefuse(script.around_.door.doubleClick(target)); };
  }

  static Action close(Interpreter& script, std::string_view rest, int /*number*/) {
    return [&script, &target = script.form(rest)] { orRefuse(script.around_.door.close(target)); };
  }

  static Action activate(Interpreter& script, std::string_view rest, int /*number*/) {
    return [&script, &target = script.form(rest)] { orRefuse(script.around_.door.activate(target)); };
  }

  static Action pick(Interpreter& script, std::string_view rest, int /*number*/) {
    const std::string_view caption = unquoted(trimmed(rest));
    if (caption.empty()) throw Malformed{};
    return [&script, &entry = script.model(caption)] { orRefuse(script.around_.door.click(entry)); };
  }

  static Action set(Interpreter& script, std::string_view rest, int /*number*/) {
    const std::string_view name = takeWord(rest);
    if (name.empty()) throw Malformed{};
    return [&script, &target = script.control(name), value = std::string(unquoted(rest))] {
      orRefuse(script.around_.door.set(target, value));
    };
  }

  // Prints one line for each control that `rest` names.
  static Action rows(Interpreter& script, std::string_view rest, std::string (*value)(const Control&)) {
    std::vector<std::pair<std::string, const Control*>> asked;
    for (const auto name : words(rest)) asked.emplace_back(name, &script.control(name));
    if (asked.empty()) throw Malformed{};
    return [&script, asked, value] {
      for (const auto& [name, item] : asked) script.print(row({name, value(*item)}));
    };
  }

  static Action show(Interpreter& script, std::string_view rest, int /*number*/) {
    return rows(script, rest, [](const Control& item) { return escaped(item.value()); });
  }

  static Action visible(Interpreter& script, std::string_view rest, int /*number*/) {
    return rows(script, rest, [](const Control& item) { return flag(item.isVisible()); });
  }

  static Action enabled(Interpreter& script, std::string_view rest, int /*number*/) {
    return rows(script, rest, [](const Control& item) { return flag(item.isEnabled()); });
  }

  static Action checked(Interpreter& script, std::string_view rest, int /*number*/) {
    return rows(script, rest, checkMark);
  }

  static Action items(Interpreter& script, std::string_view rest, int /*number*/) {
    return rows(script, rest, itemsOf);
  }

  // The two flags are the control's own, whatever those of its containers.
  static Action controls(Interpreter& script, std::string_view rest, int /*number*/) {
    nothingMore(rest);
    return [&script] {
      for (const Form* const each : script.around_.forms.all()) {
        for (const Control* const item : each->controls()) script.print(controlRow(*item));
      }
    };
  }

  static Action expect(Interpreter& script, std::string_view rest, int number) {
    const std::string name(takeWord(rest));
    if (name.empty()) throw Malformed{};
    return [&script, number, name, &item = script.control(name), wanted = std::string(unquoted(rest))] {
      const std::string value = item.value();
      const std::string shown = escaped(value);
      if (wanted == value || wanted == shown) return;
      script.report(number, name + " is " + inQuotes(shown) + ", not " + inQuotes(wanted));
      if (script.status_ == kDone) script.status_ = kExpectFailed;
    };
  }

  static Action latches(Interpreter& script, std::string_view rest, int /*number*/) {
    nothingMore(rest);
    return [&script] {
      for (const std::string& bits : script.board().takeLatches()) script.print(row({"latch", bits}));
    };
  }

  static Action board(Interpreter& script, std::string_view rest, int /*number*/) {
    const auto asked = words(rest);
    if (asked.empty()) return [&script] { script.around_.out << script.board().describe() << std::flush; };
    if (asked.size() == 1 && asked.front() == "history") {
      return [&script] { script.around_.out << script.board().history() << std::flush; };
    }
    if (asked.size() == 1 && asked.front() == "reach") return reach(script);
    if (asked.size() == 2 && asked.front() == "fault") {
      return [&script, name = std::string(asked.back())] { orRefuse(script.board().fault(name)); };
    }
    throw Malformed{};
  }

  static Action snapshot(Interpreter& script, std::string_view rest, int /*number*/) {
    nothingMore(rest);
    return [&script] { script.around_.out << script.around_.snapshot() << std::flush; };
  }

  // Without a virtual board, too.
  static Action reach(Interpreter& script) {
    if (!script.around_.reach) throw Refused("there is nothing to reach");
    return [&script] { script.around_.out << script.around_.reach() << std::flush; };
  }

  static Action time(Interpreter& script, std::string_view rest, int /*number*/) {
    nothingMore(rest);
    return [&script] { script.print(row({"time", millisecondText(script.around_.stage.now())})); };
  }

  static Action wait(Interpreter& script, std::string_view rest, int /*number*/) {
    const std::int64_t span = takeSpan(rest);
    nothingMore(rest);
    return [&script, span] { script.around_.stage.runEventsUntil(script.around_.stage.now() + span); };
  }

  static Action at(Interpreter& script, std::string_view rest, int number) {
    const std::int64_t span = takeSpan(rest);
    if (trimmed(rest).empty()) throw Malformed{};
    std::string_view command = rest;
    const std::string_view word = takeWord(command);
    for (const Command& each : all()) {
      if (each.word == word && each.operatorsOwn) throw Refused(inQuotes(word) + " has no place behind at");
    }
    return [&script, number, span, action = script.prepare(rest, number)] {
      script.waiting_.insert(number);
      script.around_.stage.at(script.around_.stage.now() + span, [&script, number, action] {
        script.waiting_.erase(number);
        script.perform(action, number);
      });
    };
  }
};

std::span<const Interpreter::Commands::Command> Interpreter::Commands::all() {
  static constexpr Command kCommands[] = {
      {"pick", "pick CAPTION", pick},
      {"set", "set CONTROL VALUE", set},
      {"click", "click CONTROL", click},
      {"doubleclick", "doubleclick CONTROL", doubleClick},
      {"activate", "activate FORM", activate},
      {"close", "close FORM", close},
      {"show", "show CONTROL...", show},
      {"visible", "visible CONTROL...", visible},
      {"enabled", "enabled CONTROL...", enabled},
      {"checked", "checked ENTRY...", checked},
      {"items", "items CONTROL...", items},
      {"controls", "controls", controls},
      {"expect", "expect CONTROL VALUE", expect},
      {"latches", "latches", latches},
      {"board", "board, board history, board reach, or board fault NAME", board},
      {"snapshot", "snapshot", snapshot},
      {"time", "time", time},
      {"wait", "wait MS", wait, true},
      {"at", "at MS COMMAND", at, true},
  };
  return kCommands;
}

Interpreter::Action Interpreter::prepare(std::string_view line, int number) {
  const std::string_view word = takeWord(line);
  for (const Commands::Command& each : Commands::all()) {
    if (each.word != word) continue;
    try {
      return each.prepare(*this, line, number);
    } catch (const Malformed&) {
      throw Refused("the command is: " + std::string(each.usage));
    }
  }
  throw Refused("there is no command " + inQuotes(word));
}

}  // namespace tessarine::script
