#pragma once

#include "DisplayManager.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Draws through the display manager and remembers every character, to compare
/// what the window then holds with the same characters drawn the plain way: for
/// each a rectangle in the background's colour and a bold `sf::Text` on top.
class Canvas {
public:
  /// @param with_glyphs false where the display manager has no font
  explicit Canvas(bool with_glyphs = true);

  /// Colours may be invalid, and places outside the window.
  /// @return what the display manager did
  int setBackground(int color);
  void drawCh(gw::Vector where, char ch, int color);
  void drawString(gw::Vector where, const std::string &text, gw::Justification just,
                  int color);

  /// Whether the window holds what was drawn since the last frame. It holds the
  /// same afterwards, so the frame may go on.
  testing::AssertionResult isRight();

  /// Shows the frame and begins the next.
  void nextFrame();

private:
  struct Character {
    sf::Vector2f position; ///< pixels
    char ch;
    sf::Color color;
    sf::Color background;
  };

  void remember(float x, float y, char ch, int color);
  void drawPlainly(sf::RenderTarget &target) const;

  sf::Font font;
  bool has_glyphs;
  sf::Color background = sf::Color::Black;
  sf::Color clear_color = sf::Color::Black; ///< of this frame
  std::vector<Character> characters;
};
