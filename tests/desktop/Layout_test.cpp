// The window in all its states and two font sizes: nothing is cut, nothing lies over what it should not, and
// the keyboard reaches whatever a click reaches.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "desktop/Bench.h"
#include "desktop/Fonts.h"
#include "forms/FileControls.h"

namespace tessarine::desktop {
namespace {

using forms::Control;
using forms::Kind;
using forms::Look;

// The panels that open over what they change, by the program's own rules.
const std::set<std::string> kPanels = {"Frame11", "Frame12", "Frame13", "Frame17", "Frame24"};

// A panel of one twip takes no room, and neither does what it holds.
bool isFolded(const QWidget& widget) {
  for (const QWidget* in = &widget; in; in = in->parentWidget()) {
    if (in->width() <= 1 && in->height() <= 1) return true;
  }
  return false;
}

bool isOnTop(FormWindow& window, const QWidget& widget) {
  const QWidget* const there = window.childAt(widget.mapTo(&window, widget.rect().center()));
  return there && (there == &widget || widget.isAncestorOf(there));
}

bool hasTextRoom(const QFont& font, const QString& text, const QRect& room, bool wrapped = false) {
  const QSize needed =
      QFontMetrics(font)
          .boundingRect(QRect(0, 0, room.width(), 10'000), wrapped ? Qt::TextWordWrap : 0, text)
          .size();
  return needed.width() <= room.width() && needed.height() <= room.height();
}

// Whether all of a control's text can be read, by the toolkit's own measure of it.
bool fits(const Control& control, const QWidget& widget) {
  const QFont& font = widget.font();
  const QString caption = QString::fromStdString(control.value()).trimmed();
  const QRect inside = widget.rect().adjusted(4, 2, -4, -2);
  switch (control.kind()) {
    case Kind::Label: {
      const QFont own = fontOf(static_cast<const forms::Label&>(control).look, font);
      const bool wrapped = widget.height() >= 2 * QFontMetrics(own).lineSpacing();
      return hasTextRoom(own, caption, widget.rect(), wrapped);
    }
    case Kind::CheckBox:
    case Kind::OptionButton:
      return widget.width() >= widget.sizeHint().width() - 4 &&
             widget.height() >= QFontMetrics(font).height();
    case Kind::ComboBox:
    case Kind::DropList: {
      const auto& box = static_cast<const QComboBox&>(widget);
      for (int i = 0; i < box.count(); ++i) {
        if (!hasTextRoom(font, box.itemText(i), inside.adjusted(0, 0, -18, 0))) return false;
      }
      return true;
    }
    case Kind::CommandButton:
      return hasTextRoom(font, QString(caption).remove(QLatin1Char('&')), inside);
    case Kind::TextBox:
      return hasTextRoom(font, caption, inside);
    case Kind::Frame:
      return hasTextRoom(frameTitleFont(font), caption, widget.rect().adjusted(8, 0, -8, 0));
    default:
      return true;
  }
}

bool takesKeys(const Control& control) {
  switch (control.kind()) {
    case Kind::Label:
      return control.Click && static_cast<const forms::Label&>(control).look != Look::fixedBit;
    case Kind::Frame:
    case Kind::PictureBox:
    case Kind::Line:
      return false;
    default:
      return control.isEnabled();
  }
}

std::set<std::string> reachedByTab(FormWindow& window) {
  std::set<std::string> reached;
  do {
    QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_Tab);
  } while (window.focusWidget() && reached.insert(window.focusWidget()->objectName().toStdString()).second);
  return reached;
}

void checkState(FormWindow& window, const forms::Form& form, const std::string& state) {
  SCOPED_TRACE(state);
  QCoreApplication::processEvents();
  const std::set<std::string> reached = reachedByTab(window);
  std::vector<std::pair<const Control*, const QWidget*>> shown;
  for (const Control* control : form.controls()) {
    if (control->kind() == Kind::Menu || !control->isVisible()) continue;
    const QWidget* const widget = window.widgetOf(*control);
    ASSERT_TRUE(widget && widget->isVisible()) << control->name() << " does not show";
    if (!isFolded(*widget)) shown.emplace_back(control, widget);
  }
  for (const auto& [control, widget] : shown) {
    const std::string& name = control->name();
    EXPECT_TRUE(fits(*control, *widget)) << name << " is cut: " << control->value();
    EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << name << " leaves its frame";
    if (takesKeys(*control)) {
      EXPECT_EQ(reached.contains(name), isOnTop(window, *widget)) << name << ": reached by the keyboard?";
    }
    for (const auto& [other, otherWidget] : shown) {
      if (other == control || other->container() != control->container()) continue;
      if (kPanels.contains(name) || kPanels.contains(other->name())) continue;
      EXPECT_FALSE(widget->geometry().intersects(otherWidget->geometry()))
          << name << " and " << other->name() << " overlap";
    }
  }
}

class Layout : public ::testing::TestWithParam<double> {};

TEST_P(Layout, HoldsInEveryState) {
  const WithFontSize font(GetParam());
  Bench bench;
  visitStates(bench, checkState);
}

TEST_P(Layout, FollowsAFontThatChangesUnderway) {
  Bench bench;
  bench.startWorking();
  const QSize before = bench.window().size();
  const WithFontSize font(GetParam());
  QCoreApplication::processEvents();
  EXPECT_EQ(bench.window().size() == before, GetParam() == 9);
  checkState(bench.window(), bench.form(), "working screen");
}

INSTANTIATE_TEST_SUITE_P(FontSizes, Layout, ::testing::Values(9, 14));

TEST(SmallScreen, TheWindowScrollsToWhatHasTheFocus) {
  const WithFontSize font(24);  // more than any test screen holds
  Bench bench;
  bench.startWorking();
  FormWindow& window = bench.window();
  EXPECT_TRUE(window.screen()->availableGeometry().contains(window.geometry()));
  bench.find("AllCommand")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(bench.find("VCOText"), Qt::Key_Tab);
  QWidget* const focused = window.focusWidget();
  EXPECT_TRUE(window.rect().contains(focused->mapTo(&window, focused->rect().center())));
}

TEST(Menus, AreReachedByTheKeyboard) {
  Bench bench;
  bench.startWorking();
  QTest::keyClick(&bench.window(), Qt::Key_F10);
  auto* const bar = bench.window().findChild<QMenuBar*>();
  ASSERT_TRUE(bar->activeAction());
  EXPECT_EQ(bar->activeAction()->objectName(), "File1(0)");
  QTest::keyClick(bar, Qt::Key_Right);
  QTest::keyClick(bar, Qt::Key_Down);
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return}) {
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), key);
  }
  QCoreApplication::processEvents();
  EXPECT_TRUE(bench.form().Hop1.Checked);
}

}  // namespace
}  // namespace tessarine::desktop
