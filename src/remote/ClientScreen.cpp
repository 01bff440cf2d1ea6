#include "remote/ClientScreen.h"

#include "platform/Fault.h"

namespace tessarine::remote {

void ClientScreen::messageBox(const std::string& text, Icon icon, const std::string& title) {
  if (Actor* const actor = client()) {
    actor->takeMessage(text);
  } else {
    screen_.messageBox(text, icon, title);
  }
}

void ClientScreen::showModal(forms::Form& form) {
  if (Actor* const actor = client()) {
    hands_->letOthersIn();
    actor->windowOpened();
  }
  screen_.showModal(form);
}

void ClientScreen::endProgram() {
  ended_ = true;
  screen_.endProgram();
  throw ProgramEnded{};  // not reached: the compiler does not know
}

}  // namespace tessarine::remote
