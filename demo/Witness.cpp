#include "Witness.h"

#include "EventClear.h"
#include "EventSlow.h"
#include "EventStep.h"
#include "GameOver.h"
#include "PinBoard.h"
#include "Score.h"
#include "Slower.h"
#include "gameUtility.h"

#include <algorithm>

Witness::Witness() {
  setType(TYPE);
  setCollisionResponse(gw::IGNORE);
}

int Witness::eventHandler(const gw::Event *p_e) {
  if (p_e->getType() == gw::STEP_EVENT) {
    look();
  } else if (p_e->getType() == SLOW_EVENT) {
    noteSlowDown();
  } else if (p_e->getType() == CLEAR_EVENT) {
    achievements.rows_sold++;
    if (findFirst<GameOver>())
      achievements.sold_on_full_board++;
  }
  return 0;
}

void Witness::look() {
  const auto *p_score = findFirst<Score>();
  if (p_score)
    achievements.best_score = std::max(achievements.best_score, p_score->getScore());
  const bool is_playing = p_score != nullptr;
  if (is_playing && !was_playing)
    achievements.games++;
  was_playing = is_playing;
  slow_steps_left = std::max(slow_steps_left - 1, 0);
}

void Witness::noteSlowDown() {
  if (slow_steps_left > 0)
    achievements.overlapping_slow_downs++;
  slow_steps_left = Slower::SLOW_DOWN_STEPS;
}
