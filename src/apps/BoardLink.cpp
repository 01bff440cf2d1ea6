#include "apps/BoardLink.h"

#include <utility>

#include "apps/VirtualHost.h"
#include "board/WireTap.h"
#include "platform/linux/GpioPlatform.h"
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
        board_(socket_.surroundings(time.microseconds), [this] { return socket_.wiring(); }),
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
template <class Host>
class HostLink : public BoardLink {
 public:
  // `make` makes the host from the bell and from what tells how the board is wired.
  template <class Make>
  HostLink(Screen& screen, const TimeOfProgram& time, Make make)
      : host_(make(bellOf(time), [this] { return socket_.wiring(); })),
        leaving_(host_),
        board_(socket_.surroundings(time.microseconds)),
        real_(host_.with(screen)),
        tap_(real_.driver, real_.library, real_.usb, [this] { return socket_.wiring(); }),
        platform_{tap_, tap_, tap_, real_.host, real_.clock, screen} {}

  Platform& platform() override { return platform_; }
  board::EvaluationBoard& board() override { return board_; }
  void listen() override { tap_.listen(&board_); }
  void onNotice(std::function<void(const std::string&)> tell) override { host_.notice = std::move(tell); }
  std::string whyNotOpen() const override { return host_.whyNotOpen(); }

 private:
  Host host_;
  // For what ends the program past its own doing: a signal, or a crash.
  LeaveOnSignal leaving_;
  board::EvaluationBoard board_;
  Platform real_;
  board::WireTap tap_;
  Platform platform_;
};

}  // namespace

std::unique_ptr<BoardLink> linkToBoard(const Options& options, Screen& screen, const TimeOfProgram& time) {
  switch (options.board) {
    case BoardKind::virtualBoard:
      return std::make_unique<VirtualLink>(screen, time);
    case BoardKind::gpio:
      return std::make_unique<HostLink<GpioPlatform>>(screen, time, [&](auto bell, auto wiring) {
        return GpioPlatform(
            options.lines, [wiring] { return wiring().loadEnable; }, std::move(bell));
      });
    case BoardKind::hardware:
      break;
  }
  return std::make_unique<HostLink<LinuxPlatform>>(
      screen, time, [](auto bell, auto /*wiring*/) { return LinuxPlatform(std::move(bell)); });
}

}  // namespace tessarine
