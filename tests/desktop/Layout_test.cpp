// The window in all its states and two font sizes: nothing is cut, nothing lies over what it should not, and
// the keyboard reaches whatever a click reaches.
#include <gtest/gtest.h>

#include <QApplication>
#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "desktop/Bench.h"
#include "desktop/Fit.h"
#include "desktop/Painted.h"
#include "desktop/Scale.h"
#include "desktop/Style.h"

namespace tessarine::desktop {
namespace {

using forms::Control;
using forms::Kind;
using forms::Look;

// Shows windows in another font while it lives.
struct WithFontSize {
  explicit WithFontSize(double points) {
    QFont font = before;
    font.setPointSizeF(points);
    QApplication::setFont(font);
  }
  ~WithFontSize() { QApplication::setFont(before); }
  const QFont before = QApplication::font();
};

// Draws it into the folder that TESSARINE_DRAW_INTO names, for looking at.
void draw(FormWindow& window, const std::string& state) {
  const QString folder = qEnvironmentVariable("TESSARINE_DRAW_INTO");
  for (const char* const look : {"dark", "light"}) {
    if (folder.isEmpty()) return;
    QApplication::setPalette(look[0] == 'd' ? darkPalette() : lightPalette());
    QCoreApplication::processEvents();
    window.grab().save(QStringLiteral("%1/%2-%3-%4.png")
                           .arg(folder, QString::fromStdString(state), QLatin1String(look))
                           .arg(window.font().pointSize()));
  }
}

// The panels that open over what they change, by the program's own rules.
const std::set<std::string> kPanels = {"Frame11", "Frame12", "Frame13", "Frame17", "Frame24"};

// A panel of one twip takes no room, and neither does what it holds.
bool isFolded(const QWidget& widget) {
  for (const QWidget* in = &widget; in; in = in->parentWidget()) {
    if (in->width() <= 1 && in->height() <= 1) return true;
  }
  return false;
}

bool takesKeys(const Control& control) {
  if (control.kind() == Kind::Label)
    return control.Click && static_cast<const forms::Label&>(control).look != Look::fixedBit;
  constexpr Kind kPassive[] = {Kind::Frame, Kind::PictureBox, Kind::Line};
  return std::ranges::count(kPassive, control.kind()) == 0 && control.isEnabled();
}

std::set<std::string> reachedByTab(FormWindow& window) {
  std::set<std::string> reached;
  do {
    QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_Tab);
  } while (window.focusWidget() && reached.insert(window.focusWidget()->objectName().toStdString()).second);
  return reached;
}

void checkState(Bench& bench, const forms::Form& form, const std::string& state) {
  SCOPED_TRACE(state);
  FormWindow& window = bench.window(form);
  QCoreApplication::processEvents();
  draw(window, state);
  const std::set<std::string> reached = reachedByTab(window);
  std::vector<std::pair<const Control*, QWidget*>> shown;
  for (const Control* control : form.controls()) {
    if (control->kind() == Kind::Menu || !control->isVisible()) continue;
    QWidget* const widget = window.widgetOf(*control);
    ASSERT_TRUE(widget && widget->isVisible()) << control->name() << " does not show";
    if (!isFolded(*widget)) shown.emplace_back(control, widget);
  }
  for (const auto& [control, widget] : shown) {
    const std::string& name = control->name();
    const bool scrolls = dynamic_cast<const QAbstractItemView*>(widget);  // a folder's files may be many
    EXPECT_TRUE(scrolls || !cutsText(*widget)) << name << " is cut: " << control->value();
    if (const auto* const box = dynamic_cast<const QComboBox*>(widget)) {
      for (int item = 0; item < box->count(); ++item)
        EXPECT_LE(box->fontMetrics().horizontalAdvance(box->itemText(item)) + 26, box->width()) << name;
    }
    EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << name << " leaves its frame";
    EXPECT_EQ(reached.contains(name), isOnTop(*widget) && takesKeys(*control))
        << name << ": reached by the keyboard?";
    const bool isDrawn = control->kind() == Kind::Line;  // what it parts may meet in its middle
    const bool isAcross = widget->width() > widget->height();
    const QPoint end(isAcross ? 0 : widget->width() / 2, isAcross ? widget->height() / 2 : 0);
    if (isDrawn) {
      EXPECT_EQ(widget->grab().toImage().pixelColor(end).name(), Tones(widget->palette()).edge.name());
    }
    EXPECT_TRUE(isDrawn || isOnTop(*widget) || !kPanels.contains(control->container()->name()))
        << name << " is covered";
    for (const auto& [other, otherWidget] : shown) {
      if (other == control || other->container() != control->container()) continue;
      if (kPanels.contains(name) || kPanels.contains(other->name())) continue;
      EXPECT_FALSE(widget->geometry().intersects(otherWidget->geometry()))
          << name << " and " << other->name() << " overlap";
    }
  }
}

class Layout : public ::testing::TestWithParam<double> {};

// The first screen, each model with its panel closed and open in each mode, with the longest texts that come
// there, and the dialogs.
TEST_P(Layout, HoldsInEveryState) {
  const WithFontSize font(GetParam());
  Bench bench;
  PllForm1& form = bench.form;
  bench.host.version.reset();
  bench.start();
  checkState(bench, form, "first");
  form.ContinueCommand_Click();
  checkState(bench, form, "start");
  for (const auto& [index, entry] : form.pllM.members()) {
    if (entry.isSeparator()) continue;
    form.pllM_Click(index);
    form.Mregister.Caption = std::string(24, '0');
    for (auto& [row, label] : form.Label21.members()) label.Caption = "R4_2: " + std::string(24, '1');
    for (const bool open : {false, true}) {
      if (open) form.ACommand_Click();
      form.Label70.Caption = "Main: Power Steering/LD";
      form.Label71.Caption = "Aux: Power Steering/LD";
      form.Label8.Caption = "    Current Hop  \r\n 32767\r\n\r\nFrequency:\r\n1747.20000012345";
      form.Label15.Caption = "Current Freq:\r\n12747.200000 MHz";
      const std::string name = entry.value() + (open ? "-panel" : "");
      form.Hop1_Click();
      checkState(bench, form, name + "-hop");
      form.Sweep1_Click();
      bench.program.door.click(open ? form.AutoOption1 : form.StepOption);
      checkState(bench, form, name + "-sweep");
      form.Gen1_Click();
      checkState(bench, form, name);
    }
    if (form.ACommand.Caption == "Close") form.ACommand_Click();
    form.Label17_Click();
  }
  for (forms::Form* dialog : bench.program.forms.all()) {
    if (dialog == &form) continue;
    dialog->Show();
    EXPECT_TRUE(becomesActive(bench.window(*dialog))) << dialog->name();
    checkState(bench, *dialog, dialog->name());
    dialog->Unload();
  }
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
  EXPECT_TRUE(bench.form.Hop1.Checked);
}

}  // namespace
}  // namespace tessarine::desktop
