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

class Hands : public forms::DoorWatch {
 public:
  Hands(forms::FormList& forms, forms::Operator& door);
  ~Hands() override;
  Hands(const Hands&) = delete;
  Hands& operator=(const Hands&) = delete;

  // The operator's actions in the name of `actor`, who outlives them. Each throws Refused for what the door
  // does not let in.
  void click(Actor& actor, forms::Control& control);
  void set(Actor& actor, forms::Control& control, std::string_view value);
  // By its name; throws Refused.
  [[nodiscard]] forms::Control& control(std::string_view name) const;
  [[nodiscard]] const forms::FormList& forms() const { return forms_; }

  // Whose action is the innermost one that runs; null: the operator's own, or none.
  [[nodiscard]] Actor* actor() const { return running_.empty() ? nullptr : running_.back().actor; }
  // Whether a click on it has begun and is not over.
  [[nodiscard]] bool isRunning(const forms::Control& control) const;

  void begins(const forms::Action& action) override;
  void ends() override { running_.pop_back(); }

 private:
  struct Running {
    Actor* actor;
    const forms::Control* clicked;  // null: another deed
  };

  void act(Actor& actor, const forms::Control& control,
           const std::function<forms::Operator::Refusal()>& action);

  forms::FormList& forms_;
  forms::Operator& door_;
  Actor* next_ = nullptr;  // whose action is about to begin
  std::vector<Running> running_;
};

}  // namespace tessarine::remote
