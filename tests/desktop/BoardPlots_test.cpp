// What the plots of the board's window count on.
#include <gtest/gtest.h>

#include <cstdint>
#include <tuple>
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
  const auto shown = [&] { return std::pair(span.from(), span.to()); };
  span.setLimits(0, 100);
  span.move(5);  // nowhere to go
  span.setLimits(0, 200);
  EXPECT_EQ(shown(), std::pair(0.0, 200.0));
  span.followLast(50);
  span.setLimits(0, 300);
  EXPECT_EQ(shown(), std::pair(250.0, 300.0));
  span.zoom(0.5, 250);
  span.setLimits(0, 1000);
  EXPECT_EQ(shown(), std::pair(250.0, 275.0));
  span.move(-1000);
  EXPECT_EQ(shown(), std::pair(0.0, 25.0));
  span.setLimits(500, 510);  // a new load, shorter than the stretch
  EXPECT_EQ(shown(), std::pair(500.0, 510.0));
  span.followLast(5000);
  EXPECT_EQ(shown(), std::pair(500.0, 510.0));
  span.zoom(1e-9, 505);
  EXPECT_EQ(span.length(), 1);
  span.zoom(1e9, 505);
  EXPECT_TRUE(span.showsAll());
}

TEST(FoldedTime, FoldsWhatIsFarLongerThanABitAndComesBack) {
  const std::vector<std::int64_t> times = {1000, 1002, 1004, 1006, 2006, 2008, 2010};
  const FoldedTime folded(times, true);
  ASSERT_EQ(folded.folds().size(), 1U);
  EXPECT_EQ(folded.folds()[0].silence, 1000);
  EXPECT_LT(folded.length(), 100);
  EXPECT_DOUBLE_EQ(folded.place(1006) - folded.place(1000), 6);
  EXPECT_DOUBLE_EQ(folded.place(2010) - folded.place(2006), 4);
  for (const std::int64_t time : {990, 1000, 1005, 1506, 2007, 2010, 2015})
    EXPECT_NEAR(folded.time(folded.place(time)), static_cast<double>(time), 1e-6) << time;
  EXPECT_DOUBLE_EQ(FoldedTime(times, false).length(), 1010);
}

TEST(Texts, RoundStepsAndUnitsThatFitTheSize) {
  const std::tuple<double, double, double, const char*> axes[] = {
      {25.2, 6, 5, "15"}, {1, 6, 0.2, "0.6"}, {0.0012, 6, 0.0002, "0.0006"}, {3e6, 10, 500'000, "1500000"}};
  for (const auto& [length, most, step, tick] : axes) {
    EXPECT_DOUBLE_EQ(niceStep(length, most), step);
    EXPECT_EQ(tickText(3 * step, step).toStdString(), tick);
    EXPECT_EQ(tickText(-step / 1e6, step).front(), QLatin1Char('0'));
  }
  const QStringList texts = {frequencyText(0.001), frequencyText(10),      frequencyText(0.0000125),
                             timeText(12),         timeText(-3250),        timeText(2'500'000),
                             offsetText(-0.01),    offsetText(12.34),      offsetText(-90'000),
                             offsetText(62e6),     groupedBinary(0xC8, 10)};
  EXPECT_EQ(
      texts.join(", ").toStdString(),
      "1 kHz, 10 MHz, 12.5 Hz, 12 µs, -3.25 ms, 2.5 s, 0.0 Hz, +12.3 Hz, -90 kHz, +62 MHz, 00 1100 1000");
}

}  // namespace
}  // namespace tessarine::desktop
