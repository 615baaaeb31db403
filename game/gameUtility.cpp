#include "gameUtility.h"

#include "DisplayManager.h"
#include "ResourceManager.h"
#include "Sound.h"
#include "Sprite.h"

void playSound(const std::string &label) {
  if (gw::Sound *p_sound = gw::ResourceManager::getInstance().getSound(label))
    p_sound->play(false);
}

void loadTintedSprite(const std::string &filename, const std::string &label,
                      gw::Color color) {
  gw::ResourceManager &resources = gw::ResourceManager::getInstance();
  if (!resources.getSprite(label) && !resources.hasSpriteFailed(label) &&
      resources.loadSprite(filename, label) == 0)
    resources.getSprite(label)->setColor(color);
}

gw::Vector displayCenter() {
  const gw::DisplayManager &display = gw::DisplayManager::getInstance();
  return gw::Vector(static_cast<float>(display.getHorizontal()) * 0.5f,
                    static_cast<float>(display.getVertical()) * 0.5f);
}
