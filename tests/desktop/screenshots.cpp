// Draws the windows of the program in all their states into PNG files: what the README shows, and what one
// looks at after a change to the places or to the look.
//
//   tessarine-screenshots DIRECTORY [POINTSIZE]
#include <QApplication>
#include <QMessageBox>
#include <QPixmap>
#include <QTimer>

#include "desktop/Bench.h"
#include "desktop/Style.h"

namespace tessarine::desktop {
namespace {

struct Album {
  QString directory;
  QString theme;

  void take(QWidget& window, const QString& name) const {
    QCoreApplication::processEvents();
    window.grab().save(directory + QLatin1Char('/') + name + QLatin1Char('-') + theme +
                       QStringLiteral(".png"));
  }
};

void showEverything(const Album& album) {
  Bench bench;
  PllForm1& form = bench.form();
  bench.host.version.reset();
  bench.program.start();
  album.take(bench.window(), QStringLiteral("first"));
  form.ContinueCommand_Click();
  form.RefText.Text = "10";
  form.CompText.Text = "200";
  form.VCOText.Text = "900";
  for (const auto& [index, entry] : form.pllM.members()) {
    if (entry.isSeparator()) continue;
    const QString model = QString::fromStdString(entry.Caption.get());
    form.pllM_Click(index);
    form.PrescalarText.pick(0);
    bench.program.door.click(form.AllCommand);
    album.take(bench.window(), model);
    form.ACommand_Click();
    album.take(bench.window(), model + QStringLiteral("-panel"));
    if (form.ACommand.Caption == "Close") form.ACommand_Click();
    form.Label17_Click();
  }
  form.pllM_Click(9);
  form.Hop1_Click();
  form.VcoText1.Text = "900";
  form.VcoText2.Text = "925.2";
  form.Label8.Caption = "Current Hop \r\n 12\r\n\r\nFrequency:\r\n925.2";
  album.take(bench.window(), QStringLiteral("hop"));
  form.Sweep1_Click();
  form.AutoOption1.Value = true;
  form.Label15.Caption = "Current Freq:\r\n1747.200000 MHz";
  album.take(bench.window(), QStringLiteral("sweep"));
  for (forms::Form* dialog :
       {static_cast<forms::Form*>(&form.parallelForm), static_cast<forms::Form*>(&form.browseForm),
        static_cast<forms::Form*>(&form.aboutForm)}) {
    dialog->Show();
    album.take(bench.window(*dialog), QString::fromStdString(dialog->name()));
    dialog->Unload();
  }
}

}  // namespace
}  // namespace tessarine::desktop

int main(int argc, char** argv) {
  using namespace tessarine::desktop;
  QApplication application(argc, argv);
  dress(application);
  const QStringList arguments = QApplication::arguments();
  // A message would wait for an operator.
  QTimer answers;
  QObject::connect(&answers, &QTimer::timeout, [] {
    if (auto* const message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      qWarning("%s", qPrintable(message->text()));
      message->accept();
    }
  });
  answers.start(50);
  if (arguments.size() > 2) {
    QFont font = QApplication::font();
    font.setPointSizeF(arguments[2].toDouble());
    QApplication::setFont(font);
  }
  showEverything({arguments.value(1), QStringLiteral("light")});
  QApplication::setPalette(darkPalette());
  showEverything({arguments.value(1), QStringLiteral("dark")});
  return 0;
}
