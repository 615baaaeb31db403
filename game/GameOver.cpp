#include "GameOver.h"

#include "Bee.h"
#include "Butterfly.h"
#include "Cursor.h"
#include "DisplayManager.h"
#include "EventStep.h"
#include "GameStart.h"
#include "Glidewing.h"
#include "LogManager.h"
#include "PinBoard.h"
#include "Score.h"
#include "Sequence.h"
#include "Slower.h"
#include "Spawner.h"
#include "Sprite.h"
#include "WorldManager.h"
#include "gameUtility.h"

namespace {

/// Whether objects of that type are insects.
bool isInsect(const std::string &type) {
  return type == Bee::TYPE || type == Butterfly::TYPE || type == Glidewing::TYPE;
}

/// Whether the object is on the board; leaves a log line if so.
bool isOnBoard(const gw::Object *p_o, const gw::ObjectList &pinned) {
  bool found = false;
  for (const gw::Object *p_pinned : pinned)
    if (p_pinned->getId() == p_o->getId()) {
      gw::LogManager::getInstance().writeLog(
          gw::DEBUG,
          "GameOver::deleteGameObjects(): Object with id %d, %s (%p) is on the Pin "
          "Board. Delaying deletion.",
          p_o->getId(), p_o->getType().c_str(), static_cast<const void *>(p_o));
      found = true;
    }
  return found;
}

} // namespace

GameOver::GameOver() {
  const gw::DisplayManager &display = gw::DisplayManager::getInstance();
  setType(TYPE);
  setCollisionResponse(gw::IGNORE);
  setPosition(gw::Vector(static_cast<float>(display.getHorizontal()) / 2.5f,
                         static_cast<float>(display.getVertical()) * 0.5f));
  if (setSprite("GameOver") == 0) {
    const gw::Sprite *p_sprite = getAnimation().getSprite();
    timeToLive = p_sprite->getFrameCount() * p_sprite->getSlowdown();
  } else {
    timeToLive = 0;
  }
  deleteGameObjects();
}

void GameOver::deleteGameObjects() {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  gw::ObjectList pinned;
  if (const PinBoard *p_board = findFirst<PinBoard>())
    pinned = p_board->getPinnedBugs();
  for (gw::Object *p_o : world.getAllObjects()) {
    const std::string object_type = p_o->getType();
    if (object_type == Cursor::TYPE || object_type == Spawner::TYPE ||
        object_type == Sequence::TYPE ||
        (isInsect(object_type) && !isOnBoard(p_o, pinned)))
      world.markForDelete(p_o);
  }
}

int GameOver::eventHandler(const gw::Event *p_e) {
  if (p_e->getType() != gw::STEP_EVENT)
    return 0;
  timeToLive--;
  if (timeToLive <= 0)
    endGame();
  return 1;
}

int GameOver::draw() {
  gw::Object::draw();
  return 0;
}

/// The second stage.
void GameOver::endGame() {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  for (gw::Object *p_o : world.getAllObjects()) {
    const std::string object_type = p_o->getType();
    if (object_type == PinBoard::TYPE || object_type == Score::TYPE ||
        object_type == Slower::TYPE || isInsect(object_type))
      world.markForDelete(p_o);
    else if (auto *p_menu = dynamic_cast<GameStart *>(p_o))
      p_menu->setMenuActive(true);
  }
  world.markForDelete(this);
}
