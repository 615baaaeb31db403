#pragma once

#include "Object.h"

/// Tells the player that a row was sold: a picture that removes itself. Several
/// may be there at a time, and one may outlive its game.
class SoldTag : public gw::Object {
public:
  static constexpr const char *TYPE = "SoldTag";

  SoldTag();

  int eventHandler(const gw::Event *p_e) override;

  /// Steps until the tag removes itself.
  int getTimeToLive() const { return timeToLive; }

private:
  int timeToLive = 100;
};
