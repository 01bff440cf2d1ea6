// The binding of controls to widgets, on a form that no other code knows: what is declared appears, what
// changes shows, and what the operator does comes in at the door once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <ctime>

#include "desktop/Bench.h"
#include "forms/Build.h"
#include "forms/FileControls.h"

namespace tessarine::desktop {
namespace {

using namespace forms;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SampleForm : public Form {
 public:
  explicit SampleForm(FormList& list) : Form(list, "Sample", "A sample") {
    Place.start(at(0, 0, 6000, 5000));
  }

  void note(const std::string& what) { noted.push_back(what); }
  void tickClicked() { note("tick " + Tick.value()); }
  void fieldChanged() { note("field " + Field.value()); }
  void fieldKey() { note("key"); }
  void comboChanged() { note("combo " + Combo.value()); }
  void comboClicked() { note("picked " + Combo.value()); }
  void dropClicked() { note("drop " + Drop.value()); }
  void optionClicked(int index) { note("option " + std::to_string(index)); }
  void bitClicked(int index) { note("bit " + std::to_string(index)); }
  void buttonClicked() { note("button"); }
  void escapeClicked() { note("escape"); }
  void menuClicked() { note("menu"); }
  void listClicked() { note("file " + Files.value()); }
  void listEntered() { note("entered " + Files.value()); }

  std::vector<std::string> noted;

  One<Menu> Top{*this, "Top", 1, "Top & more", {}};
  One<Menu> Entry{Top,
                  "Entry",
                  2,
                  "Entry",
                  {},
                  checked,
                  shortcut("Ctrl+C"),
                  forms::click(this, &SampleForm::menuClicked)};
  One<Menu> Bar{Top, "Bar", 3, "-", {}};
  One<Label> Prompt{*this, "Prompt", "Rate & step:", at(100, 100, 1500, 300)};
  One<TextBox> Field{*this,
                     "Field",
                     "1",
                     at(1700, 100, 1200, 300),
                     change(this, &SampleForm::fieldChanged),
                     keyUp(this, &SampleForm::fieldKey)};
  One<ComboBox> Combo{*this,
                      "Combo",
                      "",
                      at(1700, 500, 1200, 300),
                      items({"4/5", "8/9"}),
                      change(this, &SampleForm::comboChanged),
                      forms::click(this, &SampleForm::comboClicked)};
  One<DropList> Drop{*this,
                     "Drop",
                     "",
                     at(1700, 900, 1200, 300),
                     items({"Off", "On"}),
                     forms::click(this, &SampleForm::dropClicked)};
  One<CheckBox> Tick{*this, "Tick", "Noise & Spur", at(100, 1300, 2000, 300),
                     forms::click(this, &SampleForm::tickClicked)};
  One<Frame> Box{*this, "Box", "Noise & Spur", at(3200, 100, 2500, 1500)};
  Array<OptionButton> Options{"Options",
                              {
                                  {0, Box, "One", at(100, 400, 1500, 300)},
                                  {1, Box, "Two", at(100, 800, 1500, 300)},
                              },
                              forms::click(this, &SampleForm::optionClicked)};
  One<Label> Name{*this, "Name", "Mode", at(100, 1700, 600, 200), caption};
  Array<Label> Bits{"Bits", *this, "01",
                    1,      -1,    at(100, 1900, 310, 310),
                    330,    bit,   forms::click(this, &SampleForm::bitClicked)};
  One<CommandButton> Button{*this,     "Button",
                            "&Go on",  at(3200, 1900, 1200, 360),
                            isDefault, forms::click(this, &SampleForm::buttonClicked)};
  One<CommandButton> Escape{*this,    "Escape",
                            "Leave",  at(4500, 1900, 1200, 360),
                            isCancel, forms::click(this, &SampleForm::escapeClicked)};
  One<FileListBox> Files{*this,
                         "Files",
                         "",
                         at(100, 2400, 3000, 2000),
                         forms::click(this, &SampleForm::listClicked),
                         doubleClick(this, &SampleForm::listEntered)};
  One<Label> Late{*this, "Late", "late", at(3200, 2400, 1200, 300), hidden};
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
    return window().findChild<Widget*>(QString::fromLatin1(name));
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
  form.Bits(0).Caption = "0";
  form.noted.clear();
  QCoreApplication::processEvents();
  EXPECT_THAT(form.noted, IsEmpty());
  EXPECT_EQ(find<QLineEdit>("Field")->text(), "2");
  EXPECT_EQ(find<QComboBox>("Combo")->currentText(), "17");
  EXPECT_EQ(find<QComboBox>("Drop")->currentText(), "On");
  EXPECT_TRUE(find<QCheckBox>("Tick")->isChecked());
  EXPECT_TRUE(find<QAbstractButton>("Options(1)")->isChecked());
  EXPECT_FALSE(find<QAbstractButton>("Options(0)")->isChecked());

  form.Combo.rebuild({"32/33"});
  EXPECT_EQ(find<QComboBox>("Combo")->count(), 1);
  EXPECT_EQ(find<QComboBox>("Combo")->currentText(), "");
  form.Late.Visible = true;
  EXPECT_EQ(find<QLabel>("Late")->text(), "late");
  form.Field.Enabled = false;
  EXPECT_FALSE(find("Field")->isEnabled());
  form.Field.Move(1700, 4000, 1200, 300);
  EXPECT_GT(find("Field")->y(), find("Files")->y());
}

TEST_F(Binding, HandsEachActionOfTheOperatorOverOnce) {
  QTest::mouseClick(find("Tick"), Qt::LeftButton, {}, QPoint(5, find("Tick")->height() / 2));
  EXPECT_THAT(form.noted, ElementsAre("tick 1"));
  form.noted.clear();

  QTest::mouseClick(find("Options(1)"), Qt::LeftButton, {}, QPoint(5, find("Options(1)")->height() / 2));
  QTest::mouseClick(find("Options(1)"), Qt::LeftButton, {}, QPoint(5, find("Options(1)")->height() / 2));
  EXPECT_THAT(form.noted, ElementsAre("option 1", "option 1"));
  EXPECT_TRUE(find<QAbstractButton>("Options(1)")->isChecked());
  form.noted.clear();

  find("Field")->setFocus();
  QTest::keyClick(find("Field"), Qt::Key_End);
  EXPECT_THAT(form.noted, ElementsAre("key")) << "a key that changes nothing is a key all the same";
  form.noted.clear();
  QTest::keyClick(find("Field"), Qt::Key_5);
  EXPECT_THAT(form.noted, ElementsAre("field 15", "key"));
  form.noted.clear();

  auto* const combo = find<QComboBox>("Combo");
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_Down);
  EXPECT_THAT(form.noted, ElementsAre("picked 4/5"));
  form.noted.clear();
  QTest::keyClicks(combo, "0");
  EXPECT_THAT(form.noted, ElementsAre("combo 4/50")) << "typed as typed, without completion";
  form.noted.clear();

  find("Bits(0)")->setFocus();
  QTest::keyClick(find("Bits(0)"), Qt::Key_Space);
  QTest::mouseClick(find("Bits(1)"), Qt::LeftButton);
  EXPECT_THAT(form.noted, ElementsAre("bit 0", "bit 1"));
}

TEST_F(Binding, LeavesAWidgetAsItWasWhereTheDoorRefuses) {
  SampleForm other(list);
  list.beginModal(other);
  QTest::mouseClick(find("Tick"), Qt::LeftButton, {}, QPoint(5, find("Tick")->height() / 2));
  QTest::keyClicks(find("Field"), "9");
  EXPECT_FALSE(find<QCheckBox>("Tick")->isChecked());
  EXPECT_EQ(find<QLineEdit>("Field")->text(), "1");
  list.endModal();
}

TEST_F(Binding, KeysReachTheDefaultAndTheCancelButton) {
  find("Field")->setFocus();
  QTest::keyClick(find("Field"), Qt::Key_Return);
  find("Combo")->setFocus();
  QTest::keyClick(find("Combo"), Qt::Key_Enter);
  QTest::keyClick(find("Combo"), Qt::Key_Escape);
  find("Escape")->setFocus();
  QTest::keyClick(find("Escape"), Qt::Key_Return);
  EXPECT_THAT(form.noted, ElementsAre("button", "button", "escape", "escape"));
  form.noted.clear();
  QTest::keyClick(&window(), Qt::Key_G, Qt::AltModifier);
  QTest::qWait(200);
  EXPECT_THAT(form.noted, ElementsAre("button")) << "the access key of the caption";
}

TEST_F(Binding, AShortcutOfAMenuStaysCopyInATextBox) {
  form.Field.Text = "copied";
  find("Field")->setFocus();
  QTest::keySequence(find("Field"), QKeySequence::SelectAll);
  QTest::keySequence(find("Field"), QKeySequence(Qt::CTRL | Qt::Key_C));
  QCoreApplication::processEvents();
  EXPECT_EQ(QApplication::clipboard()->text(), "copied");
  find("Combo")->setFocus();
  QTest::keySequence(find("Combo"), QKeySequence(Qt::CTRL | Qt::Key_C));
  QCoreApplication::processEvents();
  EXPECT_THAT(form.noted, ::testing::Not(::testing::Contains("menu")));
  find("Button")->setFocus();
  QTest::keySequence(find("Button"), QKeySequence(Qt::CTRL | Qt::Key_C));
  QCoreApplication::processEvents();
  EXPECT_EQ(form.noted.back(), "menu");
}

TEST_F(Binding, MarksMenuEntriesAsTheModelDoes) {
  auto* const entry = window().findChild<QAction*>("Entry(2)");
  EXPECT_TRUE(entry->isChecked());
  entry->trigger();
  QCoreApplication::processEvents();
  EXPECT_THAT(form.noted, ElementsAre("menu"));
  EXPECT_TRUE(entry->isChecked()) << "the click itself marks nothing";
  form.Entry.Checked = false;
  EXPECT_FALSE(entry->isChecked());
  EXPECT_TRUE(window().findChild<QAction*>("Bar(3)")->isSeparator());
  form.Entry.Enabled = false;
  EXPECT_FALSE(entry->isEnabled());
}

TEST_F(Binding, AnAmpersandIsAnAccessKeyOnButtonsAlone) {
  EXPECT_EQ(find<QCheckBox>("Tick")->text(), "Noise && Spur");
  EXPECT_EQ(find<QCheckBox>("Tick")->shortcut(), QKeySequence());
  EXPECT_EQ(window().findChild<QAction*>("Top(1)")->text(), "Top && more");
  EXPECT_EQ(find<QLabel>("Prompt")->text(), "Rate & step:");
  EXPECT_EQ(find<QPushButton>("Button")->shortcut(), QKeySequence(Qt::ALT | Qt::Key_G));
}

TEST_F(Binding, NamesFieldsAndBitsForAScreenReader) {
  EXPECT_EQ(find("Field")->accessibleName(), "Rate & step Field");
  EXPECT_EQ(find("Bits(1)")->accessibleName(), "Mode Bits(1)");
  EXPECT_EQ(find("Box")->accessibleName(), "Noise & Spur");
}

// Counts what is painted while it lives.
class PaintCounter : public QObject {
 public:
  PaintCounter() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && object->isWidgetType()) {
      const auto* const widget = static_cast<QWidget*>(object);
      painted.insert(widget->metaObject()->className() + std::string(" ") +
                     widget->objectName().toStdString());
    }
    return false;
  }
  std::multiset<std::string> painted;
};

TEST_F(Binding, AFlippedBitRepaintsItselfAlone) {
  find("Bits(0)")->setFocus();
  QTest::qWait(50);
  const PaintCounter counter;
  form.Bits(1).Caption = "1";
  QTest::qWait(50);
  EXPECT_THAT(counter.painted, ElementsAre("QAbstractButton Bits(1)"));
}

TEST_F(Binding, AListOfFiftyThousandFilesOpensAtOnce) {
  std::vector<std::string> names;
  for (int i = 0; i < 50'000; ++i) names.push_back("file" + std::to_string(100'000 + i) + ".txt");
  auto* const view = find<QListView>("Files");
  const std::clock_t before = std::clock();
  form.Files.List = names;
  QCoreApplication::processEvents();
  view->repaint();
  EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 2);
  EXPECT_EQ(view->model()->rowCount(), 50'000);

  view->setFocus();
  QTest::keyClicks(view, "file14");
  EXPECT_EQ(form.Files.FileName(), "file140000.txt") << "typing jumps";
  EXPECT_EQ(form.noted.back(), "file file140000.txt");
  form.noted.clear();
  QCoreApplication::processEvents();
  const QPoint row = view->visualRect(view->currentIndex()).center();
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, row);
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, row);
  EXPECT_THAT(form.noted, ElementsAre("file file140000.txt", "entered file140000.txt"));
}

}  // namespace
}  // namespace tessarine::desktop
