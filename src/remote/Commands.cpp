#include "remote/Commands.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <span>
#include <string_view>

namespace tessarine::remote {
namespace {

constexpr std::size_t kMostDigits = 255;
constexpr int kMostExponent = 60;

struct Unit {
  std::string_view name;
  int power;
};
constexpr std::array kFrequencies = {Unit{"HZ", 0}, Unit{"KHZ", 3}, Unit{"MHZ", 6}, Unit{"GHZ", 9}};
constexpr std::array kTimes = {Unit{"S", 0}, Unit{"MS", -3}};

int powerOf(std::string_view suffix, std::span<const Unit> units) {
  if (suffix.empty()) return 0;
  if (units.empty()) throw Refused{-138, shown(suffix)};
  const auto found = std::ranges::find_if(units, [&](const Unit& unit) { return isWord(suffix, unit.name); });
  if (found == units.end()) throw Refused{-131, shown(suffix)};
  return found->power;
}

CommandNumber numberOf(const std::string& parameter, std::span<const Unit> units) {
  auto number = commandNumber(parameter);
  if (!number) throw Refused{-104, shown(parameter) + " is no number"};
  number->exponent += powerOf(number->suffix, units);
  if (number->plain.size() > kMostDigits) throw Refused{-124, std::to_string(kMostDigits) + " are the most"};
  if (std::abs(number->exponent) > kMostExponent) throw Refused{-222, shown(parameter)};
  return *number;
}

std::string wordOf(const std::string& parameter, std::initializer_list<const char*> words) {
  for (const char* const word : words) {
    if (isWord(parameter, word)) return word;
  }
  throw Refused{-224, shown(parameter)};
}

Argument argumentOf(const std::string& parameter, Takes takes) {
  switch (takes) {
    case Takes::frequency:
      return {parameter, numberOf(parameter, kFrequencies)};
    case Takes::time:
      return {parameter, numberOf(parameter, kTimes)};
    case Takes::count:
    case Takes::byte:
      return {parameter, numberOf(parameter, {})};
    case Takes::port:
      return {wordOf(parameter, {"LPT", "USB"})};
    case Takes::sweepMode:
      return {wordOf(parameter, {"AUTO", "STEP"})};
    case Takes::text:
    case Takes::name:
    case Takes::nothing:
      break;
  }
  return {textOf(parameter)};
}

const Header& headerOf(const std::string& text) {
  for (const Header& header : headers()) {
    if (isHeader(text, header.pattern)) return header;
  }
  throw Refused{-113, shown(text)};
}

}  // namespace

void Call::enter(Mode mode) const {
  if (mode == Mode::any) return;
  PllForm1& form = window();
  if (form.Frame2(static_cast<int>(mode)).Visible) return;
  const std::array<forms::Menu*, 3> entries = {&form.Gen1, &form.Hop1, &form.Sweep1};
  click(*entries[static_cast<std::size_t>(mode)]);
}

void perform(const Instrument& instrument, Hands& hands, Session& session, const Command& command) {
  const Header& header = headerOf(command.header);
  const std::vector<std::string>& parameters = command.parameters;
  if (parameters.size() < header.takes.size()) throw Refused{-109};
  if (parameters.size() > header.takes.size()) throw Refused{-108};
  Call call{instrument, hands, session, header.field, {}};
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    call.arguments.push_back(argumentOf(parameters[i], header.takes[i]));
  }
  if (!header.onFirstScreen && call.isOnFirstScreen()) {
    throw Refused{-221, "the first screen is on show: SYSTem:PORT comes first"};
  }
  header.run(call);
}

}  // namespace tessarine::remote
