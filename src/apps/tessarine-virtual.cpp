// The program on a virtual evaluation board, in real time: no hardware is touched.
#include "apps/WindowMain.h"

int main(int count, char** words) {
  using namespace tessarine;
  return windowMain({.name = "tessarine-virtual",
                     .board = BoardKind::virtualBoard,
                     .hasWindow = true,
                     .does = "Sets a virtual PLL synthesizer board, with the board's own window beside it."},
                    count, words);
}
