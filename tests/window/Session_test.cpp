// Sessions of an operator who does anything, on the virtual board: what shows, what is told and what the
// board makes of it, as on the day when every word agreed with an independent model.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "apps/ReachReader.h"
#include "board/Describe.h"
#include "board/Reach.h"
#include "board/VirtualBoard.h"
#include "engine/PLL.h"
#include "script/Recorder.h"
#include "support/AnyHand.h"
#include "support/FakePlatform.h"
#include "support/Hand.h"
#include "support/Sum.h"
#include "window/Program.h"

namespace tessarine {
namespace {

struct Session : Hand {
  Session(const std::string& model, unsigned seed) : Hand(program), random(seed) {
    host.host.version.reset();
    host.screen.whileModal = [this](forms::Form&) {
      (void)program.door.pick(program.window.browseForm.Dir1, 0);
      for (const char* const name : {"whole", "../band/whole"})
        (void)program.door.set(program.window.browseForm.Text2, name);
      (void)program.door.click(program.window.browseForm.Command1);
    };
    board.onFault = [this](std::string_view name) { recorder.boardFault(name); };
    board.board().collectLatches();
    program.start();
    open(random() % 4 == 0);
    pick(model);
    board.board().plug(model);
  }
  void retune(const char* prescaler) {
    for (const auto& [name, value] :
         {std::pair("RefText", "40"), {"CompText", "200"}, {"PrescalarText", prescaler}, {"VCOText", "1800"}})
      (void)program.door.set(control(name), value);
  }
  void stop() {
    for (const char* const name : {"StopHop", "StopSweepCommand(1)"}) (void)program.door.click(control(name));
  }

  // Does anything, and writes what is there then and was not before.
  void act() {
    const auto faults = board::boardFaults();
    const board::BoardFault fault = faults[random() % 16 == 0 ? random() % faults.size() : 0].fault;
    if (fault != board.fault()) board.setFault(fault);
    const std::string done = actAtRandom(program, random, true);
    if (done.empty()) return;
    const PLL& pll = program.module.ThePLL();
    std::set<std::string> now{"files " + pll.SetupFileName + ' ' + pll.SetupFile_ADF4113 + ' ' +
                              pll.SetupFile_SKY72300};
    std::istringstream told(describeBoard(board.board()) +
                            (random() % 4 == 0 ? describeReach(reach.reach(program)) : ""));
    for (std::string line; std::getline(told, line);) now.insert(line);
    for (const forms::Form* const form : program.forms.all()) {
      if (form == &program.window.browseForm) continue;  // shows what is on this disk
      now.insert(form->name() + (form->Visible ? " is shown" : ""));
      for (const forms::Control* const c : form->controls()) {
        std::string line = form->name() + '.' + c->name() + (c->isVisible() ? " v" : " -") +
                           (c->Enabled ? "e " : "- ") + c->value();
        if (const auto* const menu = dynamic_cast<const forms::Menu*>(c))
          line += menu->Checked ? " checked" : "";
        if (const auto* const label = dynamic_cast<const forms::Label*>(c))
          if (label->BackColor.get()) line += ' ' + std::to_string(*label->BackColor.get());
        if (c->kind() == forms::Kind::CheckBox) line += ' ' + c->captionProperty()->get();
        if (c->kind() == forms::Kind::Frame) line += ' ' + std::to_string(c->Place.get().Height);
        if (const auto* const list = dynamic_cast<const forms::ListControl*>(c))
          for (const std::string& item : list->List.get()) line += '|' + item;
        now.insert(std::move(line));
      }
    }
    for (const Message& message : std::exchange(host.screen.messages, {})) write("! " + message.text);
    for (const std::string& latch : board.board().takeLatches()) write(latch);
    write("> " + done + " at " + std::to_string(host.clock.elapsed));
    for (const std::string& line : now)
      if (!seen.contains(line)) write(line);
    seen = std::move(now);
  }
  void write(const std::string& line) { log += anywhere(line) + '\n'; }

  FakePlatform host;
  board::VirtualBoard board{{[this] { return host.clock.elapsed; }, [] { return 40.0; }},
                            [] { return board::Cable{}; }};
  Platform platform{board, board, board, host.host, host.clock, host.screen};
  Program program{platform};
  script::WaitedTime waited{[this] { return host.clock.elapsed; }, true};
  script::Recorder recorder{program.forms, program.door, waited};
  ReachReader reach;
  std::mt19937 random;
  std::set<std::string> seen;
  std::string log;
};

TEST(Sessions, GoAsTheyDid) {
  const std::pair<const char*, std::uint32_t> kSums[] = {
      {"ADF4106", 3962376550}, {"ADF4110", 3658246135}, {"ADF4111", 622495},         {"ADF4112", 2492854081},
      {"ADF4113", 4012043982}, {"ADF4118", 3580368015}, {"ADF4153", 1314172371},     {"ADF4156", 477425960},
      {"ADF4193", 4106175198}, {"ADF4251", 2060750734}, {"ADF4252", 3520082588},     {"LMX2306", 3460572533},
      {"LMX2316", 321989186},  {"LMX2326", 2795017993}, {"SKY72300-362", 2027188776}};
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(TESSARINE_SOURCE_DIR "/tests/fuzz/corpus/frac");
  for (const auto& [model, sum] : kSums) {
    std::string log;
    for (unsigned seed = 0; seed < 8; ++seed) {
      Session session(model, seed);
      for (int i = 0; i < 120; ++i) {
        if (i % 30 == 0) session.retune(i == 30 ? "8/9" : "32/33");
        if (i % 3 == 0) session.host.screen.at(30, [&] { session.act(); });
        session.host.screen.at(2000, [&] { session.stop(); });
        session.act();
      }
      session.write(session.recorder.text().substr(script::headLine().size()));  // but the day
      log += session.log;
    }
    expectSum(model, log, sum);
  }
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace tessarine
