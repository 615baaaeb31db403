#pragma once

#include "Color.h"
#include "Object.h"

#include <string>

/// The player's money, and the rank that comes with it. One for each game.
class Score : public gw::Object {
public:
  static constexpr const char *TYPE = "Score";

  /// In the lower left of the display, at 0.
  Score();

  /// Adds `delta`, which may be negative.
  void updateScore(int delta);
  int getScore() const { return score; }

  /// Lasts until the next draw, which takes the rank's colour.
  void setTextColor(gw::Color new_color) { textColor = new_color; }

  /// Back to 0 and the lowest rank.
  void resetScore();

  /// A sold row pays for each of its insects.
  int eventHandler(const gw::Event *p_e) override;

  /// Draws the sprite, the rank's title two cells above the position, and the
  /// amount centred on it. @return 0, or -1 when any of these failed
  int draw() override;

private:
  void chooseRank();

  gw::Color textColor = gw::COLOR_DEFAULT;
  int score = 0;
  int pointsPerBug;
  std::string rankTitle;
};
