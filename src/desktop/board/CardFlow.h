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
  void add(Card& card) { place({&card, false}); }
  // A row of its own.
  void addWide(Card& card) { place({&card, true}); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 private:
  struct Place {
    Card* card;
    bool wide;
  };
  void place(Place place);
  [[nodiscard]] int widest(bool wide) const;
  void flow();

  QWidget ground_;
  QGridLayout grid_{&ground_};
  std::vector<Place> places_;
  int columns_ = 0;
};

}  // namespace tessarine::desktop
