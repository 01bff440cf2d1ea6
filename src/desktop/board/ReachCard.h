// What a load of the fields as they stand would give, and what to type instead. A click on a suggestion
// copies it; nothing changes by itself.
#pragma once

#include <QPushButton>
#include <QString>
#include <string>

#include "board/Reach.h"
#include "desktop/board/Card.h"

namespace tessarine::desktop {

class ReachCard : public Card {
 public:
  ReachCard();
  void take(const board::Reach& reach);

 private:
  // A value to type, in a row of its own that shows while there is one.
  struct Suggestion {
    QPushButton button;
    QLabel* caption = nullptr;
    QString typed;
  };
  void addSuggestion(Suggestion& suggestion, const QString& name, const char* objectName);
  static void offer(Suggestion& suggestion, const std::string& typed, const char* unit);
  void takeResult(const board::Reach& reach);
  void takeSuggestions(const board::Reach& reach);

  QLabel& state_;
  QLabel& refusal_;
  Line asked_;
  Line output_;
  Line offset_;
  QLabel& why_;
  QLabel& limits_;
  Suggestion below_;
  Suggestion above_;
  Suggestion step_;
  QLabel& copied_;
  QLabel& notes_;
};

}  // namespace tessarine::desktop
