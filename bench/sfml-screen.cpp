/// What SFML alone takes for a frame: the plain way to draw text art, and the least that
/// anything takes. Started by bench/table.py in the run directory; needs a display.

#include "Screen.h"
#include "timeSteps.h"

#include <SFML/Graphics.hpp>

#include <cstdint>
#include <vector>

namespace {

sf::RenderWindow openWindow() {
  return sf::RenderWindow(sf::VideoMode({bench::COLUMNS * bench::CELL_WIDTH,
                                         bench::ROWS * bench::CELL_HEIGHT}),
                          "sfml-screen");
}

/// The plain way to draw text art: a rectangle and a text for every cell.
void FullScreen(benchmark::State &state) {
  using namespace bench;
  sf::RenderWindow window = openWindow();
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

/// Nothing but clearing and showing.
void EmptyFrame(benchmark::State &state) {
  sf::RenderWindow window = openWindow();
  bench::timeSteps(state, [&window] {
    window.clear();
    window.display();
  });
}
BENCHMARK(EmptyFrame)->UseManualTime();

/// The least that shows a full screen of something new: one upload, one rectangle.
void Picture(benchmark::State &state) {
  sf::RenderWindow window = openWindow();
  const sf::Vector2u size = window.getSize();
  std::vector<std::uint8_t> pixels(std::size_t{4} * size.x * size.y, 255);
  sf::Texture texture(size);
  const sf::Sprite sprite(texture);
  bench::timeSteps(state, [&] {
    pixels.front()++;
    texture.update(pixels.data());
    window.draw(sprite, sf::BlendNone);
    window.display();
  });
}
BENCHMARK(Picture)->UseManualTime();

} // namespace

BENCHMARK_MAIN();
