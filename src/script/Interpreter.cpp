#include "script/Interpreter.h"

#include <initializer_list>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/Fault.h"

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
  if (!trimmedBlanks(rest).empty()) throw Malformed{};
}

std::string items(const Control& control) {
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

Interpreter::Interpreter(const Bench& bench, std::istream& script, std::string fileName)
    : bench_(bench), lines_(script), fileName_(std::move(fileName)) {
  bench_.screen.operateModal = [this](Form& form) { operateModal(form); };
}

Interpreter::~Interpreter() { bench_.screen.operateModal = nullptr; }

Interpreter::Status Interpreter::run() {
  try {
    while (!bench_.screen.ended()) {
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
  Action action;
  perform([&] { action = prepare(line.text, line.number); }, line.number);
  perform(action, line.number);
}

void Interpreter::perform(const Action& action, int number) {
  try {
    action();
  } catch (const Refused& why) {
    refuse(number, why.what());
  }
}

void Interpreter::operateModal(Form& form) {
  while (form.Visible && !bench_.screen.ended()) {
    const auto line = lines_.next();
    if (!line) break;
    performLine(*line);
  }
  if (!form.Visible || bench_.screen.ended()) return;
  // The script is over: the form is left as an operator leaves it who wants nothing.
  if (Control* const cancel = form.cancelButton()) {
    bench_.door.click(*cancel);
  } else {
    bench_.door.close(form);
  }
  if (form.Visible) form.Hide();
}

void Interpreter::refuse(int number, const std::string& why) {
  report(number, why);
  status_ = kRefused;
  bench_.screen.endProgram();
}

void Interpreter::report(int number, const std::string& what) {
  bench_.errors << fileName_ << ':' << number << ": " << what << '\n' << std::flush;
}

void Interpreter::print(const std::string& line) { bench_.out << line << '\n' << std::flush; }

Form* Interpreter::form(std::string_view name) const {
  for (Form* const each : bench_.forms.all()) {
    if (each->name() == name) return each;
  }
  return nullptr;
}

Control& Interpreter::control(std::string_view name) const {
  if (Control* const found = bench_.forms.find(name)) return *found;
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
  if (!bench_.board) throw Refused("there is no virtual board");
  return *bench_.board;
}

Control& Interpreter::only(std::string_view rest) const {
  const auto names = words(rest);
  if (names.size() != 1) throw Malformed{};
  return control(names.front());
}

// ------------------------------------------------------------------------------------------------ The
// commands

struct Interpreter::Verb {
  std::string_view word;
  std::string_view usage;
  Action (Interpreter::*prepare)(std::string_view rest, int number);
  bool operatorsOwn = false;  // what the operator does between actions: it has no place behind "at"
};

const Interpreter::Verb Interpreter::kVerbs[] = {
    {"pick", "pick CAPTION", &Interpreter::preparePick},
    {"set", "set CONTROL VALUE", &Interpreter::prepareSet},
    {"click", "click CONTROL", &Interpreter::prepareClick},
    {"doubleclick", "doubleclick CONTROL", &Interpreter::prepareDoubleClick},
    {"close", "close FORM", &Interpreter::prepareClose},
    {"show", "show CONTROL...", &Interpreter::prepareShow},
    {"visible", "visible CONTROL...", &Interpreter::prepareVisible},
    {"enabled", "enabled CONTROL...", &Interpreter::prepareEnabled},
    {"checked", "checked ENTRY...", &Interpreter::prepareChecked},
    {"items", "items CONTROL...", &Interpreter::prepareItems},
    {"controls", "controls", &Interpreter::prepareControls},
    {"expect", "expect CONTROL VALUE", &Interpreter::prepareExpect},
    {"latches", "latches", &Interpreter::prepareLatches},
    {"board", "board, board history, or board fault NAME", &Interpreter::prepareBoard},
    {"time", "time", &Interpreter::prepareTime},
    {"wait", "wait MS", &Interpreter::prepareWait, true},
    {"at", "at MS COMMAND", &Interpreter::prepareAt, true},
};

Interpreter::Action Interpreter::prepare(std::string_view line, int number) {
  const std::string_view word = takeWord(line);
  for (const Verb& verb : kVerbs) {
    if (verb.word != word) continue;
    try {
      return (this->*verb.prepare)(line, number);
    } catch (const Malformed&) {
      throw Refused("the command is: " + std::string(verb.usage));
    }
  }
  throw Refused("there is no command " + inQuotes(word));
}

Interpreter::Action Interpreter::prepareClick(std::string_view rest, int /*number*/) {
  return [this, &target = only(rest)] { orRefuse(bench_.door.click(target)); };
}

Interpreter::Action Interpreter::prepareDoubleClick(std::string_view rest, int /*number*/) {
  return [this, &target = only(rest)] { orRefuse(bench_.door.doubleClick(target)); };
}

Interpreter::Action Interpreter::prepareClose(std::string_view rest, int /*number*/) {
  const auto names = words(rest);
  if (names.size() != 1) throw Malformed{};
  Form* const target = form(names.front());
  if (!target) throw Refused("there is no window " + inQuotes(names.front()));
  return [this, target] { orRefuse(bench_.door.close(*target)); };
}

Interpreter::Action Interpreter::preparePick(std::string_view rest, int /*number*/) {
  const std::string_view caption = unquoted(trimmedBlanks(rest));
  if (caption.empty()) throw Malformed{};
  return [this, &entry = model(caption)] { orRefuse(bench_.door.click(entry)); };
}

Interpreter::Action Interpreter::prepareSet(std::string_view rest, int /*number*/) {
  const std::string_view name = takeWord(rest);
  if (name.empty()) throw Malformed{};
  return [this, &target = control(name), value = std::string(unquoted(rest))] {
    orRefuse(bench_.door.set(target, value));
  };
}

Interpreter::Action Interpreter::prepareRows(std::string_view rest, std::string (*value)(const Control&)) {
  std::vector<std::pair<std::string, const Control*>> asked;
  for (const auto name : words(rest)) asked.emplace_back(name, &control(name));
  if (asked.empty()) throw Malformed{};
  return [this, asked, value] {
    for (const auto& [name, item] : asked) print(row({name, value(*item)}));
  };
}

Interpreter::Action Interpreter::prepareShow(std::string_view rest, int /*number*/) {
  return prepareRows(rest, [](const Control& item) { return escaped(item.value()); });
}

Interpreter::Action Interpreter::prepareVisible(std::string_view rest, int /*number*/) {
  return prepareRows(rest, [](const Control& item) { return flag(item.isVisible()); });
}

Interpreter::Action Interpreter::prepareEnabled(std::string_view rest, int /*number*/) {
  return prepareRows(rest, [](const Control& item) { return flag(item.isEnabled()); });
}

Interpreter::Action Interpreter::prepareChecked(std::string_view rest, int /*number*/) {
  return prepareRows(rest, checkMark);
}

Interpreter::Action Interpreter::prepareItems(std::string_view rest, int /*number*/) {
  return prepareRows(rest, items);
}

// The two flags are the control's own, whatever those of its containers.
Interpreter::Action Interpreter::prepareControls(std::string_view rest, int /*number*/) {
  nothingMore(rest);
  return [this] {
    for (const Form* const each : bench_.forms.all()) {
      for (const Control* const item : each->controls()) print(controlRow(*item));
    }
  };
}

Interpreter::Action Interpreter::prepareExpect(std::string_view rest, int number) {
  const std::string name(takeWord(rest));
  if (name.empty()) throw Malformed{};
  return [this, number, name, &item = control(name), wanted = std::string(unquoted(rest))] {
    const std::string value = item.value();
    const std::string shown = escaped(value);
    if (wanted == value || wanted == shown) return;
    report(number, name + " is " + inQuotes(shown) + ", not " + inQuotes(wanted));
    if (status_ == kDone) status_ = kExpectFailed;
  };
}

Interpreter::Action Interpreter::prepareLatches(std::string_view rest, int /*number*/) {
  nothingMore(rest);
  return [this] {
    for (const std::string& bits : board().takeLatches()) print(row({"latch", bits}));
  };
}

Interpreter::Action Interpreter::prepareBoard(std::string_view rest, int /*number*/) {
  const auto asked = words(rest);
  if (asked.empty()) return [this] { bench_.out << board().describe() << std::flush; };
  if (asked.size() == 1 && asked.front() == "history") {
    return [this] { bench_.out << board().history() << std::flush; };
  }
  if (asked.size() == 2 && asked.front() == "fault") {
    return [this, name = std::string(asked.back())] { orRefuse(board().fault(name)); };
  }
  throw Malformed{};
}

Interpreter::Action Interpreter::prepareTime(std::string_view rest, int /*number*/) {
  nothingMore(rest);
  return [this] { print(row({"time", millisecondText(bench_.screen.now())})); };
}

Interpreter::Action Interpreter::prepareWait(std::string_view rest, int /*number*/) {
  const std::int64_t span = takeSpan(rest);
  nothingMore(rest);
  return [this, span] { bench_.screen.runEventsUntil(bench_.screen.now() + span); };
}

Interpreter::Action Interpreter::prepareAt(std::string_view rest, int number) {
  const std::int64_t span = takeSpan(rest);
  if (trimmedBlanks(rest).empty()) throw Malformed{};
  std::string_view command = rest;
  const std::string_view word = takeWord(command);
  for (const Verb& verb : kVerbs) {
    if (verb.word == word && verb.operatorsOwn) throw Refused(inQuotes(word) + " has no place behind at");
  }
  return [this, number, span, action = prepare(rest, number)] {
    waiting_.insert(number);
    bench_.screen.at(bench_.screen.now() + span, [this, number, action] {
      waiting_.erase(number);
      perform(action, number);
    });
  };
}

}  // namespace tessarine::script
