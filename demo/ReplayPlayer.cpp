#include "ReplayPlayer.h"

#include <utility>

ReplayPlayer::ReplayPlayer(Recording init_recording)
    : recording(std::move(init_recording)) {
}

void ReplayPlayer::play(int step) {
  for (; next < recording.events.size() && recording.events[next].step == step; next++) {
    const InputEvent &event = recording.events[next];
    switch (event.kind) {
    case InputEvent::key_press:
      pressKey(event.key);
      break;
    case InputEvent::key_release:
      releaseKey(event.key);
      break;
    case InputEvent::mouse_move:
      moveMouse(event.position);
      break;
    case InputEvent::mouse_press:
      pressButton(event.button, event.position);
      break;
    case InputEvent::mouse_release:
      releaseButton(event.button, event.position);
      break;
    }
  }
}
