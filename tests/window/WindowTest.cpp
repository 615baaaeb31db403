#include "WindowTest.h"

#include <filesystem>
#include <sstream>

namespace {

bool sameColor(sf::Color a, sf::Color b) {
  return a.r == b.r && a.g == b.g && a.b == b.b;
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
  std::size_t different = 0;
  std::string first;
  for (unsigned y = 0; y < size.y; y++)
    for (unsigned x = 0; x < size.x; x++) {
      const sf::Color found = actual.getPixel({x, y});
      const sf::Color wanted = expected.getPixel({x, y});
      if (!sameColor(found, wanted) && different++ == 0) {
        std::ostringstream text;
        text << "(" << x << ", " << y << "): " << std::hex << found.toInteger()
             << " instead of " << wanted.toInteger();
        first = text.str();
      }
    }
  if (different == 0)
    return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << different << " pixels differ, the first at " << first;
}
