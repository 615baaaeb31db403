/// Tazlet for Windows: the game, and after the word `demo` what tazlet-demo is elsewhere.

#include "playedTazlet.h"
#include "tazlet.h"

#include <cstring>

#include <windows.h>

int main(int argc, char *argv[]) {
  if (argc < 2 || std::strcmp(argv[1], "demo") != 0)
    return playTazlet();
  AttachConsole(ATTACH_PARENT_PROCESS); // for its Ctrl-C, and to write to it
  return playDemo(argc - 1, argv + 1);
}
