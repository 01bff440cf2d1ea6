#include "script/Recorder.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "forms/FileControls.h"
#include "platform/Platform.h"
#include "platform/Version.h"
#include "script/ScriptText.h"

namespace tessarine::script {
namespace {

using forms::Action;
using forms::Control;
using forms::Deed;
using forms::Kind;

// A list of directories: `set` goes into one, where a pick only marks the line that a double click goes into.
std::string directoryCommand(const std::string& name, const forms::DirListBox& directories) {
  const std::string path = directories.pathOf(directories.ListIndex);
  return forms::DirListBox::canEnter(path) ? "set " + name + ' ' + asValue(path) : "doubleclick " + name;
}

std::string commandOf(const Action& action, const std::string& name) {
  const Control& control = action.control;
  switch (action.deed) {
    case Deed::click:
      if (control.kind() != Kind::Menu || control.container() != control.form().find("pModel")) {
        return "click " + name;
      }
      return "pick " + control.value();
    case Deed::doubleClick:
      if (control.kind() != Kind::DirListBox) return "doubleclick " + name;
      return directoryCommand(name, static_cast<const forms::DirListBox&>(control));
    case Deed::pick:
      if (control.kind() == Kind::DirListBox) return {};
      [[fallthrough]];
    case Deed::set:
      return "set " + name + (action.value.empty() ? "" : ' ' + asValue(action.value));
    case Deed::activate:
      return "activate " + name;
    case Deed::close:
      return "close " + name;
  }
  return {};
}

// The one member of an array is known without its index too.
std::string nameOf(const Control& control, const forms::FormList& list) {
  const std::string name = list.nameOf(control);
  const std::string plain = name.substr(0, name.find('('));
  return list.find(plain) == &control ? plain : name;
}

// Whether nothing follows a key that is typed there.
bool isQuiet(const Action& action) {
  const Control& control = action.control;
  return action.deed == Deed::set && control.kind() == Kind::TextBox && !control.Change && !control.KeyUp;
}

}  // namespace

std::string headLine() {
  const std::time_t now = std::time(nullptr);
  char day[sizeof "2000-01-01"] = "";
  if (const std::tm* const local = std::localtime(&now)) std::strftime(day, sizeof day, "%F", local);
  return std::string("# ") + kApplicationTitle + ' ' + applicationVersion() + ", " + day + '\n';
}

Recorder::Recorder(forms::FormList& forms, forms::Operator& door, WaitedTime& time)
    : forms_(forms), door_(door), time_(time), text_(headLine()) {
  sequences_.push_back({.modal = nullptr, .isTimed = false, .since = time_.now()});
  door_.watch(*this);
  forms_.observe(*this);
}

Recorder::~Recorder() {
  forms_.unobserve(*this);
  door_.unwatch(*this);
}

std::size_t Recorder::settled() const {
  if (running_.empty() && typed_ == nullptr) return text_.size();
  return sequences_.front().place;
}

// Nothing stands between an action and the one that runs: it came in while that one waited.
bool Recorder::isInWait() const {
  return !running_.empty() && running_.back().sequence + 1 == sequences_.size();
}

void Recorder::begins(const Action& action) {
  const bool isLine = !isInWait();
  if (const std::string command = commandOf(action, nameOf(action.control, forms_)); !command.empty()) {
    write(command, isQuiet(action) ? &action.control : nullptr);
  }
  running_.push_back({sequences_.size() - 1, isLine});
  tell();
}

void Recorder::ends() {
  const Running over = running_.back();
  running_.pop_back();
  if (over.isLine && over.sequence < sequences_.size()) sequences_[over.sequence].since = time_.now();
  tell();
}

void Recorder::boardFault(std::string_view name) {
  write("board fault " + std::string(name), nullptr);
  tell();
}

void Recorder::write(const std::string& command, const Control* typedInto) {
  Sequence& sequence = sequences_.back();
  // A line break would end the line; no field of the program takes one, but the name of a file may have one.
  const bool isWritable = command.find_first_of("\r\n") == std::string::npos;
  const std::string line = (isWritable ? command : "# not to be written: " + escaped(command)) + '\n';
  if (isInWait()) {
    const std::string time = millisecondText(time_.now() - sequence.begun);
    const std::string earlier = isWritable ? "at " + time + ' ' + line : line;
    typed_ = nullptr;
    const std::size_t place = sequence.place;
    sequence.place += earlier.size();
    insert(place, earlier);
    return;
  }
  passTime(sequence);
  if (typedInto == nullptr || typed_ != typedInto) {
    sequence.place = text_.size();
  } else {
    text_.erase(sequence.place);
  }
  typed_ = typedInto;
  sequence.begun = time_.now();
  insert(sequence.place, line);
}

// The time that has passed in a modal form since its last line: the waits that it was opened in go on, so
// there the script waits as well. Elsewhere it is left out.
void Recorder::passTime(Sequence& sequence) {
  const std::int64_t passed = time_.now() - sequence.since;
  sequence.since += passed;
  if (passed == 0 || !sequence.isTimed) return;
  typed_ = nullptr;
  insert(text_.size(), "wait " + millisecondText(passed) + '\n');
}

void Recorder::insert(std::size_t place, const std::string& line) {
  text_.insert(place, line);
  ++version_;
  changedFrom_ = std::min(changedFrom_, place);
}

void Recorder::tell() {
  const std::size_t from = std::min(std::exchange(changedFrom_, std::string::npos), text_.size());
  if (onChange) onChange(from);
}

// Modal forms come and go.
void Recorder::changed(Control& control, forms::Aspect aspect) {
  if (aspect != forms::Aspect::Visible || &control != &control.form()) return;
  const forms::Form& form = control.form();
  if (form.Visible && forms_.modal() == &form && sequences_.back().modal != &form) {
    const bool inWait = sequences_.back().isTimed || (!running_.empty() && !running_.back().isLine);
    time_.beginOpen();
    sequences_.push_back({.modal = &form, .isTimed = inWait, .since = time_.now()});
  } else if (!form.Visible && sequences_.back().modal == &form) {
    // At the end of a script no action closes it.
    if (!isInWait()) passTime(sequences_.back());
    tell();
    time_.waitEnds();
    sequences_.pop_back();
  }
}

}  // namespace tessarine::script
