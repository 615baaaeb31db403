#include "gameUtility.h"

#include "DisplayManager.h"
#include "Insect.h"
#include "ResourceManager.h"

void playSound(const std::string &label) {
  if (gw::Sound *p_sound = gw::ResourceManager::getInstance().getSound(label))
    p_sound->play(false);
}

gw::Vector displayCenter() {
  const gw::DisplayManager &display = gw::DisplayManager::getInstance();
  return gw::Vector(static_cast<float>(display.getHorizontal()) * 0.5f,
                    static_cast<float>(display.getVertical()) * 0.5f);
}

void setTintedSprite(Insect &insect) {
  gw::ResourceManager &resources = gw::ResourceManager::getInstance();
  const std::string kind = insect.getType() == GLIDEWING_TYPE ? "glidewing" : "butterfly";
  const std::string label = kind + "color" + insect.getColorAsString();
  if (!resources.getSprite(label) && !resources.hasSpriteFailed(label) &&
      resources.loadSprite("tazlet/sprites/" + kind + ".txt", label) == 0)
    resources.getSprite(label)->setColor(insect.getColor());
  insect.setSprite(label);
}
