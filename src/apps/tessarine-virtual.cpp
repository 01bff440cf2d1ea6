// The program on a virtual evaluation board, in real time: no hardware is touched.
#include <QApplication>
#include <chrono>

#include "apps/BoardCable.h"
#include "apps/VirtualHost.h"
#include "desktop/Desktop.h"
#include "platform/linux/LinuxClock.h"
#include "window/Program.h"

namespace {

std::int64_t microseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

}  // namespace

int main(int argc, char** argv) {
  using namespace tessarine;
  QApplication application(argc, argv);
  desktop::dress(application);
  desktop::Desktop desktop;
  VirtualHost host;
  LinuxClock clock([] { QApplication::beep(); });
  BoardCable cable(microseconds);
  board::VirtualBoard& board = cable.board();
  Platform platform{board, board, board, host, clock, desktop};
  Program program(platform);
  cable.connect(program);
  desktop.run(program.forms, program.door, [&] { program.start(); });
  return 0;
}
