// A titled panel of lines "name, value".
#pragma once

#include <QGridLayout>
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
  // A label over the whole width, of as many lines as it needs.
  QLabel& addText(const QString& objectName);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void mute(QLabel& caption);
  QLabel& newLabel(const QString& text);

  QGridLayout grid_;
  int rows_ = 0;
  std::vector<QLabel*> captions_;
};

// A label that may be set 60 times a second is laid out anew only when it has to be.
void setTextIfNew(QLabel& label, const QString& text);

}  // namespace tessarine::desktop
