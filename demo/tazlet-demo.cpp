/// Plays tazlet by itself: for soak runs, measurements and pictures, and to record
/// a game and play it again.

#include "playedTazlet.h"

int main(int argc, char *argv[]) {
  gw::Game game = playedTazlet();
  game.default_player = "skilled";
  return gw::runGame(game, argc, argv);
}
