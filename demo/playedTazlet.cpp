#include "playedTazlet.h"

#include "AutoPlayer.h"
#include "GameManager.h"
#include "GameOver.h"
#include "GameStart.h"
#include "Insect.h"
#include "PinBoard.h"
#include "Score.h"
#include "Sequence.h"
#include "Slower.h"
#include "SoldTag.h"
#include "Spawner.h"
#include "Version.h"
#include "Witness.h"
#include "gameUtility.h"
#include "tazlet.h"

#include <cstdio>

namespace {

/// What an object has beyond every object's fields.
void addOwnFields(gw::Hash &hash, const gw::Object &object) {
  if (const auto *p_insect = dynamic_cast<const Insect *>(&object)) {
    hash.add(p_insect->getColor());
    hash.add(p_insect->isPinnable());
    hash.add(p_insect->getPinned());
  } else if (const auto *p_spawner = dynamic_cast<const Spawner *>(&object)) {
    hash.add(p_spawner->getSpawnFrequency());
    hash.add(p_spawner->getSpawnCountdown());
    hash.add(p_spawner->getSlowMultiplier());
  } else if (const auto *p_slower = dynamic_cast<const Slower *>(&object)) {
    hash.add(p_slower->getSlowCountdown());
  } else if (const auto *p_board = dynamic_cast<const PinBoard *>(&object)) {
    hash.add(p_board->getPinnedBugs());
  } else if (const auto *p_sequence = dynamic_cast<const Sequence *>(&object)) {
    hash.add(p_sequence->getSequence());
    hash.add(p_sequence->getCurrentIndex());
  } else if (const auto *p_score = dynamic_cast<const Score *>(&object)) {
    hash.add(p_score->getScore());
  } else if (const auto *p_menu = dynamic_cast<const GameStart *>(&object)) {
    hash.add(p_menu->getMenuActive());
  } else if (const auto *p_tag = dynamic_cast<const SoldTag *>(&object)) {
    hash.add(p_tag->getTimeToLive());
  } else if (const auto *p_end = dynamic_cast<const GameOver *>(&object)) {
    hash.add(p_end->getTimeToLive());
  }
}

void printAchievements() {
  const auto *p_witness = findFirst<Witness>();
  if (!p_witness)
    return;
  const Achievements &reached = p_witness->getAchievements();
  std::printf("steps %d\n", gw::GameManager::getInstance().getStepCount());
  std::printf("games %d\n", reached.games);
  std::printf("best score %d\n", reached.best_score);
  std::printf("rows sold %d\n", reached.rows_sold);
  std::printf("overlapping slow-downs %d\n", reached.overlapping_slow_downs);
  std::printf("boards overflowed while a row completed %d\n", reached.sold_on_full_board);
  if (reached.games == 0)
    std::printf("This run reached nothing: no game was played.\n");
  else if (reached.best_score == 0)
    std::printf("This run reached nothing: no point was made.\n");
}

} // namespace

gw::Game playedTazlet() {
  gw::Game game;
  game.name = "tazlet";
  game.version = GLIDEWING_VERSION;
  game.loadResources = loadResources;
  game.populateWorld = [] {
    populateGame();
    new Witness;
  };
  for (const NamedProfile &named : PROFILES)
    game.players.push_back({named.name, [profile = named.profile](unsigned seed) {
                              return std::make_unique<AutoPlayer>(profile, seed);
                            }});
  game.addFields = addOwnFields;
  game.report = printAchievements;
  return game;
}

int playDemo(int argc, char *argv[]) {
  gw::Game game = playedTazlet();
  game.default_player = "skilled";
  return gw::runGame(game, argc, argv);
}
