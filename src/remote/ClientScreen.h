// The screen of a program that clients work beside the operator: what their actions would show never holds
// up anybody.
#pragma once

#include <string>

#include "platform/Platform.h"
#include "remote/Hands.h"

namespace tessarine::remote {

class ClientScreen final : public Screen {
 public:
  explicit ClientScreen(Screen& screen) : screen_(screen) {}

  // From now on the messages of clients' actions go to the clients. The hands may go first, after null.
  void follow(Hands* hands) { hands_ = hands; }
  [[nodiscard]] bool hasEnded() const { return ended_; }

  void messageBox(const std::string& text, Icon icon, const std::string& title) override;
  void showModal(forms::Form& form) override;
  void repaint(forms::Control& control) override { screen_.repaint(control); }
  void processEvents() override { screen_.processEvents(); }
  void sleepUntilEvent(double seconds) override { screen_.sleepUntilEvent(seconds); }
  [[noreturn]] void endProgram() override;

 private:
  [[nodiscard]] Actor* client() const { return hands_ == nullptr ? nullptr : hands_->actor(); }

  Screen& screen_;
  Hands* hands_ = nullptr;
  bool ended_ = false;
};

}  // namespace tessarine::remote
