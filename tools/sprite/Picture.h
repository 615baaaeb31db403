#pragma once

#include "GlyphRasterizer.h"
#include "Sprite.h"

#include <SFML/Graphics/Image.hpp>

#include <string>
#include <vector>

/// Pictures of a sprite as the game draws it, with one cell of black on every side,
/// because glyphs reach beyond their cells. Of the functions that write files, each
/// returns whether it did, and if not, sets `error` to the reason; then a file that was
/// there before is as it was.

/// Whether so many frames fit a picture of a sensible size.
bool fitsPicture(const gw::Sprite &sprite, int frame_count);

/// @param frame 0 up to but not including the sprite's frame count
sf::Image drawFrame(const gw::Sprite &sprite, int frame, GlyphRasterizer &rasterizer);

/// All frames side by side.
sf::Image drawSheet(const gw::Sprite &sprite, GlyphRasterizer &rasterizer);

bool writePng(const sf::Image &image, const std::string &filename, std::string &error);

/// Writes all frames as an animation at the game's speed that never ends; a sprite
/// that stands still becomes its first frame. ImageMagick does the encoding.
bool writeGif(const gw::Sprite &sprite, GlyphRasterizer &rasterizer,
              const std::string &filename, std::string &error);
