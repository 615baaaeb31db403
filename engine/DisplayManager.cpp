#include "DisplayManager.h"

#include "LogManager.h"
#include "TextScreen.h"
#include "internal/CharacterBatch.h"
#include "internal/DisplayConnection.h"
#include "internal/platform.h"
#include "utility.h"

#include <SFML/Graphics/RenderWindow.hpp>
#include <SFML/Graphics/View.hpp>
#include <SFML/Window/Event.hpp>
#include <SFML/Window/VideoMode.hpp>

#include <cmath>
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

/// The pixel of the picture that is seen at a pixel of the window.
sf::Vector2i toPicture(const sf::RenderWindow &window, sf::Vector2i window_position) {
  constexpr float ROUNDING = 1.f / 64; // more than the library's arithmetic is off by
  const sf::Vector2f exact =
      window.mapPixelToCoords(window_position, window.getDefaultView());
  return {static_cast<int>(std::floor(exact.x + ROUNDING)),
          static_cast<int>(std::floor(exact.y + ROUNDING))};
}

} // namespace

DisplayManager::DisplayManager() {
  setType("DisplayManager");
}

DisplayManager::~DisplayManager() = default;

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
    tell(window_title, "cannot open a window. Is there a display (DISPLAY) with OpenGL?");
    return -1;
  }
  p_window->setMouseCursorVisible(false);
  p_window->setVerticalSyncEnabled(true);
  clear();
  if (!loadFont()) {
    log.writeLog(ERROR, "Unable to load font file '%s'.", FONT_FILE_DEFAULT.c_str());
    tell(window_title, "cannot load the font " + FONT_FILE_DEFAULT +
                           ", so there is no text. Was the program started in the folder "
                           "where it is?");
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
  p_batch.reset();
  p_font.reset();
  delete p_window;
  p_window = nullptr;
  Manager::shutDown();
}

sf::RenderWindow *DisplayManager::getWindow() const {
  if (p_window) {
    p_batch->draw(*p_window);
    p_batch->shareTarget();
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
      pending.position = toPicture(*p_window, pending.position);
    return pending;
  });
}

void DisplayManager::setKeyRepeatEnabled(bool is_enabled) {
  if (p_window)
    p_window->setKeyRepeatEnabled(is_enabled);
}

sf::Color DisplayManager::mapGlidewingColorToSFMLColor(Color color) const {
  const ColorDefinition &definition = definitionOf(color);
  return sf::Color(definition.red, definition.green, definition.blue);
}

int DisplayManager::setBackgroundColor(Color new_color) {
  window_background_color = new_color;
  if (isColorValid(new_color))
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

int DisplayManager::drawRow(const Vector &world_pos, int first, std::string_view row,
                            Color color) const {
  if (!isDrawable())
    return -1;
  if (!isColorValid(color))
    for (std::size_t i = 0; i < row.size(); i++)
      LogManager::getInstance().writeLog(
          WARNING,
          "Invalid color provided. Using default glidewing color for character.");
  if (p_drawn_text)
    p_drawn_text->drawRow(
        Vector(world_pos.getX() + static_cast<float>(first), world_pos.getY()), row,
        color);
  if (!p_window)
    return 0;
  const Vector pixels = spacesToPixels(world_pos);
  p_batch->addRow({pixels.getX(), pixels.getY()}, first, row,
                  mapGlidewingColorToSFMLColor(color),
                  mapGlidewingColorToSFMLColor(window_background_color));
  return 0;
}

int DisplayManager::swapBuffers() {
  if (!isDrawable())
    return -1;
  if (p_drawn_text)
    std::swap(p_drawn_text, p_shown_text);
  if (overlay)
    overlay();
  if (p_window) {
    p_batch->draw(*p_window);
    p_window->display();
    clear();
  }
  if (p_drawn_text)
    p_drawn_text->clear();
  return 0;
}

void DisplayManager::setTextKept(bool is_kept) {
  if (is_kept == (p_drawn_text != nullptr))
    return;
  p_drawn_text = is_kept ? std::make_unique<TextScreen>() : nullptr;
  p_shown_text = is_kept ? std::make_unique<TextScreen>() : nullptr;
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
#if GW_IS_SFML_3_0
  // This one opens windows half outside of the screen, and not every window manager
  // brings them back.
  const sf::Vector2i screen(sf::VideoMode::getDesktopMode().size);
  p_window->setPosition((screen - sf::Vector2i(mode.size)) / 2);
#endif
  p_batch = std::make_unique<CharacterBatch>(sf::Vector2i(mode.size),
                                             sf::Vector2f(charWidth(), charHeight()));
  return true;
}

bool DisplayManager::loadFont() {
  // The library throws at a missing file in a working directory that is gone.
  if (!isRegularFile(FONT_FILE_DEFAULT))
    return false;
  p_font = std::make_unique<sf::Font>();
  if (!p_font->openFromFile(FONT_FILE_DEFAULT)) {
    p_font.reset();
    return false;
  }
  p_batch->setFont(*p_font);
  return true;
}

void DisplayManager::clear() {
  p_batch->clear(mapGlidewingColorToSFMLColor(window_background_color));
  if (!hasDefaultView(*p_window)) {
    p_batch->draw(*p_window);
    p_batch->shareTarget();
  }
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
