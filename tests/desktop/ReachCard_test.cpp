#include "desktop/board/ReachCard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <cstdint>
#include <string>

#include "board/ChipMap.h"
#include "board/Reach.h"
#include "board/VirtualBoard.h"
#include "desktop/board/BoardWindow.h"

namespace tessarine::desktop {
namespace {

struct ReachDesk {
  ReachDesk() {
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
  }
  // As the operator types it.
  void type(const char* chip, double vcoMHz, double stepKHz) {
    model = board::findChipModel(chip);
    fields.referenceMHz = 10, fields.prescaler = 32;
    fields.vcoMHz = vcoMHz, fields.stepKHz = stepKHz;
    ++version;
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isUpToDate(); }));
  }
  template <class Widget>
  Widget& find(const char* name) {
    return *window.findChild<Widget*>(QString::fromLatin1(name));
  }
  // What the operator sees of a label or a button; empty where there is none.
  template <class Widget = QLabel>
  std::string shown(const char* name) {
    const auto& widget = find<Widget>(name);
    return widget.isVisible() ? widget.text().toStdString() : std::string();
  }

  const board::ChipModel* model = board::findChipModel("ADF4113");
  board::ReachFields fields;
  std::uint64_t version = 0;
  board::VirtualBoard port{{[] { return 0; }, [] { return 10.0; }}, [] { return board::Cable{}; }};
  BoardWindow window{{.board = port.board(),
                      .reach = [this] { return board::reachOf(*model, fields); },
                      .fieldsVersion = [this] { return version; }}};
};

TEST(ReachCard, FollowsTheFieldsAndCopiesWhatIsClicked) {
  ReachDesk desk;
  desk.type("ADF4113", 900.07, 200);
  EXPECT_EQ(desk.shown("reachState"), "Not met");
  EXPECT_EQ(desk.shown("reachOutput"), "900.000000 MHz");
  EXPECT_EQ(desk.shown("reachOffset"), "-70000.0 Hz\n-77.772 ppm");
  EXPECT_EQ(desk.shown("reachWhy"), "900.07 MHz is no multiple of the step of 200 kHz");
  EXPECT_EQ(desk.shown<QPushButton>("reachBelow"), "900 MHz");
  EXPECT_EQ(desk.shown<QPushButton>("reachStep"), "10 kHz");

  QTest::mouseClick(&desk.find<QPushButton>("reachAbove"), Qt::LeftButton);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "900.2");
  EXPECT_NE(desk.shown("reachCopied").find("900.2"), std::string::npos);

  desk.type("ADF4113", 900.07, 10);
  EXPECT_EQ(desk.shown("reachState"), "Met");
  for (const char* gone : {"reachOffset", "reachWhy"}) EXPECT_EQ(desk.shown(gone), "");
  EXPECT_EQ(desk.shown<QPushButton>("reachAbove"), "");

  desk.type("ADF4113", 900.07, 0);
  EXPECT_EQ(desk.shown("reachRefusal"), "Step Resolution = 0 kHz cannot divide 900.07 MHz and 10 MHz");
  EXPECT_EQ(desk.shown<QPushButton>("reachStep"), "");
  EXPECT_EQ(desk.shown("reachOutput"), "");
}

TEST(ReachCard, CutsNoTextAtTheLeastSizeOfTheWindow) {
  ReachDesk desk;
  desk.type("ADF4113", 3200.0123456, 30);
  desk.window.resize(1, 1);
  desk.type("ADF4113", 4200.0123456, 30);
  QTest::qWait(1);
  EXPECT_LT(desk.window.width(), desk.window.fontMetrics().averageCharWidth() * 90);
  for (QLabel* const label : desk.window.findChildren<QLabel*>()) {
    if (!label->isVisible()) continue;
    const int least = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
    EXPECT_GE(label->height(), least) << label->text().toStdString();
    EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->text().toStdString();
  }
  for (const char* name : {"reachBelow", "reachAbove"}) {
    const auto& button = desk.find<QPushButton>(name);
    EXPECT_TRUE(button.isVisible());
    EXPECT_EQ(button.size().expandedTo(button.sizeHint()), button.size()) << name;
  }
}

}  // namespace
}  // namespace tessarine::desktop
