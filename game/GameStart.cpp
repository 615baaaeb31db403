#include "GameStart.h"

#include "Cursor.h"
#include "EventKeyboard.h"
#include "GameManager.h"
#include "Music.h"
#include "PinBoard.h"
#include "ResourceManager.h"
#include "Score.h"
#include "Sequence.h"
#include "Slower.h"
#include "Spawner.h"
#include "gameUtility.h"

namespace {

/// Cells.
const gw::Vector SPAWNER_POSITIONS[] = {{50, 20}, {30, 32}, {70, 32}};

} // namespace

GameStart::GameStart() {
  setType(TYPE);
  setSprite("GameStart");
  setCollisionResponse(gw::IGNORE);
  setPosition(displayCenter());
  if (gw::Music *p_music = gw::ResourceManager::getInstance().getMusic("StartMusic"))
    p_music->play(true);
}

/// The order decides who hears an event first: the board has to hear of a pin
/// before the sequence.
void GameStart::startGame() {
  playSound("GameStart");
  new Cursor;
  new PinBoard;
  new Score;
  new Slower;
  for (const gw::Vector &spawner_position : SPAWNER_POSITIONS)
    (new Spawner)->setPosition(spawner_position);
  (new Sequence)->generateSequence(1);
  menuActive = false;
}

int GameStart::eventHandler(const gw::Event *p_e) {
  const auto *p_keyboard = gw::eventAs<gw::EventKeyboard>(p_e, gw::KEYBOARD_EVENT);
  if (!p_keyboard)
    return 0;
  if (p_keyboard->getKeyboardAction() != gw::KEY_PRESSED)
    return 1;
  if (p_keyboard->getKey() == gw::Keyboard::P && menuActive)
    startGame();
  else if (p_keyboard->getKey() == gw::Keyboard::Q)
    gw::GameManager::getInstance().setGameOver(true);
  return 1;
}

int GameStart::draw() {
  if (menuActive)
    gw::Object::draw();
  return 0;
}
