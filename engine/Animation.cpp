#include "Animation.h"

#include "LogManager.h"
#include "Sprite.h"

namespace gw {

void Animation::setSprite(Sprite *p_new_sprite) {
  sprite = p_new_sprite;
  sprite_label = sprite ? sprite->getLabel() : "";
  index = 0;
  slowdown_count = 0;
}

void Animation::setSpriteLabel(std::string new_label) {
  if (!sprite) {
    LogManager::getInstance().writeLog(
        WARNING, "Cannot set Sprite label if Animation Sprite is NULL. Ignoring.");
    return;
  }
  sprite_label = new_label;
  sprite->setLabel(new_label);
}

void Animation::setFrameIndex(int new_index) {
  const int frame_count = sprite ? sprite->getFrameCount() : 0;
  if (new_index < 0 || new_index >= frame_count) {
    LogManager::getInstance().writeLog(
        WARNING, "New frame index %d is outside Sprite frame count %d. Ignoring.",
        new_index, frame_count);
    return;
  }
  index = new_index;
}

Box Animation::getBox() const {
  if (!sprite) {
    LogManager::getInstance().writeLog(
        WARNING, "gw::Animation::getBox() - Animation Sprite is NULL. Returning unit Box "
                 "centered at (0, 0).");
    return Box(Vector(-0.5f, -0.5f), 1, 1);
  }
  const auto width = static_cast<float>(sprite->getWidth());
  const auto height = static_cast<float>(sprite->getHeight());
  return Box(Vector(-width * 0.5f, -height * 0.5f), width, height);
}

int Animation::draw(Vector position) {
  if (!sprite) {
    LogManager::getInstance().writeLog(
        WARNING, "gw::Animation::draw() - Animation has no sprite. Cannot draw.");
    return -1;
  }
  sprite->draw(index, position);
  const int slowdown = sprite->getSlowdown();
  if (slowdown == 0)
    return 0;
  slowdown_count++;
  if (slowdown_count >= slowdown) {
    slowdown_count = 0;
    index++;
    if (index >= sprite->getFrameCount())
      index = 0;
  }
  return 0;
}

} // namespace gw
