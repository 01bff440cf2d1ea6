// The program on a virtual evaluation board, in real time: no hardware is touched.
#include <QApplication>

#include "apps/BoardCable.h"
#include "apps/SteadyTime.h"
#include "apps/VirtualHost.h"
#include "desktop/Desktop.h"
#include "desktop/board/BoardWindow.h"
#include "platform/linux/LinuxClock.h"
#include "window/Program.h"

int main(int argc, char** argv) {
  using namespace tessarine;
  QApplication application(argc, argv);
  desktop::dress(application);
  desktop::Desktop desktop;
  VirtualHost host;
  LinuxClock clock([] { QApplication::beep(); });
  BoardCable cable(steadyMicroseconds);
  board::VirtualBoard& board = cable.board();
  Platform platform{board, board, board, host, clock, desktop};
  Program program(platform);
  cable.connect(program);
  desktop::BoardWindow boardWindow(
      {.board = board.board(), .virtualBoard = &board, .askedMHz = [&] { return cable.askedMHz(); }});
  const desktop::BoardKey boardKey(boardWindow);
  desktop.run(program.forms, program.door, [&] {
    program.start();
    boardWindow.openBeside(desktop.windowOf(program.window));
  });
  return 0;
}
