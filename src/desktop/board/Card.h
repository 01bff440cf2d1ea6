// A titled panel of lines "name, value".
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QWidget>

namespace tessarine::desktop {

class Card : public QWidget {
 public:
  explicit Card(const QString& title);

  struct Line {
    QLabel& name;
    QLabel& value;  // has the object name
  };
  Line addLine(const QString& name, const QString& objectName);
  // A label over the whole width, of as many lines as it needs.
  QLabel& addText(const QString& objectName);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel& newLabel(const QString& text);

  QGridLayout grid_;
  int rows_ = 0;
};

// A label that may be set 60 times a second is laid out anew only when it has to be.
void setTextIfNew(QLabel& label, const QString& text);

}  // namespace tessarine::desktop
