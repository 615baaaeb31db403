#pragma once

#include "Event.h"
#include "GameManager.h"
#include "LogManager.h"
#include "Object.h"
#include "ResourceManager.h"
#include "WorldManager.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

using Lines = std::vector<std::string>;

/// The engine without a window, for one test: log (everything, flushed),
/// resources and world are started before it and shut down after it.
class EngineTest : public testing::Test {
protected:
  void SetUp() override;
  void TearDown() override;

  /// So many steps of the game loop, without sleep.
  static void step(int steps = 1);

  static gw::WorldManager &world() { return gw::WorldManager::getInstance(); }
};

/// An object that writes down what happens to it, and does what the test wants on top.
/// All that it has is optional. Register it with `new`; the world deletes it.
class Recorder : public gw::Object {
public:
  /// Gets "TYPE pin" for every event that is heard (but steps), "TYPE drawn" and
  /// "TYPE deleted". Several may share one.
  Lines *p_journal = nullptr;

  std::function<void(const gw::Event &)> onEvent;
  std::function<void()> onDraw;
  std::function<void()> onDelete;

  ~Recorder() override;
  int eventHandler(const gw::Event *p_e) override;
  int draw() override;

private:
  void note(const std::string &what);
};

/// The lines of the log so far, each as "LEVEL: message", without time of day and
/// padding.
Lines logLines();

/// The lines written while `action` ran.
Lines logOf(const std::function<void()> &action);

/// Those lines that match the expression somewhere.
Lines matching(const std::string &expression, const Lines &lines);

/// A whole file, which is expected to be there.
std::string readFile(const std::string &filename);

/// Writes a file into the test's directory, byte by byte as given.
void writeFile(const std::string &filename, const std::string &content);

/// Text in which every line ends with LF.
std::string lines(const Lines &content);

/// A vector as something that can be compared and printed.
inline std::pair<float, float> xy(gw::Vector vector) {
  return {vector.getX(), vector.getY()};
}
