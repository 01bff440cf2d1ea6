// Numbers as the board's window writes them: with a decimal point in every locale.
#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine::desktop {

[[nodiscard]] inline QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

[[nodiscard]] QString fixedText(double value, int decimals);
[[nodiscard]] QString shortText(double value);

// "900.000000 MHz"
[[nodiscard]] QString megahertzText(double megahertz);
// In the unit of its size: "10 MHz", "200 kHz".
[[nodiscard]] QString frequencyText(double megahertz);
// With its sign, to a tenth of a hertz, in the unit of its size: "+12.5 Hz", "-90 kHz", "0.0 Hz".
[[nodiscard]] QString offsetText(double hertz);
// In the unit of its size: "12 µs", "3.25 ms", "2.5 s".
[[nodiscard]] QString timeText(double microseconds);
// A multiple of `step` at a line of a grid, with the digits that tell it from its neighbours; never "-0".
[[nodiscard]] QString tickText(double value, double step);
// A line of text each.
[[nodiscard]] QString linesOf(const std::vector<std::string>& all);
// "0000 1111 0000", in fours from the right.
[[nodiscard]] QString groupedBinary(std::uint32_t bits, int width);
// "0x00C8"
[[nodiscard]] QString hexText(std::uint32_t bits, int width);

}  // namespace tessarine::desktop
