#include "tazlet.h"

#include "Border.h"
#include "GameManager.h"
#include "GameStart.h"
#include "LogManager.h"
#include "Random.h"
#include "ResourceManager.h"

#include <ctime>

namespace {

using Load = int (gw::ResourceManager::*)(std::string filename, std::string label);

constexpr Load SPRITE = &gw::ResourceManager::loadSprite;
constexpr Load SOUND = &gw::ResourceManager::loadSound;
constexpr Load MUSIC = &gw::ResourceManager::loadMusic;

struct Resource {
  Load load;
  const char *label;
  const char *filename;
};

constexpr Resource RESOURCES[] = {
    {SPRITE, "NeutralCursor", "tazlet/sprites/neutral_cursor.txt"},
    {SPRITE, "ClickedCursor", "tazlet/sprites/clicked_cursor.txt"},
    {SPRITE, "GameStart", "tazlet/sprites/game_start.txt"},
    {SPRITE, "GameOver", "tazlet/sprites/game_over.txt"},
    {SPRITE, "PinBoard", "tazlet/sprites/pin_board.txt"},
    {SPRITE, "Border", "tazlet/sprites/border.txt"},
    {SPRITE, "Spawner", "tazlet/sprites/spawner.txt"},
    {SPRITE, "Bee", "tazlet/sprites/bee.txt"},
    {SPRITE, "Butterfly", "tazlet/sprites/butterfly.txt"},
    {SPRITE, "Glidewing", "tazlet/sprites/glidewing.txt"},
    {SPRITE, "Sequence", "tazlet/sprites/sequence.txt"},
    {SPRITE, "Score", "tazlet/sprites/score.txt"},
    {SPRITE, "SoldTag", "tazlet/sprites/sold_tag.txt"},
    {SOUND, "GameStart", "tazlet/sounds/game_start.wav"},
    {SOUND, "BugSpawn", "tazlet/sounds/bug_spawn.wav"},
    {SOUND, "ClickPin", "tazlet/sounds/click_pin.wav"},
    {SOUND, "PinBug", "tazlet/sounds/pin_bug.wav"},
    {SOUND, "ClearSequence", "tazlet/sounds/clear_sequence.wav"},
    {SOUND, "GameOver", "tazlet/sounds/game_over.wav"},
    {MUSIC, "StartMusic", "tazlet/musics/BlippyTrance.mp3"},
};

} // namespace

void loadResources() {
  for (const Resource &resource : RESOURCES)
    (gw::ResourceManager::getInstance().*resource.load)(resource.filename,
                                                        resource.label);
}

void populateGame() {
  new Border;
  new GameStart;
}

int playTazlet() {
  gw::GameManager &game = gw::GameManager::getInstance();
  gw::LogManager &log = gw::LogManager::getInstance();
  if (game.startUp() != 0) {
    log.setLogLevel(gw::ALL); // which the next line has
    log.writeLog("Error starting GameManager!");
    game.shutDown();
    return 1;
  }
  gw::srand(static_cast<unsigned>(std::time(nullptr)));
  log.setLogLevel(gw::ALL);
  log.setFlush(true);
  loadResources();
  populateGame();
  game.run();
  game.shutDown();
  return 0;
}

// What plays the game by other means has a `main` of its own.
#ifndef TAZLET_WITHOUT_MAIN

int main() {
  return playTazlet();
}

#endif
