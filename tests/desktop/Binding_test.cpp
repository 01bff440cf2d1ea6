// The binding of controls to widgets, on a form that no other code knows: what is declared appears, what
// changes shows, and what the operator does comes in at the door once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <string>
#include <utility>
#include <vector>

#include "desktop/Bench.h"
#include "desktop/Painted.h"
#include "forms/Build.h"
#include "forms/FileControls.h"
#include "support/Sum.h"

namespace tessarine::desktop {
namespace {

using namespace forms;
using namespace ::testing;

class SampleForm : public Form {
 public:
  explicit SampleForm(FormList& list) : Form(list, "Sample", "A sample") {
    Place.start(at(0, 0, 6000, 5000));
    Field.KeyUp = [this] { noted.emplace_back("key"); };
    Field.Change = note(Field);
    Combo.Change = [this] { noted.push_back("typed " + Combo.value()); };
    for (Control* const control : controls()) {
      const bool isRead = control->kind() == Kind::Label && static_cast<Label*>(control)->look != Look::bit;
      if (!isRead) control->Click = note(*control);
      control->DblClick = note(*control);
    }
  }
  Event note(Control& control) {
    return [this, &control] { noted.push_back(control.name() + " " + control.value()); };
  }
  std::vector<std::string> takeNotes() { return std::exchange(noted, {}); }

  std::vector<std::string> noted;

  One<Menu> Top{*this, "Top", 1, "Top & more", {}};
  One<Menu> Entry{Top, "Entry", 2, "Entry", {}, checked};
  One<Menu> Bar{Top, "Bar", 3, "-", {}};
  One<Label> Prompt{*this, "Prompt", "Rate & step:", at(100, 100, 1500, 300)};
  One<TextBox> Field{*this, "Field", "1", at(1700, 100, 1200, 300)};
  One<ComboBox> Combo{*this, "Combo", "", at(1700, 500, 1200, 300), items({"4/5", "8/9"})};
  One<DropList> Drop{*this, "Drop", "", at(1700, 900, 1200, 300), items({"Off", "On"})};
  One<CheckBox> Tick{*this, "Tick", "Noise & Spur", at(100, 1300, 2000, 300)};
  One<Frame> Box{*this, "Box", "Noise & Spur", at(3200, 100, 2500, 1500)};
  Array<OptionButton> Options{
      "Options", {{0, Box, "One", at(100, 400, 1500, 300)}, {1, Box, "Two", at(100, 800, 1500, 300)}}};
  One<Label> Name{*this, "Name", "Mode", at(100, 1700, 600, 200), caption};
  Array<Label> Bits{"Bits", *this, "01", 1, -1, at(100, 1900, 310, 310), 330, bit};
  One<FileListBox> Files{*this, "Files", "", at(100, 2400, 3000, 2000)};
  One<Label> Late{*this, "Late", "late", at(3200, 2400, 1200, 300), lamp, hidden};
  One<CommandButton> Button{*this, "Button", "&Go on", at(3200, 1900, 1200, 360), isDefault};
  One<CommandButton> Escape{*this, "Escape", "Leave", at(4500, 1900, 1200, 360), isCancel, tip("Goes")};
};

struct Binding : ::testing::Test {
  Binding() {
    desktop.attach(list, door);
    form.Show();
    EXPECT_TRUE(becomesActive(window()));
  }
  ~Binding() override { desktop.detach(); }

  FormWindow& window() { return *desktop.windowOf(form); }
  template <class Widget = QWidget>
  Widget* find(const char* name) {
    return objectIn<Widget>(window(), name);
  }
  void clickLeftEdge(const char* name) {
    QTest::mouseClick(find(name), Qt::LeftButton, {}, QPoint(5, find(name)->height() / 2));
  }
  void press(const char* name, Qt::Key key) {
    find(name)->setFocus();
    QTest::keyClick(find(name), key);
  }

  Desktop desktop;
  FormList list;
  Operator door{list, desktop};
  SampleForm form{list};
};

TEST_F(Binding, ShowsWhatTheProgramChangesWithoutTakingItForTheOperator) {
  form.Field.Text = "2";
  form.Combo.Text = "17";
  form.Drop.ListIndex = 1;
  form.Tick.Value = 1;
  form.Options(1).Value = true;
  form.Files.List = std::vector<std::string>{"a", "b"};
  form.takeNotes();
  form.Files.ListIndex = 1;
  QCoreApplication::processEvents();
  EXPECT_THAT(form.noted, ElementsAre("Files b")) << "that of the control itself";
  EXPECT_EQ(find<QListView>("Files")->currentIndex().row(), 1);
  EXPECT_EQ(find<QLineEdit>("Field")->text(), "2");
  EXPECT_EQ(find<QComboBox>("Combo")->currentText(), "17");
  EXPECT_EQ(find<QComboBox>("Drop")->currentText(), "On");
  EXPECT_TRUE(find<QAbstractButton>("Tick")->isChecked());
  EXPECT_TRUE(find<QAbstractButton>("Options(1)")->isChecked());
  EXPECT_FALSE(find<QAbstractButton>("Options(0)")->isChecked());

  form.Combo.rebuild({"32/33"});
  EXPECT_EQ(find<QComboBox>("Combo")->count(), 1);
  EXPECT_EQ(find<QComboBox>("Combo")->currentText(), "");
  form.Late.Visible = true;
  EXPECT_EQ(find<QLabel>("Late")->text(), "late");
  const QObjectList& siblings = find("Late")->parent()->children();
  EXPECT_LT(siblings.indexOf(find("Late")), siblings.indexOf(find("Button")))
      << "below what stands behind it";
  form.Field.Enabled = false;
  EXPECT_FALSE(find("Field")->isEnabled());
  form.Field.Move(1700, 4000, 1200, 300);
  EXPECT_GT(find("Field")->y(), find("Button")->y());
}

TEST_F(Binding, HandsEachActionOfTheOperatorOverOnce) {
  clickLeftEdge("Tick");
  clickLeftEdge("Options(1)");
  clickLeftEdge("Options(1)");
  EXPECT_THAT(form.takeNotes(), ElementsAre("Tick 1", "Options(1) 1", "Options(1) 1"));
  EXPECT_TRUE(find<QAbstractButton>("Options(1)")->isChecked());

  press("Field", Qt::Key_End);
  EXPECT_THAT(form.takeNotes(), ElementsAre("key")) << "a key that changes nothing is a key all the same";
  press("Field", Qt::Key_5);
  press("Field", Qt::Key_Backspace);
  EXPECT_THAT(form.takeNotes(), ElementsAre("Field 15", "key", "Field 1", "key"));

  press("Combo", Qt::Key_8);
  EXPECT_THAT(form.takeNotes(), ElementsAre("typed 8"));
  EXPECT_EQ(find<QComboBox>("Combo")->currentText(), "8") << "typed as typed, without completion";
  press("Combo", Qt::Key_Down);
  EXPECT_THAT(form.takeNotes(), ElementsAre("Combo 4/5"));
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Delete, Qt::Key_3}) press("Combo", key);
  EXPECT_EQ(form.Combo.value(), "3/5") << "edited where the cursor stands";
  form.takeNotes();

  press("Options(0)", Qt::Key_Down);
  press("Options(1)", Qt::Key_Up);
  EXPECT_THAT(form.takeNotes(), ElementsAre("Options(1) 1", "Options(0) 1")) << "an arrow key chooses";
  for (const char* const focused : {"Field", "Drop"}) {
    find(focused)->setFocus();
    turnWheel(*find("Drop"), find("Drop")->rect().center(), {0, -120});
    EXPECT_EQ(form.Drop.ListIndex == 0, find("Drop")->hasFocus()) << "the wheel turns what has the focus";
  }
  form.takeNotes();

  press("Bits(0)", Qt::Key_Space);
  QTest::mouseClick(find("Bits(1)"), Qt::LeftButton);
  EXPECT_THAT(form.takeNotes(), ElementsAre("Bits(0) 1", "Bits(1) 0"));

  form.Files.List = std::vector<std::string>{"a", "b", "c"};
  auto* const files = find<QListView>("Files");
  QTest::keyClicks(files, "b");  // jumps
  EXPECT_THAT(form.takeNotes(), ElementsAre("Files b"));
  const QPoint row = files->visualRect(files->currentIndex()).center();
  QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, row);
  QTest::mouseDClick(files->viewport(), Qt::LeftButton, {}, row);
  EXPECT_THAT(form.takeNotes(), ElementsAre("Files b", "Files b")) << "a click, then a double click";
}

TEST_F(Binding, LeavesAWidgetAsItWasWhereTheDoorRefuses) {
  SampleForm other(list);
  list.beginModal(other);
  clickLeftEdge("Tick");
  QTest::keyClicks(find("Field"), "9");
  EXPECT_FALSE(find<QAbstractButton>("Tick")->isChecked());
  EXPECT_EQ(find<QLineEdit>("Field")->text(), "1");
  list.endModal();
}

TEST_F(Binding, KeysReachTheDefaultAndTheCancelButton) {
  press("Field", Qt::Key_Return);
  press("Combo", Qt::Key_Enter);
  press("Combo", Qt::Key_Escape);
  press("Escape", Qt::Key_Return);
  EXPECT_THAT(form.takeNotes(),
              ElementsAre("Button &Go on", "Button &Go on", "Escape Leave", "Escape Leave"));
  QTest::keyClick(&window(), Qt::Key_G, Qt::AltModifier);
  EXPECT_TRUE(comesTrue([&] { return !form.noted.empty(); }));
  EXPECT_THAT(form.noted, ElementsAre("Button &Go on")) << "the access key of the caption";
}

TEST_F(Binding, MarksMenuEntriesAsTheModelDoes) {
  auto* const entry = find<QAction>("Entry(2)");
  EXPECT_TRUE(entry->isChecked());
  entry->trigger();
  QCoreApplication::processEvents();
  EXPECT_THAT(form.noted, ElementsAre("Entry(2) Entry"));
  EXPECT_TRUE(entry->isChecked()) << "the click itself marks nothing";
  form.Entry.Checked = false;
  EXPECT_FALSE(entry->isChecked());
  EXPECT_TRUE(find<QAction>("Bar(3)")->isSeparator());
  form.Entry.Enabled = false;
  EXPECT_FALSE(entry->isEnabled());
}

TEST_F(Binding, CaptionsHaveAccessKeysOnButtonsAloneAndNameFieldsForAScreenReader) {
  EXPECT_EQ(find<QAbstractButton>("Tick")->text(), "Noise && Spur");
  EXPECT_EQ(find<QAbstractButton>("Tick")->shortcut(), QKeySequence());
  EXPECT_EQ(find<QAction>("Top(1)")->text(), "Top && more");
  EXPECT_EQ(find<QLabel>("Prompt")->text(), "Rate & step:");
  EXPECT_EQ(find<QAbstractButton>("Button")->shortcut(), QKeySequence(Qt::ALT | Qt::Key_G));
  EXPECT_EQ(find("Field")->accessibleName(), "Rate & step Field");
  EXPECT_EQ(find("Bits(1)")->accessibleName(), "Mode Bits(1)");
  EXPECT_EQ(find("Box")->accessibleName(), "Noise & Spur");
  EXPECT_EQ(find("Escape")->toolTip(), "Goes");
}

TEST_F(Binding, PaintsTheStatesOfItsWidgetsAsTheyWereLookedOver) {
  form.Tick.Value = 1;
  form.Options(1).Value = true;
  form.Late.Visible = true;
  form.Late.BackColor = 0x204080;  // blue first
  std::string all;
  const auto paint = [&] {
    for (const Control* const control : form.controls())
      if (QWidget* const widget = window().widgetOf(*control))
        all += control->name() + '\n' + TextCanvas(*widget).notes.marks;
  };
  for (const char* const name :
       {"Field", "Combo", "Drop", "Tick", "Options(0)", "Bits(1)", "Files", "Escape", "Button"}) {
    find(name)->setFocus();
    paint();
  }
  for (const char* const name :
       {"Escape", "Drop", "Combo", "Bits(1)", "Options(0)", "Tick", "Field", "Button"})
    find(name)->setAttribute(Qt::WA_UnderMouse);
  paint();
  find<QAbstractButton>("Escape")->setDown(true);
  find<QAbstractButton>("Bits(0)")->setDown(true);
  paint();
  for (Control* const control : form.controls()) control->Enabled = false;
  paint();
  expectSum("states", all, 1102562021);
}

TEST_F(Binding, AFlippedBitRepaintsItselfAlone) {
  QWidget* const bit = find("Bits(1)");
  find("Bits(0)")->setFocus();
  QTest::qWait(50);
  const EventCounter own(QEvent::Paint, bit);
  const EventCounter others(QEvent::Paint, bit->parent());
  form.Bits(1).Caption = "1";
  EXPECT_TRUE(comesTrue([&] { return own.count == 1; }));
  QTest::qWait(20);
  EXPECT_EQ(others.count, 0);
}

}  // namespace
}  // namespace tessarine::desktop
