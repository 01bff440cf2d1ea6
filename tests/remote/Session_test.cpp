// Two clients with good commands and bad ones: every query is answered once, and the error queue is exact.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <utility>

#include "remote/RemoteBench.h"
#include "support/Sum.h"

namespace tessarine::remote {
namespace {

constexpr const char* kQueries[] = {
    "*IDN?",    "*STB?",    "*ESR?",    "FREQ?",     "FREQ:ACT?",          "LOCK?",
    "REG? 'N'", "REG:CAT?", "MOD:CAT?", "SWE:STAT?", "CONT:VAL? 'Label8'", "HOP:INIT;*OPC?"};
constexpr const char* kActions[] = {"FREQ 900.2MHZ",    "REF 10 MHZ",       "PRES '8/9'",       "LOAD",
                                    "HOP:FREQ2 901MHZ", "HOP:COUN 1",       "SWE:STEP 200 KHZ", "SWE:ABOR",
                                    "SET:BAND ''",      "CONT:CLIC 'Gen1'", "SWE:INIT;:*WAI"};
constexpr std::pair<const char*, int> kRefused[] = {
    {"FREQ", -109},         {"FREQ? 1", -108},  {"HOP:COUN 1E5", -222},
    {"REF 1 PARSEC", -131}, {"REG? 'Q'", -224}, {"CONT:CLIC 'ParallelForm.OKButton'", -221},
    {"MOD 4113", -104},     {"LAOD", -113},     {"FREQ 9000GHZ;LOAD;FREQ 900MHZ", -200}};

TEST(Session, AnswersEachQueryOnceAndKeepsTheErrors) {
  std::mt19937 random(20'261'123);
  std::string replies;
  TunedBench bench;
  struct {
    std::shared_ptr<Wire> wire;
    std::deque<int> errors;
  } clients[] = {{bench.connect(), {}}, {bench.connect(), {}}};
  for (int i = 0; i < 3000 && !HasFailure(); ++i) {
    auto& [wire, errors] = clients[i % 2];
    std::string line;
    std::ptrdiff_t queries = 0;
    for (auto commands = random() % 6; commands > 0; --commands) {
      const auto [refused, error] = kRefused[random() % std::size(kRefused)];
      const char* const words[] = {kQueries[random() % std::size(kQueries)],
                                   kActions[random() % std::size(kActions)], refused};
      const auto kind = random() % 3;
      line += ";:" + std::string(words[kind]);
      if (kind == 0) ++queries;
      if (kind == 2) errors.push_back(error);
    }
    if (errors.size() > 30) {
      errors.resize(30);
      errors.back() = -350;
    }
    const std::string reply = bench.say(*wire, line);
    replies += line + '\n' + reply;
    EXPECT_EQ(std::ranges::count(reply, '\n'), queries > 0 ? 1 : 0) << line;
    EXPECT_EQ(std::ranges::count(reply, ';'), std::max<std::ptrdiff_t>(queries - 1, 0)) << line << reply;
    for (auto asked = random() % 4 == 0 ? random() % 40 : 0; asked > 0; --asked) {
      const std::string expected = std::to_string(errors.empty() ? 0 : errors.front()) + ',';
      EXPECT_TRUE(bench.say(*wire, "SYST:ERR?").starts_with(expected)) << expected;
      if (!errors.empty()) errors.pop_front();
    }
  }
  expectSum("replies", replies, 3278846527);
}

}  // namespace
}  // namespace tessarine::remote
