// The window of one form. Widgets are made when their control is first seen, so that a window opens at once
// however much it can show.
#pragma once

#include <QMenuBar>
#include <QScrollArea>
#include <QWidget>
#include <memory>
#include <unordered_map>
#include <vector>

#include "desktop/ControlWidget.h"
#include "desktop/Menus.h"
#include "desktop/Scale.h"

namespace tessarine::desktop {

class FormWindow : public QWidget {
 public:
  // `owner` is the window that this one stands over; null for the main window.
  FormWindow(forms::Form& form, Hands& hands, QWidget* owner);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  // Shows what has changed in the model.
  void take(forms::Control& control, forms::Aspect aspect);
  // Shows a control as the model has it, where an action was refused.
  void takeBack(forms::Control& control);
  // Null while the control has never been seen.
  [[nodiscard]] QWidget* widgetOf(const forms::Control& control) const;

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  [[nodiscard]] QWidget* ground(const forms::Container& container);
  void build(forms::Container& container, QWidget& parent);
  void buildOne(forms::Control& control, QWidget& parent);
  void putBelowLaterOnes(const forms::Control& control, QWidget& widget);
  void restack(const forms::Container& container);
  void takeCommon(forms::Control& control, QWidget& widget, forms::Aspect aspect);
  void takeForm(forms::Aspect aspect);
  void open();
  void place();
  void fit();
  void layOut();
  void notePage(const forms::Control& control);
  void focusAfterChange();
  void focusFirstOf(const forms::Container& container, Qt::FocusReason reason);
  void focusFirstIfNone();
  [[nodiscard]] bool isOnTop(const QWidget& widget) const;
  void collectStops(const forms::Container& container, std::vector<QWidget*>& stops) const;
  [[nodiscard]] std::vector<QWidget*> tabStops() const;

  forms::Form& form_;
  Hands& hands_;
  QWidget* owner_;
  Scale scale_;
  QMenuBar bar_;
  QScrollArea scroll_;
  QWidget canvas_;
  Menus menus_;
  std::vector<std::unique_ptr<ControlWidget>> made_;  // in the order of making: parents first
  std::unordered_map<const forms::Control*, ControlWidget*> byControl_;
  bool placed_ = false;
  // A page that took the place of another in this turn of events.
  const forms::Control* pageGone_ = nullptr;
  const forms::Control* pageCome_ = nullptr;
};

}  // namespace tessarine::desktop
