#pragma once

#include "WindowTest.h"

#include <cctype>
#include <cmath>

/// Draws through the display manager and remembers every character, to compare
/// what the window then holds with the same characters drawn the plain way: for
/// each a rectangle in the background's colour and a bold `sf::Text` on top.
class Canvas {
public:
  /// @param with_glyphs false where the display manager has no font
  explicit Canvas(bool with_glyphs = true) : has_glyphs(with_glyphs) {
    EXPECT_TRUE(!with_glyphs || font.openFromFile(GLIDEWING_RUN_DIR "/gw-font.ttf"));
  }

  /// Colours may be invalid, and places outside the window.
  /// @return what the display manager did
  int setBackground(int color) {
    background = colorOf(color);
    return display.setBackgroundColor(static_cast<gw::Color>(color));
  }

  void drawCh(gw::Vector where, char ch, int color) {
    EXPECT_EQ(display.drawCh(where, ch, static_cast<gw::Color>(color)), 0);
    remember(where.getX(), where.getY(), ch, color);
  }

  void drawString(gw::Vector where, const std::string &text, gw::Justification just,
                  int color) {
    EXPECT_EQ(display.drawString(where, text, just, static_cast<gw::Color>(color)), 0);
    const auto length = static_cast<float>(text.size());
    const bool centered = just == gw::CENTER_JUSTIFIED;
    float x = where.getX();
    x -= centered ? length / 2 : just == gw::RIGHT_JUSTIFIED ? length : 0;
    for (std::size_t i = 0; i < text.size(); i++)
      remember(x + static_cast<float>(i), where.getY(), text[i], color);
  }

  /// Whether the window holds what was drawn since the last frame. It holds the
  /// same afterwards, so the frame may go on.
  testing::AssertionResult isRight() const {
    const sf::Image actual = picture();
    sf::RenderWindow &window = *display.getWindow();
    window.clear(clear_color);
    sf::RectangleShape rectangle({8, 16});
    sf::Text text(font, "", 16);
    text.setStyle(sf::Text::Bold);
    for (const Character &character : characters) {
      rectangle.setFillColor(character.background);
      rectangle.setPosition(character.position + sf::Vector2f(-0.8f, 3.2f));
      window.draw(rectangle);
      text.setString(character.ch);
      text.setFillColor(character.color);
      text.setPosition(character.position);
      // The library shows boxes for control characters before version 3.1.
      if (has_glyphs && !std::iscntrl(static_cast<unsigned char>(character.ch)))
        window.draw(text);
    }
    return samePixels(actual, picture());
  }

  /// Shows the frame and begins the next.
  void nextFrame() {
    EXPECT_EQ(display.swapBuffers(), 0);
    characters.clear();
    clear_color = background;
  }

private:
  struct Character {
    sf::Vector2f position; ///< pixels
    char ch;
    sf::Color color, background;
  };

  /// The colours' values are sums of 1 for red, 2 for green and 4 for blue.
  static sf::Color colorOf(int color) {
    const int bits = color < 0 || color > 7 ? 7 : color;
    return sf::Color(bits & 1 ? 255 : 0, bits & 2 ? 255 : 0, bits & 4 ? 255 : 0);
  }

  void remember(float x, float y, char ch, int color) {
    // Farther out than any character reaches, a library's arithmetic is not asked what
    // it makes of the numbers. Written so that what is no number is left out, too.
    if (std::abs(x) < 10000 && std::abs(y) < 10000)
      characters.push_back({{x * 8, y * 16}, ch, colorOf(color), background});
  }

  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  sf::Font font;
  bool has_glyphs;
  sf::Color background = sf::Color::Black;
  sf::Color clear_color = sf::Color::Black; ///< of this frame
  std::vector<Character> characters;
};
