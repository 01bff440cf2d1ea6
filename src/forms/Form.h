// A window of the program, and the list of all of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/Controls.h"

namespace tessarine::forms {

class FormList;

enum class Pointer { arrow, hourglass };

class Form : public Container {
 public:
  Form(FormList& forms, std::string name, std::string caption);
  ~Form() override;
  [[nodiscard]] std::string value() const override { return Caption; }

  // Loads the form if it is not, makes it visible and activates it.
  void Show();
  // Makes it invisible; it stays loaded. The form that was active before becomes active.
  void Hide();
  // Hides it; its next showing loads it anew.
  void Unload();

  [[nodiscard]] FormList& forms() const { return forms_; }
  // All controls of the form in the order of their declaration.
  [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }
  // The control with this name ("Label31(3)"); the one member of an array is found without its index too.
  [[nodiscard]] Control* find(std::string_view controlName) const;
  // The visible option button, button and so on that Enter and Escape click; null without one.
  [[nodiscard]] CommandButton* defaultButton() const;
  [[nodiscard]] CommandButton* cancelButton() const;

  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  // The operator closes the window.
  virtual void Form_QueryUnload() { Unload(); }

  Property<std::string> Caption{*this, Aspect::Caption};
  Property<Pointer> MousePointer{*this, Aspect::MousePointer, Pointer::arrow};
  bool resizable = false;

 private:
  friend class Control;
  friend class FormList;
  FormList& forms_;
  std::vector<Control*> controls_;
  bool loaded_ = false;
};

// Watches all forms.
class Observer {
 public:
  virtual ~Observer() = default;
  virtual void changed(Control& control, Aspect aspect) = 0;
};

class FormList {
 public:
  FormList() = default;
  FormList(const FormList&) = delete;
  FormList& operator=(const FormList&) = delete;

  [[nodiscard]] const std::vector<Form*>& all() const { return forms_; }
  // The control "VCOText" of the main form (the first one), or "ParallelForm.LPTwText(0)" of another; or a
  // form by its own name.
  [[nodiscard]] Control* find(std::string_view name) const;
  // How a control is named in scripts: with the form in front, but for the main form's.
  [[nodiscard]] std::string nameOf(const Control& control) const;

  void observe(Observer& observer);
  void unobserve(Observer& observer);
  void tell(Control& control, Aspect aspect);

  // The active one among the program's own forms. Becoming active runs Form_Activate.
  [[nodiscard]] Form* active() const { return active_; }
  void activate(Form& form);

  // While a modal form shows, the others take no input.
  [[nodiscard]] Form* modal() const { return modal_.empty() ? nullptr : modal_.back(); }
  void beginModal(Form& form) { modal_.push_back(&form); }
  void endModal() { modal_.pop_back(); }

 private:
  friend class Form;
  void add(Form& form);
  void remove(Form& form);
  void deactivate(Form& form);

  std::vector<Form*> forms_;
  std::vector<Form*> order_;  // activation order, the active one last
  std::vector<Form*> modal_;
  std::vector<Observer*> observers_;
  Form* active_ = nullptr;
};

// While it lives, `form` alone takes input.
class Modality {
 public:
  explicit Modality(Form& form) : forms_(form.forms()) { forms_.beginModal(form); }
  ~Modality() { forms_.endModal(); }
  Modality(const Modality&) = delete;
  Modality& operator=(const Modality&) = delete;

 private:
  FormList& forms_;
};

}  // namespace tessarine::forms
