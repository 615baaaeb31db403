#include "GameManager.h"

#include "Clock.h"
#include "DisplayManager.h"
#include "EventStep.h"
#include "InputManager.h"
#include "LogManager.h"
#include "ResourceManager.h"
#include "WorldManager.h"
#include "internal/PlaybackDevice.h"
#include "internal/platform.h"

namespace gw {

GameManager::GameManager() {
  setType("GameManager");
}

GameManager &GameManager::getInstance() {
  static GameManager instance;
  return instance;
}

int GameManager::startUp() {
  return start(true, true);
}

int GameManager::startUpHeadless(bool is_audible) {
  return start(false, is_audible);
}

int GameManager::start(bool with_display, bool is_audible) {
  LogManager &log = LogManager::getInstance();
  if (isStarted()) {
    log.writeLog(INFO, "GameManager is already started.");
    return 0;
  }
  log.startUp();
  if (with_display) {
    DisplayManager::getInstance().startUp();
    if (!DisplayManager::getInstance().hasWindow())
      return -1;
    InputManager::getInstance().startUp();
  }
  if (!is_audible)
    silencePlayback();
  ResourceManager::getInstance().startUp();
  WorldManager::getInstance().startUp();
  game_over = false;
  Manager::startUp();
  log.writeLog(INFO, "GameManager is started up.");
  return 0;
}

void GameManager::shutDown() {
  LogManager &log = LogManager::getInstance();
  if (!isStarted()) {
    log.writeLog(INFO, "GameManager is already shut down.");
    return;
  }
  log.writeLog(INFO, "GameManager is shutting down.");
  game_over = true;
  WorldManager::getInstance().shutDown();
  ResourceManager::getInstance().shutDown();
  InputManager::getInstance().shutDown();
  DisplayManager::getInstance().shutDown();
  log.shutDown();
  Manager::shutDown();
}

void GameManager::run() {
  long long adjust_time = 0;
  while (!game_over)
    adjust_time = runStep(adjust_time);
}

long long GameManager::runStep(long long adjust_time) {
  Clock clock;
  clock.delta();

  const EventStep step(step_count);
  onEvent(&step);
  InputManager::getInstance().getInput();
  WorldManager::getInstance().update();
  WorldManager::getInstance().draw();
  DisplayManager::getInstance().swapBuffers();

  const long long loop_time = clock.split();
  const long long sleep_time = FRAME_TIME_DEFAULT * 1000 - loop_time - adjust_time;
  clock.delta();
  if (sleep_time > 0)
    sleepFor(sleep_time);
  const long long actual_sleep = clock.split();

  step_count++;
  return actual_sleep > sleep_time ? actual_sleep - sleep_time : 0;
}

} // namespace gw
