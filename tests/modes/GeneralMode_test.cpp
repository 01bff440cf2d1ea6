#include <string>

#include "support/ProgramBench.h"

namespace tessarine {
namespace {

const Words kSet = "038092/24 C8/24 23211/24"_w;  // F, R, N for 900 MHz

struct TunedBench : ProgramBench {
  explicit TunedBench(int wayOut = 0) : ProgramBench("ADF4113", wayOut) {
    tune();
    forget();
  }
};

TEST(GeneralMode, TunesTheWorkedExamplesToTheBit) {
  const struct {
    const char *model, *vco, *prescaler;
    int milliseconds;  // two waits of 10 ms a word
    Words words;       // M where there is one, F, R, N
  } rows[] = {{"ADF4113", "900", "8/9", 60, kSet},
              {"ADF4153", "1000.2", "4/5", 80, "3C2/16 383/11 1040C9/24 190004/24"_w},
              {"ADF4252", "200.2", "4/5", 80, "603/11 682/16 8191/21 A0008/24"_w}};
  for (const auto& row : rows) {
    for (const char* const command : {"AllCommand", "CalculateCommand"}) {
      SCOPED_TRACE(std::string(row.model) + ' ' + command);
      ProgramBench bench(row.model);
      bench.tune(row.vco, row.prescaler);
      bench.forget();
      bench.click(command);
      EXPECT_EQ(bench.latches(), row.words);
      Words shown;
      for (const char* const word : {"Mregister", "Fregister", "Rregister", "Nregister"})
        if (!bench.value(word).empty()) shown.push_back(bench.value(word));
      EXPECT_EQ(shown, row.words);
      EXPECT_EQ(bench.host.port.bytes().back(), 0) << "all lines low at the end";
      EXPECT_EQ(bench.milliseconds(), row.milliseconds);
      EXPECT_TRUE(bench.messages().empty());
    }
  }
}

TEST(GeneralMode, StartsWithinStartsEndWithOneMessage) {
  TunedBench bench;
  for (int i = 1; i <= 20'000; ++i) bench.clickAt(1, "AllCommand");
  bench.click("AllCommand");
  EXPECT_EQ(bench.messages(), Texts{"More than 100 actions wait for one another: what is begun now is left "
                                    "out until they end"});
  EXPECT_GE(bench.latches().size(), 300U) << "the others are carried out";
  bench.forget();
  bench.click("AllCommand");
  EXPECT_EQ(bench.latches(), kSet);
}

}  // namespace
}  // namespace tessarine
