#pragma once

#include "Box.h"
#include "Vector.h"

#include <string>

namespace gw {

class Sprite;

/// Which frame of its sprite an object shows, and for how long already. A plain value.
/// The sprite belongs to the resource manager and must stay loaded as long as an
/// animation shows it.
class Animation {
public:
  /// Shows that sprite from its first frame on; null shows nothing. @{
  void setSprite(Sprite *p_new_sprite);
  Sprite *getSprite() const { return sprite; } ///@}

  /// Setting it renames the sprite itself, for everybody who uses it; without a sprite
  /// nothing changes, with a WARNING. @{
  void setSpriteLabel(std::string new_label);
  std::string getSpriteLabel() const { return sprite_label; } ///@}

  /// The frame to show next: 0 up to but not including the sprite's frame count. For any
  /// other number, and without a sprite, nothing changes, with a WARNING. @{
  void setFrameIndex(int new_index);
  int getFrameIndex() const { return index; } ///@}

  /// How often the current frame was drawn already. @{
  void setSlowdownCount(int new_count) { slowdown_count = new_count; }
  int getSlowdownCount() const { return slowdown_count; } ///@}

  /// The sprite's extent in cells, centred on (0, 0). Without a sprite: a
  /// WARNING and the unit box.
  Box getBox() const;

  /// Draws the current frame centred on `position` (cells), then advances: each
  /// frame is shown for as many calls as the sprite's slowdown says.
  /// @return 0, or -1 with a WARNING without a sprite
  int draw(Vector position);

private:
  Sprite *sprite = nullptr; ///< not owned
  std::string sprite_label;
  int index = 0;
  int slowdown_count = 0;
};

} // namespace gw
