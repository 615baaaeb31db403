/// The least that shows text in a window with SFML: what there is no way below.
/// Started by bench/table.py in the run directory; needs a display.

#include "Screen.h"

#include <SFML/Graphics.hpp>

int main() {
  using namespace bench;
  sf::RenderWindow window(sf::VideoMode({COLUMNS * CELL_WIDTH, ROWS * CELL_HEIGHT}),
                          "sfml-start");
  const sf::Font font("gw-font.ttf");
  sf::Text text(font, "Press P to play", CELL_HEIGHT);
  text.setStyle(sf::Text::Bold);
  window.clear();
  window.draw(text);
  window.display();
}
