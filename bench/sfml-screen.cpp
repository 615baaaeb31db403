/// The plain way to draw text art with SFML: a rectangle and a text for every cell.
/// Started by bench/table.py in the run directory; needs a display.

#include "Screen.h"
#include "timeSteps.h"

#include <SFML/Graphics.hpp>

namespace {

void FullScreen(benchmark::State &state) {
  using namespace bench;
  sf::RenderWindow window(sf::VideoMode({COLUMNS * CELL_WIDTH, ROWS * CELL_HEIGHT}),
                          "sfml-screen");
  const sf::Font font("gw-font.ttf");
  // The kinder way: a new text for every cell takes several times as long.
  sf::RectangleShape background({CELL_WIDTH, CELL_HEIGHT});
  background.setFillColor(sf::Color::Black);
  sf::Text text(font, "", CELL_HEIGHT);
  text.setStyle(sf::Text::Bold);

  int frame = 0;
  const auto draw_frame = [&] {
    window.clear();
    for (int y = 0; y < ROWS; y++)
      for (int x = 0; x < COLUMNS; x++) {
        const sf::Vector2f corner(sf::Vector2i(x * CELL_WIDTH, y * CELL_HEIGHT));
        const gw::ColorDefinition &color = gw::definitionOf(colorAt(x, y, frame));
        // Where the engine has it: a letter sits lower in its line than in its cell.
        background.setPosition(corner +
                               sf::Vector2f(-CELL_WIDTH / 10.f, CELL_HEIGHT / 5.f));
        window.draw(background);
        text.setString(characterAt(x, y, frame));
        text.setPosition(corner);
        text.setFillColor(sf::Color(color.red, color.green, color.blue));
        window.draw(text);
      }
    window.display();
    frame++;
  };
  timeSteps(state, draw_frame);
}
BENCHMARK(FullScreen)->UseManualTime();

} // namespace

BENCHMARK_MAIN();
