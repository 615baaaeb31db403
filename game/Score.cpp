#include "Score.h"

#include "DisplayManager.h"
#include "EventClear.h"

namespace {

constexpr int POINTS_PER_BUG = 5;

struct Rank {
  int bugs;       ///< the rank goes up to this many times `pointsPerBug` …
  bool inclusive; ///< … and holds there, too
  const char *title;
  gw::Color color;
};

/// From the bottom up; the first that reaches the score holds.
constexpr Rank RANKS[] = {
    {1, false, "Bug Idiot", gw::WHITE},
    {5, true, "Bug Beginner", gw::CYAN},
    {15, true, "Bug Novice", gw::BLUE},
    {20, true, "Bug Enthusiast", gw::CYAN},
    {30, true, "Bug Apprentice", gw::GREEN},
    {40, true, "Bug Academic", gw::BLUE},
    {50, true, "Bug Professional", gw::GREEN},
    {65, true, "Bug Master", gw::MAGENTA},
    {80, true, "Bug Maestro", gw::RED},
    {95, true, "Bug Wizard", gw::MAGENTA},
    {110, true, "Entomologist", gw::RED},
    {140, true, "Bug God", gw::YELLOW},
    {190, true, "Bug Omniscence", gw::YELLOW},
    {240, true, "Bug Cosmic Being", gw::YELLOW},
    {290, true, "Bug Black Hole", gw::YELLOW},
    {340, true, "Bug Universal Arbiter", gw::YELLOW},
    {400, false, "Bug Time Devourer", gw::YELLOW},
};

constexpr const char *TOP_TITLE = "BUG";
constexpr gw::Color TOP_COLOR = gw::YELLOW;

} // namespace

Score::Score() : pointsPerBug(POINTS_PER_BUG) {
  setType(TYPE);
  setPosition(gw::Vector(
      13, static_cast<float>(gw::DisplayManager::getInstance().getVertical() - 3)));
  setSprite("Score");
  setCollisionResponse(gw::IGNORE);
  setAltitude(3);
  resetScore();
}

void Score::updateScore(int delta) {
  score += delta;
}

void Score::resetScore() {
  score = 0;
  rankTitle = RANKS[0].title;
  textColor = RANKS[0].color;
}

int Score::eventHandler(const gw::Event *p_e) {
  const auto *p_clear = gw::eventAs<EventClear>(p_e, CLEAR_EVENT);
  if (!p_clear)
    return 0;
  updateScore(p_clear->getSequence().getCount() * pointsPerBug);
  return 1;
}

int Score::draw() {
  if (gw::Object::draw() == -1)
    return -1;
  chooseRank();
  const gw::DisplayManager &display = gw::DisplayManager::getInstance();
  const gw::Vector amount_position = getPosition();
  if (display.drawString(amount_position + gw::Vector(0, -2), rankTitle,
                         gw::LEFT_JUSTIFIED, textColor) == -1)
    return -1;
  return display.drawString(amount_position, "$" + std::to_string(score),
                            gw::CENTER_JUSTIFIED, textColor);
}

void Score::chooseRank() {
  for (const Rank &rank : RANKS) {
    const int limit = rank.bugs * pointsPerBug;
    if (score < limit || (rank.inclusive && score == limit)) {
      rankTitle = rank.title;
      textColor = rank.color;
      return;
    }
  }
  rankTitle = TOP_TITLE;
  textColor = TOP_COLOR;
}
