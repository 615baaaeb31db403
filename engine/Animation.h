#pragma once

#include "Box.h"
#include "Vector.h"

#include <string>

namespace gw {

class Sprite;

/// Where one object is in showing its sprite's frames. A plain value, copied
/// with the object's state; the sprite is borrowed from the resource manager and
/// must stay loaded for as long as an animation shows it.
class Animation {
public:
  /// Shows that sprite from its first frame on; null shows nothing. @{
  void setSprite(Sprite *p_new_sprite);
  Sprite *getSprite() const { return sprite; } ///@}

  /// Renames the sprite itself, for everybody who uses it. Without a sprite: a
  /// WARNING, and nothing changes. @{
  void setSpriteLabel(std::string new_label);
  std::string getSpriteLabel() const { return sprite_label; } ///@}

  /// The frame to show next. Outside the sprite's frames (there are none without
  /// a sprite): a WARNING, and nothing changes. @{
  void setFrameIndex(int new_index);
  int getFrameIndex() const { return index; } ///@}

  /// Draw calls already spent on the current frame. @{
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
