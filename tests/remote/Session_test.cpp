// Long sessions of good commands and bad ones: every query is answered once, and the error queue is exact.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <deque>
#include <random>
#include <string>

#include "remote/RemoteBench.h"

namespace tessarine::remote {
namespace {

struct Word {
  const char* text;
  bool isQuery = false;
  int error = 0;
};

constexpr std::array kWords = {
    Word{"*IDN?", true},
    Word{"*STB?", true},
    Word{"*ESR?", true},
    Word{"FREQ?", true},
    Word{"FREQ:ACT?", true},
    Word{"LOCK?", true},
    Word{"REG? 'N'", true},
    Word{"REG:CAT?", true},
    Word{"MOD:CAT?", true},
    Word{"SWE:STAT?", true},
    Word{"CONT:VAL? 'Label8'", true},
    Word{"CONT:VIS? 'Frame11'", true},
    Word{"FREQ 900.2MHZ"},
    Word{"REF 10 MHZ"},
    Word{"PRES '8/9'"},
    Word{"LOAD"},
    Word{"HOP:FREQ2 901MHZ"},
    Word{"HOP:COUN 1"},
    Word{"SWE:STEP 200 KHZ"},
    Word{"SWE:ABOR"},
    Word{"SET:BAND ''"},
    Word{"CONT:CLIC 'Gen1'"},
    Word{"HOP:INIT;*OPC?", true},
    Word{"SWE:INIT;:*WAI"},
    Word{"FREQ", false, -109},
    Word{"FREQ? 1", false, -108},
    Word{"HOP:COUN 1E5", false, -222},
    Word{"REF 1 PARSEC", false, -131},
    Word{"REG? 'Q'", false, -224},
    Word{"CONT:CLIC 'ParallelForm.OKButton'", false, -221},
    Word{"MOD 4113", false, -104},
    Word{"LAOD", false, -113},
    Word{"FREQ 9000GHZ;LOAD;FREQ 900MHZ", false, -200},
};

class Client {
 public:
  Client(RemoteBench& bench, std::mt19937& random) : bench_(bench), random_(random), wire_(bench.connect()) {}

  void sayALine() {
    std::string line;
    long queries = 0;
    for (int words = upTo(4); words >= 0; --words) {
      if (upTo(20) == 0) {
        line += ";:" + rubbish();
        expect(-113);
      } else {
        const Word& word = kWords[static_cast<std::size_t>(upTo(static_cast<int>(kWords.size()) - 1))];
        line += ";:" + std::string(word.text);
        queries += word.isQuery ? 1 : 0;
        if (word.error != 0) expect(word.error);
      }
      ++said;
    }
    const std::string reply = bench_.say(*wire_, line);
    EXPECT_EQ(std::ranges::count(reply, '\n'), queries > 0 ? 1 : 0) << line;
    EXPECT_EQ(std::ranges::count(reply, ';'), std::max(queries - 1, 0L)) << line << '\n' << reply;
    if (upTo(3) == 0) readErrors(upTo(40));
  }

  void readErrors(int most) {
    for (int i = 0; i < most; ++i) {
      const std::string error = bench_.say(*wire_, "SYST:ERR?");
      const int expected = errors_.empty() ? 0 : errors_.front();
      ASSERT_EQ(error.substr(0, error.find(',')), std::to_string(expected));
      if (errors_.empty()) return;
      errors_.pop_front();
    }
  }

  int said = 0;

 private:
  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
  void expect(int error) {
    if (errors_.size() < 30) {
      errors_.push_back(error);
    } else {
      errors_.back() = -350;
    }
  }
  std::string rubbish() {
    std::string bytes(static_cast<std::size_t>(1 + upTo(30)), '\0');
    for (char& byte : bytes) {
      do byte = static_cast<char>(upTo(255));
      while (std::string(" \t\r\n;'\"").find(byte) != std::string::npos);
    }
    return bytes;
  }

  RemoteBench& bench_;
  std::mt19937& random_;
  std::shared_ptr<Wire> wire_;
  std::deque<int> errors_;
};

TEST(Session, AnswersEachQueryOnceAndKeepsTheErrors) {
  constexpr int kCommands = 10'000;
  std::mt19937 random(20'261'123);
  RemoteBench bench;
  bench.setUp();
  Client one(bench, random);
  Client two(bench, random);
  while (one.said + two.said < kCommands && !HasFatalFailure()) {
    one.sayALine();
    two.sayALine();
  }
  one.readErrors(31);
  two.readErrors(31);
}

}  // namespace
}  // namespace tessarine::remote
