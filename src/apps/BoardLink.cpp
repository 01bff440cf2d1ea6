#include "apps/BoardLink.h"

#include <utility>

#include "apps/VirtualHost.h"
#include "board/WireTap.h"
#include "platform/linux/LeaveOnSignal.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxPlatform.h"

namespace tessarine {
namespace {

LinuxClock::Bell bellOf(const TimeOfProgram& time) {
  return time.bell ? LinuxClock::Bell(time.bell) : LinuxClock::terminalBell;
}

// The board of this link is the one that is driven: no hardware is touched.
class VirtualLink : public BoardLink {
 public:
  VirtualLink(Screen& screen, const TimeOfProgram& time)
      : clock_(bellOf(time)),
        board_(socket_.bench(time.microseconds), [this] { return socket_.wiring(); }),
        platform_{board_, board_, board_, host_, time.clock != nullptr ? *time.clock : clock_, screen} {}

  Platform& platform() override { return platform_; }
  board::EvaluationBoard& board() override { return board_.board(); }
  board::VirtualBoard* virtualBoard() override { return &board_; }

 private:
  VirtualHost host_;
  LinuxClock clock_;
  board::VirtualBoard board_;
  Platform platform_;
};

// The ways out of this computer, with a board that sees what goes out on them.
class HostLink : public BoardLink {
 public:
  HostLink(Screen& screen, const TimeOfProgram& time)
      : host_(bellOf(time)),
        leaving_(host_),
        board_(socket_.bench(time.microseconds)),
        tap_(host_.driver, host_.library, host_.usb, [this] { return socket_.wiring(); }),
        platform_{tap_, tap_, tap_, host_.host, host_.clock, screen} {}

  Platform& platform() override { return platform_; }
  board::EvaluationBoard& board() override { return board_; }
  void listen() override { tap_.listen(&board_); }
  void onNotice(std::function<void(const std::string&)> tell) override { host_.notice = std::move(tell); }
  std::string whyNotOpen() const override { return host_.whyNotOpen(); }

 private:
  LinuxPlatform host_;
  // For what ends the program past its own doing: a signal, or a crash.
  LeaveOnSignal leaving_;
  board::EvaluationBoard board_;
  board::WireTap tap_;
  Platform platform_;
};

}  // namespace

std::unique_ptr<BoardLink> linkToBoard(const Options& options, Screen& screen, const TimeOfProgram& time) {
  switch (options.board) {
    case BoardKind::virtualBoard:
      return std::make_unique<VirtualLink>(screen, time);
    case BoardKind::hardware:
    case BoardKind::gpio:  // no program starts with it yet
      break;
  }
  return std::make_unique<HostLink>(screen, time);
}

}  // namespace tessarine
