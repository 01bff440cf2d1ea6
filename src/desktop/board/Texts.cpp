#include "desktop/board/Texts.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "board/NumberText.h"

namespace tessarine::desktop {

QString fixedText(double value, int decimals) { return text(board::fixedText(value, decimals)); }

QString shortText(double value) { return text(board::shortText(value)); }

QString megahertzText(double megahertz) { return fixedText(megahertz, 6) + QStringLiteral(" MHz"); }

QString frequencyText(double megahertz) { return text(board::frequencyText(megahertz)); }

QString offsetText(double hertz) {
  const double tenths = std::round(hertz * 10) / 10;
  if (tenths == 0) return QStringLiteral("0.0 Hz");
  const QString sign = tenths > 0 ? QStringLiteral("+") : QString();
  if (std::abs(tenths) < 1e3) return sign + fixedText(tenths, 1) + QStringLiteral(" Hz");
  if (std::abs(tenths) < 1e6) return sign + shortText(tenths / 1e3) + QStringLiteral(" kHz");
  return sign + shortText(tenths / 1e6) + QStringLiteral(" MHz");
}

QString tickText(double value, double step) {
  const double decimals =
      std::ceil(-std::log10(step) - 1e-9);  // the margin keeps 0.001 from counting as less
  const double shown = std::abs(value) < step / 2 ? 0 : value;
  return fixedText(shown, std::max(0, static_cast<int>(std::lround(decimals))));
}

QString timeText(double microseconds) {
  const double size = std::abs(microseconds);
  const auto rounded = [](double value) { return shortText(std::round(value * 1000) / 1000); };
  if (size < 1e3) return rounded(microseconds) + QStringLiteral(" µs");
  if (size < 1e6) return rounded(microseconds / 1e3) + QStringLiteral(" ms");
  return rounded(microseconds / 1e6) + QStringLiteral(" s");
}

QString linesOf(const std::vector<std::string>& all) {
  QStringList lines;
  for (const std::string& line : all) lines << text(line);
  return lines.join(QLatin1Char('\n'));
}

QString groupedBinary(std::uint32_t bits, int width) {
  const std::string plain = board::binaryText(bits, width);
  std::string grouped;
  for (std::size_t index = 0; index < plain.size(); ++index) {
    if (index > 0 && (plain.size() - index) % 4 == 0) grouped += ' ';
    grouped += plain[index];
  }
  return text(grouped);
}

QString hexText(std::uint32_t bits, int width) {
  return QStringLiteral("0x") + text(board::hexText(bits, width));
}

}  // namespace tessarine::desktop
