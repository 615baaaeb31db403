#include "WindowTest.h"

#include "internal/platform.h"

#include <cstdlib>
#include <filesystem>

namespace {

/// SFML 3.0 puts glyphs at places of its texture where software OpenGL, drawing them one
/// by one, is off by the last bit.
bool differs(int found, int wanted) {
  constexpr int OFF = GW_IS_SFML_3_0;
  return std::abs(found - wanted) > OFF;
}

} // namespace

void WindowTest::SetUp() {
  EngineTest::SetUp();
  linkFont();
  gw::DisplayManager::getInstance().setBackgroundColor(gw::BLACK); // outlives a stop
  ASSERT_EQ(gw::DisplayManager::getInstance().startUp(), 0)
      << "these tests need an X server with GLX; scripts/test starts one";
}

void WindowTest::TearDown() {
  gw::DisplayManager::getInstance().shutDown();
  EngineTest::TearDown();
}

void linkFont() {
  std::filesystem::remove_all(gw::FONT_FILE_DEFAULT);
  std::filesystem::create_symlink(GLIDEWING_RUN_DIR "/gw-font.ttf",
                                  gw::FONT_FILE_DEFAULT);
}

sf::Image picture() {
  const sf::RenderWindow &window = *gw::DisplayManager::getInstance().getWindow();
  sf::Texture texture(window.getSize());
  texture.update(window);
  return texture.copyToImage();
}

testing::AssertionResult samePixels(const sf::Image &actual, const sf::Image &expected) {
  const sf::Vector2u size = expected.getSize();
  if (actual.getSize() != size || size.x == 0 || size.y == 0)
    return testing::AssertionFailure() << "pictures of different sizes, or empty ones";
  for (unsigned i = 0; i < size.x * size.y; i++) {
    const sf::Vector2u at(i % size.x, i / size.x);
    const sf::Color found = actual.getPixel(at);
    const sf::Color wanted = expected.getPixel(at);
    if (differs(found.r, wanted.r) || differs(found.g, wanted.g) ||
        differs(found.b, wanted.b))
      return testing::AssertionFailure()
             << "(" << at.x << ", " << at.y
             << ") is the first of the pixels that differ: "
             << (testing::Message() << std::hex << found.toInteger() << " instead of "
                                    << wanted.toInteger());
  }
  return testing::AssertionSuccess();
}
