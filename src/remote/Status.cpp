#include "remote/Status.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "remote/Syntax.h"

namespace tessarine::remote {
namespace {

constexpr int kOverflow = -350;

struct StandardText {
  int number;
  std::string_view text;
};

constexpr std::array kTexts = {
    StandardText{-104, "Data type error"},         StandardText{-108, "Parameter not allowed"},
    StandardText{-109, "Missing parameter"},       StandardText{-113, "Undefined header"},
    StandardText{-124, "Too many digits"},         StandardText{-131, "Invalid suffix"},
    StandardText{-138, "Suffix not allowed"},      StandardText{-151, "Invalid string data"},
    StandardText{-200, "Execution error"},         StandardText{-213, "Init ignored"},
    StandardText{-221, "Settings conflict"},       StandardText{-222, "Data out of range"},
    StandardText{-224, "Illegal parameter value"}, StandardText{kOverflow, "Queue overflow"},
    StandardText{-363, "Input buffer overrun"},
};

// The bit of the event register that stands for the hundred an error belongs to.
int eventOf(int number) {
  constexpr int kCommandError = 32;
  constexpr int kExecutionError = 16;
  constexpr int kDeviceError = 8;
  return number > -200 ? kCommandError : number > -300 ? kExecutionError : kDeviceError;
}

std::string entry(int number, std::string_view detail) {
  const auto* const found = std::ranges::find(kTexts, number, &StandardText::number);
  std::string text(found == std::end(kTexts) ? "Error" : found->text);
  if (!detail.empty()) text += ';' + std::string(detail);
  return std::to_string(number) + ',' + quotedText(text);
}

}  // namespace

void Status::add(int number, std::string_view detail) {
  raise(eventOf(number));
  if (errors_.size() < kDeepest) {
    errors_.push_back(entry(number, detail));
  } else {
    raise(eventOf(kOverflow));
    errors_.back() = entry(kOverflow, {});
  }
}

std::string Status::takeError() {
  if (errors_.empty()) return "0,\"No error\"";
  std::string oldest = std::move(errors_.front());
  errors_.pop_front();
  return oldest;
}

int Status::takeEvents() { return std::exchange(events_, 0); }

int Status::statusByte(bool replyWaits) const {
  int byte = 0;
  if (!errors_.empty()) byte |= kErrorsWait;
  if (replyWaits) byte |= kReplyWaits;
  if ((events_ & eventsEnabled) != 0) byte |= kEvents;
  if ((byte & requestsEnabled) != 0) byte |= kRequests;
  return byte;
}

void Status::clear() {
  errors_.clear();
  events_ = 0;
}

}  // namespace tessarine::remote
