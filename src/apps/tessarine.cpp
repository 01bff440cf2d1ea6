// The program on this host's own ways out: its parallel port, or a USB module.
#include "apps/WindowMain.h"

int main(int count, char** words) {
  using namespace tessarine;
  return windowMain({.name = "tessarine",
                     .board = BoardKind::hardware,
                     .hasWindow = true,
                     .does = "Sets PLL synthesizer boards from the bench, over the port or a USB module."},
                    count, words);
}
