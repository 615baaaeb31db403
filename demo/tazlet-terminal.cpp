/// Tazlet in a text terminal.

#include "playedTazlet.h"

int main(int argc, char *argv[]) {
  gw::Game game = playedTazlet();
  game.default_place = gw::Place::terminal;
  return gw::runGame(game, argc, argv);
}
