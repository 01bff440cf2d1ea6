// The program on this host's own ways out: its parallel port, or a USB module.
#include <QApplication>

#include "apps/BoardTap.h"
#include "apps/SteadyTime.h"
#include "desktop/Desktop.h"
#include "desktop/board/BoardWindow.h"
#include "platform/linux/LeaveOnSignal.h"
#include "platform/linux/LinuxPlatform.h"
#include "window/Program.h"

int main(int argc, char** argv) {
  using namespace tessarine;
  QApplication application(argc, argv);
  desktop::dress(application);
  desktop::Desktop desktop;
  LinuxPlatform host([] { QApplication::beep(); });
  // For what ends the program past the window: a crash, or a second signal while the first is not heeded.
  const LeaveOnSignal leaving(host);
  // The message of a failed write names the address alone.
  desktop.remark = [&host](const std::string& text) {
    return text.starts_with("Error with Output Port Address ") ? host.whyNotOpen() : std::string();
  };
  BoardTap tap(host.with(desktop), steadyMicroseconds);
  Platform platform = tap.platform();
  Program program(platform);
  tap.connect(program);
  desktop::BoardWindow boardWindow({.board = tap.board(),
                                    .askedMHz = [&] { return tap.askedMHz(); },
                                    .onFirstShow = [&] { tap.listen(); }});
  const desktop::BoardKey boardKey(boardWindow);
  desktop.run(program.forms, program.door, [&] { program.start(); });
  return 0;
}
