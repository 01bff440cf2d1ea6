#include "engine/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <system_error>

#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "platform/Text.h"

namespace tessarine {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The length of the digits, with at most one decimal point among them, that `text` begins with.
std::size_t digitsLength(std::string_view text) {
  bool pointSeen = false;
  std::size_t length = 0;
  for (; length < text.size(); ++length) {
    if (text[length] == '.' && !pointSeen) {
      pointSeen = true;
    } else if (!isDigit(text[length])) {
      break;
    }
  }
  return length;
}

// What lies beyond a double: without a whole part a number too small, otherwise one too large.
double outOfRange(std::string_view digits) {
  const auto whole = digits.substr(0, digits.find('.'));
  return whole.find_first_not_of('0') == std::string_view::npos ? 0 : std::numeric_limits<double>::infinity();
}

// Enough for the digits of any double in either notation used here.
using DigitBuffer = std::array<char, 512>;

template <class... Format>
std::string inCharacters(double value, Format... format) {
  DigitBuffer buffer{};
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...);
  return error == std::errc() ? std::string(buffer.data(), end) : std::string();
}

}  // namespace

double leadingNumber(std::string_view text) {
  text = trimmedFront(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
  const auto digits = text.substr(0, digitsLength(text));
  double value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
  if (error == std::errc::result_out_of_range) value = outOfRange(digits);
  if (value == 0) return 0;  // no number, or a zero, which takes no sign
  return negative ? -value : value;
}

bool startsWithNumber(std::string_view text) {
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
  if (!text.empty() && text.front() == '.') text.remove_prefix(1);
  return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

Integer leadingInteger(std::string_view text, std::string_view field) {
  return toInteger(leadingNumber(text), field);
}

Single leadingSingle(std::string_view text, std::string_view field) {
  const double value = leadingNumber(text);
  const Single rounded = toSingle(value);
  if (!std::isfinite(rounded)) {
    throw Fault(std::string(field) + " = " + messageNumber(value) + " is too large (" +
                messageNumber(std::numeric_limits<Single>::max()) + " at most)");
  }
  return rounded;
}

std::string plainDecimal(double value, int digits) {
  // Scientific notation gives the digits and their place, and from these the plain text is laid out.
  std::string text = inCharacters(value, std::chars_format::scientific, digits - 1);
  const auto exponentMark = text.find('e');
  if (exponentMark == std::string::npos) return text;  // inf or nan
  int exponent = 0;
  const auto exponentDigits = exponentMark + (text[exponentMark + 1] == '+' ? 2 : 1);
  std::from_chars(text.data() + exponentDigits, text.data() + text.size(), exponent);
  const bool negative = text.front() == '-';

  std::string significant;
  std::copy_if(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(exponentMark),
               std::back_inserter(significant), isDigit);
  significant.erase(significant.find_last_not_of('0') + 1);
  if (significant.empty()) return "0";

  std::string plain;
  if (exponent < 0) {
    plain = "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + significant;
  } else {
    const auto wholeDigits = static_cast<std::size_t>(exponent) + 1;
    if (significant.size() > wholeDigits) {
      plain = significant.insert(wholeDigits, ".");
    } else {
      plain = significant + std::string(wholeDigits - significant.size(), '0');
    }
  }
  return negative ? "-" + plain : plain;
}

std::string sixDecimals(double value) { return inCharacters(value, std::chars_format::fixed, 6); }

std::string messageNumber(double value) {
  constexpr double longest = 1e15;
  return std::abs(value) < longest ? plainDecimal(value, 15)
                                   : inCharacters(value, std::chars_format::general, 6);
}

}  // namespace tessarine
