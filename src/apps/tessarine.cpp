// The program on this host's own ways out: its parallel port, a USB module or GPIO lines.
#include "apps/WindowMain.h"

int main(int count, char** words) {
  using namespace tessarine;
  return windowMain({.name = "tessarine",
                     .board = BoardKind::hardware,
                     .hasWindow = true,
                     .does = "Sets PLL synthesizer boards over the port, a USB module or GPIO lines."},
                    count, words);
}
