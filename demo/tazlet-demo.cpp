/// Plays tazlet by itself: for soak runs, measurements and pictures, and to record
/// a game and play it again.

#include "playedTazlet.h"

int main(int argc, char *argv[]) {
  return playDemo(argc, argv);
}
