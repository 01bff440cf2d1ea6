// The program on the screen: its windows follow the forms, its messages, waits and end are the toolkit's.
#pragma once

#include <QApplication>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

#include "desktop/ControlWidget.h"
#include "desktop/FormWindow.h"
#include "forms/Operator.h"
#include "platform/Platform.h"

namespace tessarine::desktop {

// From now on until dress(): where no display can be opened the program ends with a sentence and the status
// 69 (EX_UNAVAILABLE), not with the toolkit's crash.
void endWithoutDisplay();

// Sets the look and the icon of the application, and the name of its desktop file. Call it before any window
// is made.
void dress(QApplication& application, const char* program = "tessarine");

class Desktop : public Screen, public forms::Observer, public Hands {
 public:
  Desktop() = default;
  ~Desktop() override;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // Shows `forms`, calls `start`, and lets the operator work through `door` until the program ends. SIGINT
  // and SIGTERM close the main window as the operator would.
  void run(forms::FormList& forms, forms::Operator& door, const std::function<void()>& start);

  // The same in two steps, for callers with an event loop of their own.
  void attach(forms::FormList& forms, forms::Operator& door);
  void detach();

  // What stands under the text of a message, in smaller letters that can be copied; empty for nothing.
  std::function<std::string(const std::string& text)> remark;

  // For what works the program beside the operator. Each may be empty: runs when the program lets events run;
  // gives the seconds until it next has anything to do; works a form that was opened modally, as far as it
  // goes; answers a message in the operator's place, or gives false.
  std::function<void()> runOtherEvents;
  std::function<double()> untilOtherEvents;
  std::function<void(forms::Form&)> operateModal;
  std::function<bool(const std::string& text, Icon icon, const std::string& title)> answer;
  // Lets the windows paint and listen, and nothing else.
  void breathe();

  // A note that holds nothing up, for what goes wrong beside the operator's work.
  void tell(const std::string& text);

  [[nodiscard]] bool hasEnded() const { return ended_; }
  [[nodiscard]] FormWindow* windowOf(const forms::Form& form) const;

  // Screen.
  void messageBox(const std::string& text, Icon icon, const std::string& title) override;
  void showModal(forms::Form& form) override;
  void repaint(forms::Control& control) override;
  void processEvents() override;
  void sleepUntilEvent(double seconds) override;
  [[noreturn]] void endProgram() override;

  // Observer.
  void changed(forms::Control& control, forms::Aspect aspect) override;

  // Hands.
  void click(forms::Control& control) override;
  void doubleClick(forms::Control& control) override;
  void type(forms::Control& control, const QString& text) override;
  void pick(forms::Control& control, int item) override;
  void activate(forms::Form& form) override;
  void close(forms::Form& form) override;

 private:
  using Refusal = forms::Operator::Refusal;
  void act(forms::Control& control, const std::function<Refusal(forms::Operator&)>& action);
  void showActiveForm();
  void throwIfEnded() const;
  FormWindow& windowFor(forms::Form& form);

  forms::FormList* forms_ = nullptr;
  forms::Operator* door_ = nullptr;
  std::unordered_map<const forms::Form*, std::unique_ptr<FormWindow>> windows_;
  bool ended_ = false;
};

}  // namespace tessarine::desktop
