// The clients' hands at the operator's door, and whose action it is that runs.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Form.h"
#include "forms/Operator.h"

namespace tessarine::remote {

// A client, as far as its actions come back to it.
class Actor {
 public:
  virtual ~Actor() = default;
  // What would have been a message box.
  virtual void takeMessage(const std::string& text) = 0;
  // A window that its action has opened waits for input.
  virtual void windowOpened() = 0;
};

// A command has to wait, and is to be begun anew then: for its client's own hop or sweep, or for another
// client's action, which is under way and lets events run. The words of two loads among one another would
// reach no register.
enum class Held { byOwn, byOthers };

class Hands : public forms::DoorWatch {
 public:
  // Nobody waits for the end of a click on one of `starters`: it runs until it is stopped.
  Hands(forms::FormList& forms, forms::Operator& door, std::vector<const forms::Control*> starters);
  ~Hands() override;
  Hands(const Hands&) = delete;
  Hands& operator=(const Hands&) = delete;

  // The operator's actions in the name of `actor`, who outlives them. Each throws Held, or Refused for what
  // the door does not let in.
  void click(Actor& actor, forms::Control& control);
  void set(Actor& actor, forms::Control& control, std::string_view value);
  // By its name; throws Refused.
  [[nodiscard]] forms::Control& control(std::string_view name) const;
  [[nodiscard]] const forms::FormList& forms() const { return forms_; }

  // Whose action is the innermost one that runs; null: the operator's own, or none.
  [[nodiscard]] Actor* actor() const { return running_.empty() ? nullptr : running_.back().actor; }
  // Whether another client's action is to be waited for; the operator's are not.
  [[nodiscard]] bool areHeld() const { return !running_.empty() && running_.back().holds; }
  void awaitOthers() const {
    if (areHeld()) throw Held::byOthers;
  }
  // Nobody waits for the innermost action any more: it waits for input itself.
  void letOthersIn();
  // Whether a click on it has begun and is not over.
  [[nodiscard]] bool isRunning(const forms::Control& control) const;

  void begins(const forms::Action& action) override;
  void ends() override { running_.pop_back(); }

 private:
  struct Running {
    Actor* actor;
    const forms::Control* clicked;  // null: another deed
    bool holds;
  };

  void act(Actor& actor, const forms::Control& control,
           const std::function<forms::Operator::Refusal()>& action);

  forms::FormList& forms_;
  forms::Operator& door_;
  std::vector<const forms::Control*> starters_;
  Actor* next_ = nullptr;  // whose action is about to begin
  std::vector<Running> running_;
};

}  // namespace tessarine::remote
