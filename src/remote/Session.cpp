#include "remote/Session.h"

#include <exception>
#include <utility>

namespace tessarine::remote {
namespace {

constexpr std::size_t kLineCost = 64;         // of its bookkeeping
constexpr std::size_t kMostOutput = 1 << 18;  // that a client may leave unread before its commands wait
constexpr std::size_t kKeptEnd = 16;          // of a line that is too long

bool isRequest(std::string_view line) { return line.ends_with(" HTTP/1.0") || line.ends_with(" HTTP/1.1"); }

}  // namespace

// ------------------------------------------------------------------------------------------------- Lines

void Session::receive(std::string_view bytes) {
  while (!bytes.empty() && !isBrowser_) {
    const std::size_t end = bytes.find('\n');
    take(bytes.substr(0, end));
    if (end == std::string_view::npos) return;
    endLine();
    bytes.remove_prefix(end + 1);
  }
}

void Session::take(std::string_view piece) {
  line_ += piece;
  // A CR may be a part of the line's end.
  const std::size_t length = line_.size() - (line_.ends_with('\r') ? 1 : 0);
  if (length > kLongestLine) lineIsTooLong_ = true;
  if (lineIsTooLong_ && line_.size() > kKeptEnd) line_.erase(0, line_.size() - kKeptEnd);
}

void Session::endLine() {
  Line line{std::exchange(line_, {}), std::exchange(lineIsTooLong_, false)};
  if (line.text.ends_with('\r')) line.text.pop_back();
  isBrowser_ = std::exchange(isFirstLine_, false) && isRequest(line.text);
  if (line.isTooLong) line.text.clear();
  if (isBrowser_ || (line.text.empty() && !line.isTooLong)) return;
  queued_ += line.text.size() + kLineCost;
  lines_.push_back(std::move(line));
}

void Session::beginLine() {
  const Line line = std::move(lines_.front());
  lines_.pop_front();
  queued_ -= line.text.size() + kLineCost;
  if (line.isTooLong) status.add(-363);
  commands_ = commandsOf(line.text);
  path_.clear();
}

// -------------------------------------------------------------------------------------------- Commands

bool Session::canRun() const {
  if (isBusy_ || isHeld() || output.size() > kMostOutput) return false;
  return !commands_.empty() || !lines_.empty();
}

// Begun anew while there is still a reason, it would only be held again.
bool Session::isHeld() const { return held_ && (*held_ == Held::byOwn ? overlapped_ > 0 : hands_.areHeld()); }

void Session::runNext() {
  if (commands_.empty()) beginLine();
  if (commands_.empty()) return;
  held_.reset();
  last_ = std::exchange(commands_.front(), {});
  commands_.pop_front();
  bool released = false;
  released_ = &released;
  isBusy_ = true;
  const std::string path = path_;
  try {
    perform_(*this, commandOf(last_, path_));
  } catch (const Held& held) {
    commands_.push_front(last_);
    path_ = path;
    held_ = held;
  } catch (const Refused& why) {
    status.add(why.number, why.detail);
  } catch (const std::exception& fault) {
    status.add(-200, fault.what());
  }
  if (!released) endCommand();
}

void Session::endCommand() {
  isBusy_ = false;
  if (commands_.empty()) endReplies();
}

void Session::release() {
  if (!isBusy_) return;
  *released_ = true;
  endCommand();
  if (onRelease && canRun()) onRelease();
}

void Session::overlap(const std::function<void()>& action) {
  ++overlapped_;
  release();
  try {
    action();
  } catch (const Refused& why) {
    status.add(why.number, why.detail);
  }
  if (--overlapped_ == 0 && std::exchange(tellsCompletion_, false)) status.raise(Status::kComplete);
}

void Session::tellCompletion() {
  if (overlapped_ == 0) {
    status.raise(Status::kComplete);
  } else {
    tellsCompletion_ = true;
  }
}

// --------------------------------------------------------------------------------------------- Replies

void Session::reply(std::string_view text) {
  if (std::exchange(hasReplied_, true)) output += ';';
  output += text;
}

void Session::endReplies() {
  if (std::exchange(hasReplied_, false)) output += '\n';
}

}  // namespace tessarine::remote
