// What the plots of the board's window count on.
#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "desktop/board/FoldedTime.h"
#include "desktop/board/PlotWidget.h"
#include "desktop/board/Span.h"
#include "desktop/board/Texts.h"

namespace tessarine::desktop {
namespace {

TEST(Span, FollowsWhatThereIsOrStaysWhereItIs) {
  Span span(1);
  const auto expect = [&](double from, double to) {
    EXPECT_EQ(span.from(), from);
    EXPECT_EQ(span.to(), to);
  };
  span.setLimits(0, 100);
  span.setLimits(0, 200);
  expect(0, 200);
  span.followLast(50);
  span.setLimits(0, 300);
  expect(250, 300);
  span.zoom(0.5, 250);
  span.setLimits(0, 1000);
  expect(250, 275);
  span.move(-1000);
  expect(0, 25);
  span.setLimits(500, 510);  // a new load, shorter than the stretch
  expect(500, 510);
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

TEST(Texts, RoundStepsAndUnitsThatFitTheSize) {
  const struct {
    double length, most, step;
    const char* tick;
  } axes[] = {
      {25.2, 6, 5, "15"}, {1, 6, 0.2, "0.6"}, {0.0012, 6, 0.0002, "0.0006"}, {3e6, 10, 500'000, "1500000"}};
  for (const auto& axis : axes) {
    EXPECT_DOUBLE_EQ(niceStep(axis.length, axis.most), axis.step);
    EXPECT_EQ(tickText(3 * axis.step, axis.step).toStdString(), axis.tick);
    EXPECT_EQ(tickText(-axis.step / 1e6, axis.step).front(), QLatin1Char('0'));
  }
  const std::pair<QString, const char*> texts[] = {
      {frequencyText(0.2), "200 kHz"},
      {frequencyText(10), "10 MHz"},
      {frequencyText(0.0000125), "12.5 Hz"},
      {timeText(12), "12 µs"},
      {timeText(-3250), "-3.25 ms"},
      {timeText(2'500'000), "2.5 s"},
      {offsetText(-0.01), "0.0 Hz"},
      {offsetText(12.34), "+12.3 Hz"},
      {offsetText(-90'000), "-90 kHz"},
      {offsetText(62e6), "+62 MHz"},
      {groupedBinary(0xC8, 10), "00 1100 1000"},
  };
  for (const auto& [shown, wanted] : texts) EXPECT_EQ(shown.toStdString(), wanted);
}

}  // namespace
}  // namespace tessarine::desktop
