// The load: settles two control bits, calculates, and sends the words in the order that the chip needs.
#include <utility>
#include <vector>

#include "engine/ChipType.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "platform/Fault.h"
#include "transport/PortAccess.h"

namespace tessarine {
namespace {

constexpr Integer kFirstSlowModulus = 30;  // the LMX2306 gets its gain bit for moduli below

}  // namespace

// Words that were turned into shifting order. They are turned back unless a calculation has replaced them, be
// it one of a load that ran inside the waits of this one.
class PLL::TurnedWords {
 public:
  TurnedWords() = default;
  TurnedWords(const TurnedWords&) = delete;
  TurnedWords& operator=(const TurnedWords&) = delete;
  ~TurnedWords() {
    for (const auto& [word, turned] : words_) {
      if (*word == turned) UpsideSTR(*word);
    }
  }

  void turn(String& word) {
    UpsideSTR(word);
    words_.emplace_back(&word, word);
  }
  void replaced() { words_.clear(); }

 private:
  std::vector<std::pair<String*, String>> words_;
};

void PLL::SetPLL(bool CheckCurrentRegValue) {
  const ChipType* type = chip();
  if (type && type->family->load) {
    type->family->load(*this);
    return;
  }
  const bool sentFirst = type && type->family->sentBeforeCalculated;
  TurnedWords turned;
  if (sentFirst) {
    sendSKYWords(turned);
  } else {
    setControlBits(type);
  }
  try {
    const bool calculated = CalcRegisters();
    // By the model chosen now: the message of a missing prescaler may have let the operator pick another one.
    type = chip();
    // A word that a refused calculation has left alone must go out right the next time.
    if (calculated && type && type->family->sentBeforeCalculated) turned.replaced();
  } catch (const Fault&) {
    // The last of the words that are out already has left load enable high.
    if (sentFirst) PortWrite(module_, module_.PortAddress, 0);
    throw;
  }
  if (type && type->family->send) type->family->send(*this, CheckCurrentRegValue);
  PortWrite(module_, module_.PortAddress, 0);
  if (DelayAfterLock > 0) DelayMs(module_, toInteger(DelayAfterLock * 1000.0, "Delay after lock"));
}

// A hop asks for the same one again and again.
const ChipType* PLL::chip() {
  if (!chip_ || chip_->name != module_.CurrentModel) chip_ = ChipType::named(module_.CurrentModel);
  return chip_;
}

void PLL::setControlBits(const ChipType* type) {
  if (type && type->gainFromPanel) {
    LDPrecision = "0";  // and GoBit stays what the panel made it
    return;
  }
  GoBit = PreScalar < kFirstSlowModulus ? "1" : "0";
  LDPrecision = "1";
}

// The words of the load before: this chip is one load behind what is calculated.
void PLL::sendSKYWords(TurnedWords& turned) {
  struct Step {
    String PLL::*word;
    void (*load)(PLL&);
  };
  static constexpr Step steps[] = {
      {&PLL::R0, [](PLL& pll) { pll.LoadR0(); }},  {&PLL::r1, [](PLL& pll) { pll.LoadR1(); }},
      {&PLL::R2, [](PLL& pll) { pll.LoadR2(); }},  {&PLL::R3, [](PLL& pll) { pll.LoadR3(); }},
      {&PLL::R4, [](PLL& pll) { pll.LoadR4(1); }}, {&PLL::R5, [](PLL& pll) { pll.LoadR5(); }},
      {&PLL::R6, [](PLL& pll) { pll.LoadR6(); }},  {&PLL::R7, [](PLL& pll) { pll.LoadR7(); }},
      {&PLL::R8, [](PLL& pll) { pll.LoadR8(); }},  {&PLL::R9, [](PLL& pll) { pll.LoadR9(); }},
  };
  for (const Step& step : steps) {
    turned.turn(this->*step.word);
    step.load(*this);
  }
}

void PLL::sendThreeWords() {
  LoadFstr();
  LoadRstr();
  LoadNstr();
}

void PLL::loadADF4193(bool onlyChanged) {
  struct Step {
    String PLL::*word;
    String PLL::*copy;
    void (*load)(PLL&);
    bool skippedWhenEmpty;
  };
  static constexpr Step steps[] = {
      {&PLL::r1, &PLL::Prev_r1, [](PLL& pll) { pll.LoadR1(); }, false},
      {&PLL::R2, &PLL::Prev_R2, [](PLL& pll) { pll.LoadR2(); }, false},
      {&PLL::R0, &PLL::Prev_R0, [](PLL& pll) { pll.LoadR0(); }, false},
      {&PLL::R3, &PLL::Prev_R3, [](PLL& pll) { pll.LoadR3(); }, false},
      {&PLL::R4, &PLL::Current_R4, [](PLL& pll) { pll.LoadR4(1); }, false},
      {&PLL::R4_2, &PLL::Current_R4_2, [](PLL& pll) { pll.LoadR4(2); }, true},
      {&PLL::R4_3, &PLL::Current_R4_3, [](PLL& pll) { pll.LoadR4(3); }, true},
      {&PLL::R5, &PLL::Current_R5, [](PLL& pll) { pll.LoadR5(); }, false},
      {&PLL::R6, &PLL::Current_R6, [](PLL& pll) { pll.LoadR6(); }, false},
  };
  if (!onlyChanged) PowerUpInit();
  for (const Step& step : steps) {
    const String& word = this->*step.word;
    const bool wanted = !onlyChanged || word != this->*step.copy;
    if (wanted && !(step.skippedWhenEmpty && word.empty())) step.load(*this);
  }
  for (const Step& step : steps) this->*step.copy = this->*step.word;
}

}  // namespace tessarine
