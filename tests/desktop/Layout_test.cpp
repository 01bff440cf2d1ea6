// The window in all its states and two font sizes: nothing is cut, nothing lies over what it should not, and
// the keyboard reaches whatever a click reaches.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <set>

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

bool hasTextRoom(const QFont& font, const QString& text, const QRect& room, bool wrapped) {
  const QFontMetrics metrics(font);
  const QRect needed =
      metrics.boundingRect(QRect(0, 0, room.width(), 10'000), wrapped ? Qt::TextWordWrap : 0, text);
  return needed.width() <= room.width() && needed.height() <= room.height();
}

// Whether all of a control's text can be read, by the toolkit's own measure of it.
bool fits(const Control& control, const QWidget& widget) {
  switch (control.kind()) {
    case Kind::Label: {
      const auto& label = static_cast<const forms::Label&>(control);
      const QFont font = fontOf(label.look, widget.font());
      const bool wrapped = widget.height() >= 2 * QFontMetrics(font).lineSpacing();
      return hasTextRoom(font, QString::fromStdString(label.Caption).trimmed(), widget.rect(), wrapped);
    }
    case Kind::CommandButton: {
      const QString text = static_cast<const QPushButton&>(widget).text().remove(QLatin1Char('&'));
      return hasTextRoom(widget.font(), text, widget.rect().adjusted(4, 2, -4, -2), false);
    }
    case Kind::CheckBox:
    case Kind::OptionButton: {
      const QSize hint = widget.sizeHint();
      return widget.width() >= hint.width() - 4 && widget.height() >= QFontMetrics(widget.font()).height();
    }
    case Kind::ComboBox:
    case Kind::DropList: {
      const auto& box = static_cast<const QComboBox&>(widget);
      for (int i = 0; i < box.count(); ++i) {
        if (!hasTextRoom(box.font(), box.itemText(i), box.rect().adjusted(4, 2, -22, -2), false))
          return false;
      }
      return true;
    }
    case Kind::TextBox:
      return hasTextRoom(widget.font(), static_cast<const QLineEdit&>(widget).text(),
                         widget.rect().adjusted(4, 2, -4, -2), false);
    case Kind::Frame:
      return hasTextRoom(frameTitleFont(widget.font()), QString::fromStdString(control.value()).trimmed(),
                         widget.rect().adjusted(8, 0, -8, 0), false);
    default:
      return true;
  }
}

bool takesKeys(const Control& control) {
  switch (control.kind()) {
    case Kind::Label: {
      const Look look = static_cast<const forms::Label&>(control).look;
      return control.Click && look != Look::fixedBit;
    }
    case Kind::Frame:
    case Kind::PictureBox:
    case Kind::Line:
    case Kind::Menu:
    case Kind::Form:
      return false;
    default:
      return true;
  }
}

std::set<std::string> reachedByTab(FormWindow& window) {
  std::set<std::string> reached;
  for (int presses = 0; presses < 400; ++presses) {
    QWidget* const now = window.focusWidget() ? window.focusWidget() : &window;
    QTest::keyClick(now, Qt::Key_Tab);
    if (!window.focusWidget()) break;
    if (!reached.insert(window.focusWidget()->objectName().toStdString()).second) break;
  }
  return reached;
}

void checkState(FormWindow& window, const forms::Form& form) {
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
    const bool onTop = isOnTop(window, *widget);
    if (takesKeys(*control) && control->isEnabled()) {
      EXPECT_EQ(reached.count(name), onTop ? 1U : 0U) << name << (onTop ? " is not reached" : " is covered");
    }
    for (const auto& [other, otherWidget] : shown) {
      if (other == control || other->container() != control->container()) continue;
      const bool panel = kPanels.count(name) != 0 || kPanels.count(other->name()) != 0;
      if (!panel) {
        EXPECT_FALSE(widget->geometry().intersects(otherWidget->geometry()))
            << name << " and " << other->name() << " overlap";
      }
    }
  }
}

class Layout : public ::testing::TestWithParam<double> {};

TEST_P(Layout, HoldsInEveryStateOfTheMainWindow) {
  const WithFontSize font(GetParam());
  Bench bench;
  PllForm1& form = bench.form();
  bench.host.version.reset();
  bench.start();
  checkState(bench.window(), form);
  bench.click("ContinueCommand");
  checkState(bench.window(), form);
  for (const auto& [index, entry] : form.pllM.members()) {
    if (entry.isSeparator()) continue;
    SCOPED_TRACE(entry.value());
    form.pllM_Click(index);
    form.Mregister.Caption = std::string(24, '0');
    for (auto& [row, label] : form.Label21.members()) label.Caption = "R4_2: " + std::string(24, '1');
    for (const bool panelOpen : {false, true}) {
      SCOPED_TRACE(panelOpen ? "panel open" : "panel closed");
      if (panelOpen) form.ACommand_Click();
      const std::vector<std::function<void()>> modes = {
          [&] { form.Hop1_Click(); }, [&] { form.Sweep1_Click(); }, [&] { form.Gen1_Click(); }};
      for (const auto& mode : modes) {
        mode();
        checkState(bench.window(), form);
      }
    }
    // The longest texts that a click, a hop and a sweep put there.
    form.Label70.Caption = "Main: Power Steering/LD";
    form.Label71.Caption = "Aux: Power Steering/LD";
    form.Label8.Caption = "    Current Hop  \r\n 32767\r\n\r\nFrequency:\r\n1747.20000012345";
    form.Label15.Caption = "Current Freq:\r\n12747.200000 MHz";
    form.AutoOption1.Value = true;
    form.AutoOption1_Click();
    form.Hop1_Click();
    checkState(bench.window(), form);
    form.Sweep1_Click();
    checkState(bench.window(), form);
    form.Gen1_Click();
    checkState(bench.window(), form);
    if (form.ACommand.Caption == "Close") form.ACommand_Click();
    form.Label17_Click();
  }
}

TEST_P(Layout, HoldsInTheDialogs) {
  const WithFontSize font(GetParam());
  Bench bench;
  bench.startWorking();
  PllForm1& form = bench.form();
  for (forms::Form* dialog :
       {static_cast<forms::Form*>(&form.parallelForm), static_cast<forms::Form*>(&form.browseForm),
        static_cast<forms::Form*>(&form.aboutForm)}) {
    SCOPED_TRACE(dialog->name());
    dialog->Show();
    ASSERT_TRUE(becomesActive(bench.window(*dialog)));
    checkState(bench.window(*dialog), *dialog);
    dialog->Unload();
  }
}

TEST_P(Layout, FollowsAFontThatChangesUnderway) {
  Bench bench;
  bench.startWorking();
  const QSize before = bench.window().size();
  const WithFontSize font(GetParam());
  QCoreApplication::processEvents();
  EXPECT_EQ(bench.window().size() == before, GetParam() == 9);
  checkState(bench.window(), bench.form());
}

INSTANTIATE_TEST_SUITE_P(FontSizes, Layout, ::testing::Values(9, 14));

TEST(SmallScreen, TheWindowScrollsToWhatHasTheFocus) {
  const WithFontSize font(24);  // more than any test screen holds
  Bench bench;
  bench.startWorking();
  const QRect screen = bench.window().screen()->availableGeometry();
  EXPECT_TRUE(screen.contains(bench.window().geometry()));
  bench.find("AllCommand")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(bench.find("VCOText"), Qt::Key_Tab);
  QWidget* const focused = bench.window().focusWidget();
  EXPECT_TRUE(bench.window().rect().contains(focused->mapTo(&bench.window(), focused->rect().center())));
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
  QWidget* const popup = QApplication::activePopupWidget();
  ASSERT_TRUE(popup);
  QTest::keyClick(popup, Qt::Key_Down);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_TRUE(bench.form().Hop1.Checked);
}

}  // namespace
}  // namespace tessarine::desktop
