#pragma once

#include "Color.h"
#include "Object.h"

#include <array>
#include <string>

namespace gw {
class EventMouse;
}

/// The colours of butterflies and glidewings, in the order in which chance picks
/// from them.
constexpr std::array<gw::Color, 5> INSECT_COLORS = {gw::RED, gw::GREEN, gw::BLUE,
                                                    gw::MAGENTA, gw::CYAN};

/// Base of the three kinds. Insects come out of the spawners and fly until they
/// leave the world; butterflies and glidewings can be pinned, which they announce
/// with an `EventPin`. The target row is made of insects as well, which cannot.
class Insect : public gw::Object {
public:
  /// In the middle of the display, at rest, without picture and colour.
  Insect();

  /// Set once a press has pinned the insect, for good.
  void setPinned(bool new_pinned) { pinned = new_pinned; }
  bool getPinned() const { return pinned; }

  /// Whether a press may pin the insect.
  void setPinnable(bool new_pinnable) { pinnable = new_pinnable; }
  bool isPinnable() const { return pinnable; }

  /// What colour the insect is, not how it looks: see `setTintedSprite`.
  void setColor(gw::Color new_color) { color = new_color; }
  gw::Color getColor() const { return color; }

  /// "red" to "cyan"; "unknown" for black, white and what is no colour.
  std::string getColorAsString() const;

  /// Shows a butterfly or glidewing in its own colour: with a copy of its kind's sprite,
  /// labelled for instance "glidewingcolorcyan", that is loaded and tinted when it is
  /// first needed, and kept. When it cannot be loaded, which is tried once, the insect
  /// keeps the sprite that it has.
  void setTintedSprite();

  /// Whether the insect is hit at that place (cells): the square of one cell around it
  /// touches the insect's box.
  bool isUnder(gw::Vector pointer) const;

  int eventHandler(const gw::Event *p_e) override;

protected:
  /// Whether the event is a press of any button with the pointer on the insect.
  bool isPressedBy(const gw::EventMouse &event) const;

private:
  int handleMouse(const gw::EventMouse &event);

  gw::Color color = gw::BLACK;
  bool pinnable = true;
  bool pinned = false;
};

/// The object as an insect, which it must be: what is on the board and in the row is
/// always one.
Insect &asInsect(gw::Object *p_o);
