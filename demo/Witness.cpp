#include "Witness.h"

#include "DisplayManager.h"
#include "EventClear.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "EventSlow.h"
#include "EventStep.h"
#include "GameOver.h"
#include "InputManager.h"
#include "PinBoard.h"
#include "Score.h"
#include "Slower.h"
#include "gameUtility.h"

#include <algorithm>
#include <cmath>

namespace {

/// The library's code for one of the engine's keys. Keys that the engine does not
/// know are all the same to the game.
sf::Keyboard::Key toLibraryKey(gw::Keyboard::Key wanted) {
  const gw::InputManager &input = gw::InputManager::getInstance();
  for (unsigned code = 0; code < sf::Keyboard::KeyCount; code++) {
    const auto key = static_cast<sf::Keyboard::Key>(code);
    if (wanted != gw::Keyboard::UNDEFINED_KEY &&
        input.mapSFMLKeyToGlidewingKey(key) == wanted)
      return key;
  }
  return sf::Keyboard::Key::Unknown;
}

sf::Mouse::Button toLibraryButton(gw::Mouse::Button button) {
  return button == gw::Mouse::UNDEFINED_MOUSE_BUTTON
             ? sf::Mouse::Button::Extra1
             : static_cast<sf::Mouse::Button>(button);
}

} // namespace

Witness::Witness(RecordingWriter *p_init_writer) : p_writer(p_init_writer) {
  setType("Witness");
  setCollisionResponse(gw::IGNORE);
}

int Witness::eventHandler(const gw::Event *p_e) {
  if (p_e->getType() == gw::STEP_EVENT) {
    step++;
    look();
  } else if (p_e->getType() == SLOW_EVENT) {
    noteSlowDown();
  } else if (p_e->getType() == CLEAR_EVENT) {
    achievements.rows_sold++;
    if (findFirst<GameOver>())
      achievements.sold_on_full_board++;
  } else if (const auto *p_key =
                 gw::eventAs<gw::EventKeyboard>(p_e, gw::KEYBOARD_EVENT)) {
    record(*p_key);
  } else if (const auto *p_mouse = gw::eventAs<gw::EventMouse>(p_e, gw::MOUSE_EVENT)) {
    record(*p_mouse);
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

void Witness::record(const gw::EventKeyboard &event) {
  if (!p_writer)
    return;
  InputEvent input;
  input.step = step;
  input.kind = event.getKeyboardAction() == gw::KEY_PRESSED ? InputEvent::key_press
                                                            : InputEvent::key_release;
  input.key = toLibraryKey(event.getKey());
  p_writer->write(input);
}

void Witness::record(const gw::EventMouse &event) {
  if (!p_writer)
    return;
  const gw::Vector pixels = gw::spacesToPixels(event.getMousePosition());
  InputEvent input;
  input.step = step;
  input.kind = event.getMouseAction() == gw::MOVED     ? InputEvent::mouse_move
               : event.getMouseAction() == gw::PRESSED ? InputEvent::mouse_press
                                                       : InputEvent::mouse_release;
  input.button = toLibraryButton(event.getMouseButton());
  input.position = {static_cast<int>(std::lround(pixels.getX())),
                    static_cast<int>(std::lround(pixels.getY()))};
  p_writer->write(input);
}
