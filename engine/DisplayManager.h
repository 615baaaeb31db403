#pragma once

#include "Color.h"
#include "Manager.h"
#include "Vector.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace sf {
class Color;
class Event;
class Font;
class RenderWindow;
} // namespace sf

namespace gw {

class CharacterBatch;
class TextScreen;

/// The title in the window's frame.
inline const std::string WINDOW_TITLE_DEFAULT = "Glidewing";

/// A TrueType font in the working directory. A fixed-width one whose characters
/// are half as wide as the character size keeps the grid even.
inline const std::string FONT_FILE_DEFAULT = "gw-font.ttf";

/// The size of the window, in cells and in pixels. A cell is their quotient. @{
constexpr int WINDOW_HORIZONTAL_CHARS_DEFAULT = 128;
constexpr int WINDOW_VERTICAL_CHARS_DEFAULT = 48;
constexpr int WINDOW_HORIZONTAL_PIXELS_DEFAULT = 1024;
constexpr int WINDOW_VERTICAL_PIXELS_DEFAULT = 768;
///@}

/// Where a string lies in respect of the position that it is drawn at.
enum Justification : int {
  LEFT_JUSTIFIED = 0,   ///< starts there
  CENTER_JUSTIFIED = 1, ///< centred on it
  RIGHT_JUSTIFIED = 2,  ///< ends just before it
};

/// Owns the window and shows it as a grid of character cells: x to the right, y
/// downward, (0, 0) the top-left one; positions may lie between cells. Every
/// character, the blank included, paints its cell's background and then a bold
/// glyph over whatever was there; there is no transparent character. Drawing
/// outside the window is no error.
///
/// When a window manager makes the window larger or smaller, the picture is scaled with
/// it: sizes and positions in pixels are everywhere those of the 1024 x 768 picture, the
/// pointer's as well.
///
/// Characters are collected and reach the graphics card together: when the frame is
/// shown, or when somebody asks for the window.
class DisplayManager : public Manager {
public:
  /// The only one.
  static DisplayManager &getInstance();

  /// Closes no window: see `shutDown`.
  ~DisplayManager() override;

  /// Opens the window, hides the mouse pointer, loads the font.
  /// @return 0, also when already started; -1 with an ERROR, and a line on the
  /// standard error stream that says what to do, when the window cannot be opened,
  /// and when the font cannot be loaded: then the window stays until the process
  /// ends, and drawing goes on without glyphs, although the manager is not started.
  /// A further start finds that window, returns 0 and does no more: the font is not
  /// tried again.
  int startUp() override;

  /// Closes the window and releases all that drawing needs.
  void shutDown() override;

  /// The window (`<SFML/Graphics/RenderWindow.hpp>`), with all that was drawn so far in
  /// it; stays this manager's. Null before start-up and after shut-down. The caller may
  /// draw on it, and the rest of this frame becomes slower for that; what was drawn on it
  /// in this frame without asking is lost. To find out whether there is a window, ask
  /// `hasWindow`. A window with a view other than its default one
  /// (a camera) makes every frame slower, and shows what is drawn outside the grid where
  /// the view takes it in.
  sf::RenderWindow *getWindow() const;

  /// Whether the window is open.
  bool hasWindow() const { return p_window != nullptr; }

  /// The window's next pending event (`<SFML/Window/Event.hpp>`); nothing when there is
  /// none, or no window. Positions of the pointer are in the picture, in pixels.
  std::optional<sf::Event> pollEvent();

  /// Whether a key that is held goes on sending presses. Nothing without a window.
  void setKeyRepeatEnabled(bool is_enabled);

  int getHorizontal() const { return window_horizontal_chars; } ///< columns of cells
  int getVertical() const { return window_vertical_chars; }     ///< rows of cells
  int getHorizontalPixels() const { return window_horizontal_pixels; } ///< width
  int getVerticalPixels() const { return window_vertical_pixels; }     ///< height

  /// The colour for SFML (`<SFML/Graphics/Color.hpp>`); white for an invalid one.
  sf::Color mapGlidewingColorToSFMLColor(Color color) const;

  /// Whether it is one of the eight, and not some other number.
  bool isGlidewingColorValid(Color color) const { return isColorValid(color); }

  /// The colour that the next `swapBuffers` clears to and that characters have
  /// behind them from now on.
  /// @return 0, or -1 with a WARNING for an invalid colour (then it is white)
  int setBackgroundColor(Color new_color);

  /// Draws one character, or a string of them side by side, at `world_pos`
  /// (cells). An invalid colour draws in white, with a WARNING.
  /// @return 0, or -1 when there is nothing to draw on (`isDrawable`) @{
  int drawCh(Vector world_pos, char ch, Color color) const;
  int drawString(Vector world_pos, std::string str, Justification just,
                 Color color) const; ///@}

  /// The same for a row of a picture, whose first character is `first` cells to the
  /// right of `world_pos`. All others draw through this.
  int drawRow(const Vector &world_pos, int first, std::string_view row,
              Color color) const;

  /// Shows what was drawn and clears for the next frame.
  /// @return 0, or -1 when there was nothing to draw on
  int swapBuffers();

  /// Whether what is drawn is kept as text as well, from the next frame on: with a
  /// window, or in place of one. Off unless set, and then costs nothing.
  void setTextKept(bool is_kept);

  /// The frame shown last, as text; this manager's, and the next `swapBuffers` overwrites
  /// it. Null where no text is kept. What was drawn on the window itself is not in it.
  const TextScreen *getText() const { return p_shown_text.get(); }

  /// Whether there is a window, or text is kept: whether drawing arrives anywhere.
  bool isDrawable() const { return p_window || p_drawn_text; }

  /// Called before each frame is shown in the window. What it draws is on top of the
  /// frame, and not in the text. An empty function ends it.
  void setOverlay(std::function<void()> new_overlay) { overlay = std::move(new_overlay); }

private:
  DisplayManager();

  bool openWindow();
  bool loadFont();
  void clear();

  /// Owned. Not closed where nobody shuts the manager down: at the end of the process,
  /// what the window library needs for that may be gone already.
  sf::RenderWindow *p_window = nullptr;
  std::unique_ptr<sf::Font> p_font;        ///< null without one
  std::unique_ptr<CharacterBatch> p_batch; ///< drawn, not in the window yet; null without
  std::unique_ptr<TextScreen>
      p_drawn_text; ///< of this frame so far; null where none is kept
  std::unique_ptr<TextScreen>
      p_shown_text;              ///< of the last frame; null where none is kept
  std::function<void()> overlay; ///< may be empty
  std::string window_title = WINDOW_TITLE_DEFAULT;
  int window_horizontal_chars = WINDOW_HORIZONTAL_CHARS_DEFAULT;
  int window_vertical_chars = WINDOW_VERTICAL_CHARS_DEFAULT;
  int window_horizontal_pixels = WINDOW_HORIZONTAL_PIXELS_DEFAULT;
  int window_vertical_pixels = WINDOW_VERTICAL_PIXELS_DEFAULT;
  Color window_background_color = BLACK; ///< may be invalid: then it is white
};

/// Width and height of a cell in pixels. @{
float charWidth();
float charHeight(); ///@}

/// Cells to pixels and back. @{
Vector spacesToPixels(Vector spaces);
Vector pixelsToSpaces(Vector pixels); ///@}

} // namespace gw
