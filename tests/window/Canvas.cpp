#include "Canvas.h"

#include "WindowTest.h"

#include <cmath>

namespace {

constexpr float CELL_WIDTH = 8;   ///< pixels
constexpr float CELL_HEIGHT = 16; ///< pixels
constexpr unsigned CHARACTER_SIZE = 16;

/// Much farther out than any character reaches; a library's arithmetic is not
/// asked what it makes of numbers beyond.
constexpr float FAR_OUT = 100000; ///< pixels

/// The colours' values are sums of 1 for red, 2 for green and 4 for blue.
sf::Color colorOf(int color) {
  if (color < 0 || color > 7)
    return sf::Color::White;
  const auto part = [&](int bit) {
    return static_cast<std::uint8_t>(color & bit ? 255 : 0);
  };
  return sf::Color(part(1), part(2), part(4));
}

} // namespace

Canvas::Canvas(bool with_glyphs) : has_glyphs(with_glyphs) {
  if (has_glyphs)
    has_glyphs = font.openFromFile(GLIDEWING_RUN_DIR "/gw-font.ttf");
  EXPECT_EQ(has_glyphs, with_glyphs) << "no font to compare with";
}

int Canvas::setBackground(int color) {
  background = colorOf(color);
  return gw::DisplayManager::getInstance().setBackgroundColor(
      static_cast<gw::Color>(color));
}

void Canvas::drawCh(gw::Vector where, char ch, int color) {
  EXPECT_EQ(
      gw::DisplayManager::getInstance().drawCh(where, ch, static_cast<gw::Color>(color)),
      0);
  remember(where.getX(), where.getY(), ch, color);
}

void Canvas::drawString(gw::Vector where, const std::string &text, gw::Justification just,
                        int color) {
  EXPECT_EQ(gw::DisplayManager::getInstance().drawString(where, text, just,
                                                         static_cast<gw::Color>(color)),
            0);
  const auto length = static_cast<float>(text.size());
  float x = where.getX();
  if (just == gw::CENTER_JUSTIFIED)
    x -= length / 2;
  if (just == gw::RIGHT_JUSTIFIED)
    x -= length;
  for (std::size_t i = 0; i < text.size(); i++)
    remember(x + static_cast<float>(i), where.getY(), text[i], color);
}

testing::AssertionResult Canvas::isRight() {
  const sf::Image actual = picture();
  sf::RenderWindow &window = *gw::DisplayManager::getInstance().getWindow();
  window.clear(clear_color);
  drawPlainly(window);
  return samePixels(actual, picture());
}

void Canvas::nextFrame() {
  EXPECT_EQ(gw::DisplayManager::getInstance().swapBuffers(), 0);
  characters.clear();
  clear_color = background;
}

void Canvas::remember(float x, float y, char ch, int color) {
  characters.push_back(
      {{x * CELL_WIDTH, y * CELL_HEIGHT}, ch, colorOf(color), background});
}

void Canvas::drawPlainly(sf::RenderTarget &target) const {
  sf::RectangleShape rectangle({CELL_WIDTH, CELL_HEIGHT});
  sf::Text text(font, "", CHARACTER_SIZE);
  text.setStyle(sf::Text::Bold);
  for (const Character &character : characters) {
    const sf::Vector2f position = character.position;
    // Written so that a position that is no number is left out, too.
    if (!(std::abs(position.x) < FAR_OUT && std::abs(position.y) < FAR_OUT))
      continue;
    rectangle.setFillColor(character.background);
    rectangle.setPosition(position + sf::Vector2f(-CELL_WIDTH / 10, CELL_HEIGHT / 5));
    target.draw(rectangle);
    if (!has_glyphs)
      continue;
    text.setString(character.ch);
    text.setFillColor(character.color);
    text.setPosition(position);
    target.draw(text);
  }
}
