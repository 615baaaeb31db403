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

/// The engine without a window, for one test: log (everything, flushed),
/// resources and world are started before it and shut down after it.
class EngineTest : public testing::Test {
protected:
  void SetUp() override;
  void TearDown() override;
};

/// An object that keeps the types of the events it hears, and does what the test
/// wants on top. Register it with `new`; the world deletes it.
class Recorder : public gw::Object {
public:
  std::vector<std::string> heard;
  std::function<int(const gw::Event &)> onEvent; ///< optional
  std::function<void()> onDraw;                  ///< optional

  int eventHandler(const gw::Event *p_e) override;
  int draw() override;
};

/// The lines of the log so far, each as "LEVEL: message", without time of day and
/// padding.
std::vector<std::string> logLines();

/// The lines written while `action` ran.
std::vector<std::string> logOf(const std::function<void()> &action);

/// Writes a file into the test's directory, byte by byte as given.
void writeFile(const std::string &filename, const std::string &content);

/// Text in which every line ends with LF.
std::string lines(const std::vector<std::string> &content);

/// A vector as something that can be compared and printed.
inline std::pair<float, float> xy(gw::Vector vector) {
  return {vector.getX(), vector.getY()};
}
