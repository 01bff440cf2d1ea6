#include <cstddef>
#include <stdexcept>
#include <string>

#include "forms/Build.h"
#include "forms/Operator.h"
#include "support/ProgramBench.h"

namespace tessarine {
namespace {

using namespace forms;

struct Sample : Form {
  explicit Sample(FormList& list) : Form(list, "Sample", "A sample") {}
  void note(int index) { seen += std::to_string(index) + " "; }
  std::string seen;

  One<Frame> Left{*this, "Left", "left", {}};
  One<Frame> Right{*this, "Right", "right", {}, hidden};
  Array<Label> Bits{"Bits", Left, "101", 2, -1, at(10, 20, 30, 40), 50, bit, change(this, &Sample::note)};
  Array<OptionButton> Choice{"Choice",
                             {
                                 {0, Left, "a", {}, {selected}},
                                 {3, Left, "b", {}},
                                 {1, Right, "other group", {}, {selected}},
                             },
                             click(this, &Sample::note)};
  One<CommandButton> Off{Left, "Off", "off", {}, disabled};
  One<DropList> List{Left, "List", "", {}, items({"x", "y"}), click(this, &Sample::count)};
  One<ComboBox> Combo{Left, "Combo", "", {}, click(this, &Sample::count), change(this, &Sample::count)};
  void count() { seen += "! "; }
};

struct FormsTest : testing::Test, Observer {
  FormsTest() {
    list.observe(*this);
    sample.Show();
    told = 0;
  }
  void changed(Control& /*control*/, Aspect /*aspect*/) override { ++told; }
  FakePlatform host;
  FormList list;
  Sample sample{list};
  Operator door{list, host.screen};
  int told = 0;
};

TEST_F(FormsTest, ListsRaiseClickAndEditableOnesChange) {
  EXPECT_FALSE(door.pick(sample.List, 1));
  EXPECT_FALSE(door.pick(sample.List, 1));
  EXPECT_EQ(sample.seen, "! ");
  sample.Combo.rebuild({"4/5", "8/9"});
  EXPECT_EQ(sample.seen, "! ") << "an empty text stays empty";
  EXPECT_FALSE(door.type(sample.Combo, "8/9"));
  EXPECT_EQ(sample.Combo.ListIndex.get(), 1);
  EXPECT_FALSE(door.pick(sample.Combo, 0));
  EXPECT_EQ(sample.Combo.Text.get(), "4/5");
  EXPECT_EQ(sample.seen, "! ! ! ") << "one event each";
}

TEST_F(FormsTest, TheDoorRefusesWhatTheOperatorCannotReach) {
  EXPECT_EQ(door.click(sample.Choice(1)).value_or(""), "Choice(1) is not visible");
  EXPECT_EQ(door.click(sample.Off).value_or(""), "Off is disabled");
  EXPECT_EQ(door.set(sample.List, "z").value_or(""), "List has no item \"z\"");
  sample.Left.Enabled = false;
  EXPECT_EQ(door.click(sample.Bits(0)).value_or(""), "Bits(0) is disabled");
}

TEST_F(FormsTest, ActionsThatWaitForOneAnotherAreBoundedAndToldOfOnceEach) {
  sample.Bits(0).Click = [&] { (void)door.click(sample.Bits(0)); };
  for (std::size_t actions = 1; actions <= 2; ++actions) {
    (void)door.click(sample.Bits(0));
    EXPECT_EQ(host.screen.messages.size(), actions);
  }
}

}  // namespace
}  // namespace tessarine
