// Draws the windows of the program in all their states into PNG files: what the README shows, and what one
// looks at after a change to the places or to the look.
//
//   tessarine-screenshots DIRECTORY [POINTSIZE]
#include <QPixmap>
#include <string>

#include "desktop/Bench.h"
#include "desktop/Style.h"

int main(int argc, char** argv) {
  using namespace tessarine::desktop;
  QApplication application(argc, argv);
  dress(application);
  const QStringList arguments = QApplication::arguments();
  const WithFontSize font(arguments.size() > 2 ? arguments[2].toDouble() : QApplication::font().pointSizeF());
  for (const bool dark : {false, true}) {
    QApplication::setPalette(dark ? darkPalette() : lightPalette());
    Bench bench;
    visitStates(bench, [&](FormWindow& window, const auto&, const std::string& state) {
      QCoreApplication::processEvents();
      window.grab().save(QStringLiteral("%1/%2-%3.png")
                             .arg(arguments.value(1), QString::fromStdString(state),
                                  dark ? QStringLiteral("dark") : QStringLiteral("light")));
    });
  }
  return 0;
}
