// What the plots of the board's window count on.
#include <gtest/gtest.h>

#include "desktop/board/FoldedTime.h"
#include "desktop/board/PlotWidget.h"
#include "desktop/board/Span.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {
namespace {

TEST(Span, FollowsWhatThereIsOrStaysWhereItIs) {
  Span span(1);
  span.setLimits(0, 100);
  span.setLimits(0, 200);
  EXPECT_EQ(span.to(), 200);  // all of it
  span.followLast(50);
  span.setLimits(0, 300);
  EXPECT_EQ(span.from(), 250);
  span.zoom(0.5, 250);
  EXPECT_EQ(span.from(), 250);
  EXPECT_EQ(span.to(), 275);
  span.setLimits(0, 1000);
  EXPECT_EQ(span.to(), 275);
  span.move(-1000);
  EXPECT_EQ(span.from(), 0);
  EXPECT_EQ(span.length(), 25);
  span.setLimits(500, 510);  // a new load, shorter than the stretch
  EXPECT_EQ(span.from(), 500);
  EXPECT_EQ(span.to(), 510);
  span.zoom(1e-9, 505);
  EXPECT_EQ(span.length(), 1);
  span.zoom(1e9, 505);
  EXPECT_TRUE(span.showsAll());
}

TEST(FoldedTime, FoldsWhatIsFarLongerThanABitAndComesBack) {
  const std::vector<std::int64_t> times = {1000, 1002, 1004, 1006, 11006, 11008, 11010};
  const FoldedTime folded(times, true);
  ASSERT_EQ(folded.folds().size(), 1U);
  EXPECT_EQ(folded.folds()[0].silence, 10'000);
  EXPECT_LT(folded.length(), 100);
  EXPECT_DOUBLE_EQ(folded.place(1006) - folded.place(1000), 6);
  EXPECT_DOUBLE_EQ(folded.place(11010) - folded.place(11006), 4);
  for (const std::int64_t time : {990, 1000, 1005, 6006, 11007, 11010, 11015})
    EXPECT_NEAR(folded.time(folded.place(time)), static_cast<double>(time), 1e-6) << time;
  EXPECT_DOUBLE_EQ(FoldedTime(times, false).length(), 10'010);
}

TEST(Axis, StepsAreRoundAndTheirLabelsDiffer) {
  struct Case {
    double length, most, step;
    int decimals;
  };
  for (const Case& one :
       {Case{25.2, 6, 5, 0}, {1, 6, 0.2, 1}, {0.0012, 6, 0.0002, 4}, {3e6, 10, 500'000, 0}}) {
    EXPECT_DOUBLE_EQ(niceStep(one.length, one.most), one.step);
    EXPECT_EQ(decimalsFor(one.step), one.decimals) << one.step;
  }
}

TEST(Texts, TakeTheUnitOfTheirSize) {
  EXPECT_EQ(frequencyText(0.2).toStdString(), "200 kHz");
  EXPECT_EQ(frequencyText(10).toStdString(), "10 MHz");
  EXPECT_EQ(frequencyText(0.0000125).toStdString(), "12.5 Hz");
  EXPECT_EQ(timeText(12).toStdString(), "12 µs");
  EXPECT_EQ(timeText(-3250).toStdString(), "-3.25 ms");
  EXPECT_EQ(timeText(2'500'000).toStdString(), "2.5 s");
  EXPECT_EQ(offsetText(-0.01).toStdString(), "0.0 Hz");
  EXPECT_EQ(offsetText(12.34).toStdString(), "+12.3 Hz");
  EXPECT_EQ(groupedBinary(0xC8, 10).toStdString(), "00 1100 1000");
}

}  // namespace
}  // namespace tessarine::desktop
