// The menus of a form.
#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <map>
#include <memory>
#include <vector>

#include "desktop/ControlWidget.h"

namespace tessarine::desktop {

class Menus {
 public:
  // Fills `bar` with the menus of `form`.
  Menus(forms::Form& form, QMenuBar& bar, Hands& hands);

  void take(const forms::Control& control);
  [[nodiscard]] bool any() const { return !actions_.empty(); }

 private:
  void add(forms::Menu& entry, QWidget& in);

  QMenuBar& bar_;
  Hands& hands_;
  std::map<const forms::Control*, std::unique_ptr<QAction>> actions_;
  std::vector<std::unique_ptr<QMenu>> menus_;
};

}  // namespace tessarine::desktop
