#include "desktop/Menus.h"

#include <QKeySequence>
#include <utility>

namespace tessarine::desktop {

namespace {

template <class Visit>
void eachEntry(forms::Container& container, Visit&& visit) {
  for (forms::Control* child : container.children()) {
    if (child->kind() == forms::Kind::Menu) visit(static_cast<forms::Menu&>(*child));
  }
}

}  // namespace

Menus::Menus(forms::Form& form, QMenuBar& bar, Hands& hands) : bar_(bar), hands_(hands) {
  eachEntry(form, [&](forms::Menu& entry) { add(entry, bar); });
}

void Menus::add(forms::Menu& entry, QWidget& in) {
  auto action = std::make_unique<QAction>(&bar_);
  if (entry.children().empty()) {
    action->setSeparator(entry.isSeparator());
    if (!entry.shortcut.empty()) action->setShortcut(QKeySequence(toQt(entry.shortcut)));
    // A handler may take its time and let events run: it starts from the event loop, not out of the menu.
    QObject::connect(
        action.get(), &QAction::triggered, action.get(),
        [this, &entry] {
          take(entry);
          hands_.click(entry);
        },
        Qt::QueuedConnection);
  } else {
    auto menu = std::make_unique<QMenu>();
    eachEntry(entry, [&](forms::Menu& child) { add(child, *menu); });
    action->setMenu(menu.get());
    menus_.push_back(std::move(menu));
  }
  action->setObjectName(toQt(entry.name()));
  in.addAction(action.get());
  actions_.emplace(&entry, std::move(action));
  take(entry);
}

void Menus::take(const forms::Control& control) {
  const auto found = actions_.find(&control);
  if (found == actions_.end()) return;
  const auto& entry = static_cast<const forms::Menu&>(control);
  QAction& action = *found->second;
  if (!entry.isSeparator()) action.setText(literal(entry.Caption));
  action.setVisible(entry.Visible);
  action.setEnabled(entry.Enabled);
  action.setCheckable(entry.Checked);
  action.setChecked(entry.Checked);
}

}  // namespace tessarine::desktop
