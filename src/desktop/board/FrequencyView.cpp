#include "desktop/board/FrequencyView.h"

#include <QBuffer>
#include <QHBoxLayout>
#include <QPixmap>
#include <QVBoxLayout>
#include <optional>
#include <sstream>

namespace tessarine::desktop {

namespace {

struct Stretch {
  const char* caption;
  double microseconds;  // 0: everything
};
constexpr Stretch kStretches[] = {
    {"everything", 0}, {"the last minute", 60e6}, {"the last 10 s", 10e6}, {"the last second", 1e6}};

}  // namespace

FrequencyView::FrequencyView(board::EvaluationBoard& board, const Saving& saving)
    : board_(board), saving_(saving), plot_(board) {
  plot_.setObjectName(QStringLiteral("frequencyPlot"));
  cursor_.setObjectName(QStringLiteral("frequencyCursor"));
  stretch_.setObjectName(QStringLiteral("frequencyStretch"));
  clear_.setObjectName(QStringLiteral("clearHistory"));
  saveTable_.setObjectName(QStringLiteral("saveCsv"));
  savePicture_.setObjectName(QStringLiteral("savePng"));
  plot_.setToolTip(
      QStringLiteral("Wheel, + and -: zoom\nDrag, left and right: pan\nHome: everything\n"
                     "Shift with left and right: cursor from change to change"));
  for (const Stretch& stretch : kStretches) stretch_.addItem(QLatin1String(stretch.caption));
  stretch_.setAccessibleName(QStringLiteral("Shown stretch of time"));
  clear_.setToolTip(QStringLiteral("Forgets the frequencies up to now"));
  cursor_.setWordWrap(true);

  auto* const bar = new QHBoxLayout;
  bar->addWidget(&cursor_, 1);
  bar->addWidget(&stretch_);
  bar->addWidget(&clear_);
  bar->addWidget(&saveTable_);
  bar->addWidget(&savePicture_);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(&plot_, 1);
  column->addLayout(bar);

  plot_.onCursor = [this] { cursor_.setText(plot_.cursorText()); };
  connect(&stretch_, &QComboBox::activated, this, [this](int item) {
    const double length = kStretches[item].microseconds;
    if (length == 0) {
      plot_.span().showAll();
    } else {
      plot_.span().followLast(length);
    }
    plot_.update();
  });
  connect(&clear_, &QPushButton::clicked, this, [this] {
    board_.clearHistory();
    board_.retune();  // the frequency of now is the first one of the new history
    plot_.span().showAll();
    plot_.refresh();
  });
  connect(&saveTable_, &QPushButton::clicked, this, [this] { saveTable(); });
  connect(&savePicture_, &QPushButton::clicked, this, [this] { savePicture(); });
}

void FrequencyView::take(const board::EvaluationBoard& board, std::optional<double> /*askedMHz*/) {
  plot_.refresh();
  for (QPushButton* const button : {&clear_, &saveTable_, &savePicture_})
    button->setEnabled(!board.history().empty());
}

void FrequencyView::saveTable() {
  std::ostringstream csv;
  saveCsv(board_.history(), csv);
  saving_.save(*this,
               {QStringLiteral("Save the frequencies"), QStringLiteral("frequency.csv"),
                QStringLiteral("Comma-separated values (*.csv)"), QStringLiteral("csv")},
               QByteArray::fromStdString(csv.str()));
}

void FrequencyView::savePicture() {
  QByteArray png;
  QBuffer buffer(&png);
  plot_.grab().save(&buffer, "PNG");
  saving_.save(*this,
               {QStringLiteral("Save the picture"), QStringLiteral("frequency.png"),
                QStringLiteral("PNG picture (*.png)"), QStringLiteral("png")},
               png);
}

}  // namespace tessarine::desktop
