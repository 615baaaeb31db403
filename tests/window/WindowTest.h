#pragma once

#include "DisplayManager.h"
#include "EngineTest.h"

#include <SFML/Graphics.hpp>

/// The engine with a real window, for one test: as `EngineTest`, with the game's
/// font in the directory and the display started.
class WindowTest : public EngineTest {
protected:
  void SetUp() override;
  void TearDown() override;
};

/// Puts the game's font into the test's directory.
void linkFont();

/// What has been drawn into the window, shown or not.
sf::Image picture();

/// Whether two pictures are equal in every pixel. Says where the first is that differs.
testing::AssertionResult samePixels(const sf::Image &actual, const sf::Image &expected);
