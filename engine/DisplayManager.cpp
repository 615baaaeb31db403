#include "DisplayManager.h"

#include "DisplayConnection.h"
#include "LogManager.h"
#include "utility.h"

#include <cmath>
#include <cstdio>
#include <type_traits>

namespace gw {

namespace {

/// Whether the target shows the picture and nothing else.
bool hasDefaultView(const sf::RenderTarget &target) {
  const sf::View &view = target.getView();
  const sf::View &whole = target.getDefaultView();
  return view.getCenter() == whole.getCenter() && view.getSize() == whole.getSize() &&
         view.getRotation() == whole.getRotation() &&
         view.getViewport() == whole.getViewport() &&
         view.getScissor() == whole.getScissor();
}

} // namespace

DisplayManager::DisplayManager() {
  setType("DisplayManager");
}

DisplayManager &DisplayManager::getInstance() {
  static DisplayManager instance;
  return instance;
}

int DisplayManager::startUp() {
  LogManager &log = LogManager::getInstance();
  if (isStarted()) {
    log.writeLog(INFO, "DisplayManager is already started.");
    return 0;
  }
  if (p_window) // left over from a start without a font
    return 0;
  if (!openWindow()) {
    log.writeLog(ERROR, "Unable to allocate game window.");
    std::fprintf(stderr,
                 "%s: cannot open a window. Is there a display (DISPLAY) with "
                 "OpenGL?\n",
                 window_title.c_str());
    return -1;
  }
  p_window->setMouseCursorVisible(false);
  p_window->setVerticalSyncEnabled(true);
  clear();
  // The library throws at a missing file in a working directory that is gone.
  has_font = isRegularFile(FONT_FILE_DEFAULT) && font.openFromFile(FONT_FILE_DEFAULT);
  if (!has_font) {
    log.writeLog(ERROR, "Unable to load font file '%s'.", FONT_FILE_DEFAULT.c_str());
    return -1;
  }
  Manager::startUp();
  log.writeLog(INFO, "DisplayManager is started up.");
  return 0;
}

void DisplayManager::shutDown() {
  LogManager &log = LogManager::getInstance();
  if (!isStarted()) {
    log.writeLog(INFO, "DisplayManager is already shut down.");
    return;
  }
  log.writeLog(INFO, "DisplayManager is shutting down.");
  batch.release();
  font = sf::Font();
  has_font = false;
  if (p_window) {
    p_window->close();
    delete p_window;
    p_window = nullptr;
  }
  Manager::shutDown();
}

sf::RenderWindow *DisplayManager::getWindow() const {
  if (p_window) {
    batch.draw(*p_window);
    batch.shareTarget();
  }
  return p_window;
}

std::optional<sf::Event> DisplayManager::pollEvent() {
  if (!p_window)
    return std::nullopt;
  const std::optional<sf::Event> event = p_window->pollEvent();
  if (!event)
    return event;
  return event->visit([this](auto pending) -> sf::Event {
    using Kind = decltype(pending);
    if constexpr (std::is_same_v<Kind, sf::Event::MouseMoved> ||
                  std::is_same_v<Kind, sf::Event::MouseButtonPressed> ||
                  std::is_same_v<Kind, sf::Event::MouseButtonReleased>)
      pending.position = toPicture(pending.position);
    return pending;
  });
}

void DisplayManager::setKeyRepeatEnabled(bool is_enabled) {
  if (p_window)
    p_window->setKeyRepeatEnabled(is_enabled);
}

sf::Color DisplayManager::mapGlidewingColorToSFMLColor(Color color) const {
  switch (color) {
  case BLACK:
    return sf::Color(0, 0, 0);
  case RED:
    return sf::Color(255, 0, 0);
  case GREEN:
    return sf::Color(0, 255, 0);
  case YELLOW:
    return sf::Color(255, 255, 0);
  case BLUE:
    return sf::Color(0, 0, 255);
  case MAGENTA:
    return sf::Color(255, 0, 255);
  case CYAN:
    return sf::Color(0, 255, 255);
  case WHITE:
    break;
  }
  return sf::Color(255, 255, 255);
}

bool DisplayManager::isGlidewingColorValid(Color color) const {
  return color >= BLACK && color <= WHITE;
}

int DisplayManager::setBackgroundColor(Color new_color) {
  window_background_color = mapGlidewingColorToSFMLColor(new_color);
  if (isGlidewingColorValid(new_color))
    return 0;
  LogManager::getInstance().writeLog(
      WARNING, "Invalid color provided. Using default glidewing color for window "
               "background.");
  return -1;
}

int DisplayManager::drawCh(Vector world_pos, char ch, Color color) const {
  return drawRow(world_pos, 0, std::string_view(&ch, 1), color);
}

int DisplayManager::drawString(Vector world_pos, std::string str, Justification just,
                               Color color) const {
  const auto length = static_cast<float>(str.size());
  float x = world_pos.getX();
  if (just == CENTER_JUSTIFIED)
    x -= length * 0.5f;
  else if (just == RIGHT_JUSTIFIED)
    x -= length;
  return drawRow(Vector(x, world_pos.getY()), 0, str, color);
}

int DisplayManager::drawRow(Vector world_pos, int first, std::string_view row,
                            Color color) const {
  if (!p_window)
    return -1;
  if (!isGlidewingColorValid(color))
    for (std::size_t i = 0; i < row.size(); i++)
      LogManager::getInstance().writeLog(
          WARNING,
          "Invalid color provided. Using default glidewing color for character.");
  const sf::Vector2f cell(charWidth(), charHeight());
  batch.addRow({world_pos.getX() * cell.x, world_pos.getY() * cell.y}, first, row, cell,
               mapGlidewingColorToSFMLColor(color), window_background_color,
               has_font ? &font : nullptr);
  return 0;
}

int DisplayManager::swapBuffers() {
  if (!p_window)
    return -1;
  batch.draw(*p_window);
  p_window->display();
  clear();
  return 0;
}

bool DisplayManager::openWindow() {
  const DisplayConnection connection;
  if (!connection.canOpenWindow())
    return false;
  endProcessOnDisplayLoss();
  const sf::VideoMode mode({static_cast<unsigned>(window_horizontal_pixels),
                            static_cast<unsigned>(window_vertical_pixels)},
                           32);
  p_window = new sf::RenderWindow(mode, window_title, sf::Style::Titlebar,
                                  sf::State::Windowed, sf::ContextSettings());
  if (!p_window->isOpen()) {
    delete p_window;
    p_window = nullptr;
    return false;
  }
#if SFML_VERSION_MAJOR == 3 && SFML_VERSION_MINOR == 0
  // This one opens windows half outside of the screen, and not every window manager
  // brings them back.
  const sf::Vector2i screen(sf::VideoMode::getDesktopMode().size);
  p_window->setPosition((screen - sf::Vector2i(mode.size)) / 2);
#endif
  return true;
}

void DisplayManager::clear() {
  p_window->clear(window_background_color);
  batch.clear({window_horizontal_pixels, window_vertical_pixels},
              window_background_color);
  if (!hasDefaultView(*p_window))
    batch.shareTarget();
}

/// The pixel of the picture that is seen at a pixel of the window.
sf::Vector2i DisplayManager::toPicture(sf::Vector2i window_position) const {
  constexpr float ROUNDING = 1.f / 64; // more than the library's arithmetic is off by
  const sf::Vector2f exact =
      p_window->mapPixelToCoords(window_position, p_window->getDefaultView());
  return {static_cast<int>(std::floor(exact.x + ROUNDING)),
          static_cast<int>(std::floor(exact.y + ROUNDING))};
}

float charWidth() {
  const DisplayManager &display = DisplayManager::getInstance();
  return static_cast<float>(display.getHorizontalPixels()) /
         static_cast<float>(display.getHorizontal());
}

float charHeight() {
  const DisplayManager &display = DisplayManager::getInstance();
  return static_cast<float>(display.getVerticalPixels()) /
         static_cast<float>(display.getVertical());
}

Vector spacesToPixels(Vector spaces) {
  return Vector(spaces.getX() * charWidth(), spaces.getY() * charHeight());
}

Vector pixelsToSpaces(Vector pixels) {
  return Vector(pixels.getX() / charWidth(), pixels.getY() / charHeight());
}

} // namespace gw
