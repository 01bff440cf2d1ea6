// A titled panel of lines "name, value".
#pragma once

#include <QColor>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QWidget>
#include <vector>

namespace tessarine::desktop {

class Card : public QWidget {
 public:
  explicit Card(const QString& title);

  struct Line {
    QLabel& name;
    QLabel& value;  // has the object name
  };
  Line addLine(const QString& name, const QString& objectName);
  // A line whose value is a widget that is there already; gives its name.
  QLabel& addRow(const QString& name, QWidget& value);
  // What follows stands beside what is there.
  void beginHalf();
  // A label over the whole width, of as many lines as it needs.
  QLabel& addText(const QString& objectName);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void mute(QLabel& caption);
  QLabel& newLabel(const QString& text);

  QHBoxLayout* halves_;          // of the card's layout
  QGridLayout* half_ = nullptr;  // the one that is filled
  int rows_ = 0;                 // of it
  std::vector<QLabel*> captions_;
};

// In that colour, laid out anew only when it is another one.
void setInk(QLabel& label, const QColor& ink);

// A label that may be set 60 times a second is laid out anew only when it has to be.
void setTextIfNew(QLabel& label, const QString& text);

}  // namespace tessarine::desktop
