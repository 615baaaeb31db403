#include "WindowTest.h"

#include <filesystem>

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
    constexpr std::uint32_t ALPHA = 0xff; // is not seen
    const sf::Vector2u at(i % size.x, i / size.x);
    const std::uint32_t found = actual.getPixel(at).toInteger() | ALPHA;
    const std::uint32_t wanted = expected.getPixel(at).toInteger() | ALPHA;
    if (found != wanted)
      return testing::AssertionFailure()
             << "(" << at.x << ", " << at.y
             << ") is the first of the pixels that differ: "
             << (testing::Message() << std::hex << found << " instead of " << wanted);
  }
  return testing::AssertionSuccess();
}
