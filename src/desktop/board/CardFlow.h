// Cards beside one another: as many in a row as their texts leave room for, and the rest below. What is
// higher than the window scrolls.
#pragma once

#include <QGridLayout>
#include <QScrollArea>
#include <QWidget>
#include <vector>

#include "desktop/board/Card.h"

namespace tessarine::desktop {

class CardFlow : public QScrollArea {
 public:
  CardFlow();
  ~CardFlow() override;
  CardFlow(const CardFlow&) = delete;
  CardFlow& operator=(const CardFlow&) = delete;

  // The card goes before its place here does.
  void add(Card& card);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 private:
  [[nodiscard]] int widestCard() const;
  void flow();

  QWidget ground_;
  QGridLayout grid_{&ground_};
  std::vector<Card*> cards_;
  int columns_ = 0;
};

}  // namespace tessarine::desktop
