#pragma once

#include "DisplayManager.h"
#include "EngineTest.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "EventStep.h"
#include "Game.h"
#include "GameManager.h"
#include "Input.h"
#include "Random.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <sstream>

/// The smallest game that needs a runner: a dot that goes where chance and the keys want,
/// and jumps to the pointer.
class Dot : public gw::Object {
public:
  int steps_held = 0; ///< for how long `A` is down; only the game's own digest has it

  Dot() {
    setType("Dot");
    setPosition({3, 2});
  }

  int eventHandler(const gw::Event *p_e) override {
    if (const auto *p_key = gw::eventAs<gw::EventKeyboard>(p_e, gw::KEYBOARD_EVENT))
      takeKey(p_key->getKey(), p_key->getKeyboardAction() == gw::KEY_PRESSED);
    else if (const auto *p_mouse = gw::eventAs<gw::EventMouse>(p_e, gw::MOUSE_EVENT))
      takeMouse(*p_mouse);
    else if (p_e->getType() == gw::STEP_EVENT && is_held)
      steps_held++;
    return 0;
  }

  int draw() override {
    return gw::DisplayManager::getInstance().drawString(getPosition(), "(dot)",
                                                        gw::LEFT_JUSTIFIED, gw::RED);
  }

private:
  void takeKey(gw::Keyboard::Key key, bool is_pressed) {
    if (key == gw::Keyboard::A)
      is_held = is_pressed;
    else if (key == gw::Keyboard::Q)
      gw::GameManager::getInstance().setGameOver(true);
    else if (is_pressed)
      setPosition({static_cast<float>(gw::rand() % 100), static_cast<float>(key % 40)});
  }

  void takeMouse(const gw::EventMouse &mouse) {
    if (mouse.getMouseAction() == gw::PRESSED)
      setPosition(mouse.getMousePosition());
  }

  bool is_held = false;
};

/// Presses and points at random.
class DotPlayer : public gw::Player {
public:
  void play(int step) override {
    const int number = step * 7919 % 101;
    gw::pressKey(static_cast<gw::Keyboard::Key>(number % 10));
    gw::pressMouse(gw::Mouse::RIGHT, {static_cast<float>(number), 20.5f});
    if (step % 10 == 0)
      gw::pressKey(gw::Keyboard::A);
    if (step % 10 == 6)
      gw::releaseKey(gw::Keyboard::A);
  }
};

inline gw::Game dotGame() {
  gw::Game game;
  game.name = "dots";
  game.version = "3";
  static int first_step = 0; // steps are counted for as long as the process lives
  game.populateWorld = [] {
    new Dot;
    first_step = gw::GameManager::getInstance().getStepCount();
  };
  game.players = {{"busy", [](unsigned) { return std::make_unique<DotPlayer>(); }}};
  game.addFields = [](gw::Hash &hash, const gw::Object &object) {
    hash.add(dynamic_cast<const Dot &>(object).steps_held);
  };
  game.report = [] {
    std::printf("steps %d\n", gw::GameManager::getInstance().getStepCount() - first_step);
  };
  return game;
}

/// What became of a run of the game by its command line.
struct RunResult {
  int status = 0;
  std::string output;
  std::string errors;
};

/// Runs it in a process of its own: the engine counts steps and objects from its start.
inline RunResult runDots(const std::string &options, const gw::Game &game = dotGame()) {
  std::istringstream stream("dots " + options);
  std::vector<std::string> words;
  for (std::string word; stream >> word;)
    words.push_back(word);
  std::vector<char *> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string &word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  RunResult result;
  if (const pid_t child = fork(); child != 0) {
    int ended = 0;
    waitpid(child, &ended, 0);
    result.status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
  } else {
    const bool is_ready =
        std::freopen("output", "w", stdout) && std::freopen("errors", "w", stderr);
    const int status =
        gw::runGame(game, static_cast<int>(words.size()), arguments.data());
    std::fflush(nullptr);
    _exit(is_ready ? status : -1);
  }
  result.output = readFile("output");
  result.errors = readFile("errors");
  return result;
}

inline std::string absolutePath(const std::string &name) {
  return std::filesystem::absolute(name).string();
}
