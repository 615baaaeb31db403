#include "Picture.h"

#include "DisplayManager.h"
#include "GameManager.h"
#include "TemporaryDirectory.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>

namespace {

/// Pixels. More than this is no picture for anybody to look at.
constexpr double LARGEST_PICTURE = 1 << 26;

/// Pixels of a cell, and where its background starts: a tenth of the width to the
/// left of it and a fifth of the height below, to the nearest pixel.
constexpr int CELL_WIDTH = 8;
constexpr int CELL_HEIGHT = 16;
constexpr int BACKGROUND_LEFT = -1;
constexpr int BACKGROUND_TOP = 3;

constexpr long long LONGEST_DELAY = 65535; ///< of a frame of a GIF, 1/100 s

int pictureWidth(const gw::Sprite &sprite) {
  return (sprite.getWidth() + 2) * CELL_WIDTH;
}

int pictureHeight(const gw::Sprite &sprite) {
  return (sprite.getHeight() + 2) * CELL_HEIGHT;
}

std::uint8_t blend(std::uint8_t above, std::uint8_t below, int coverage) {
  return static_cast<std::uint8_t>((above * coverage + below * (255 - coverage) + 127) /
                                   255);
}

/// Draws one character over what is there: the background of its cell, then the
/// glyph. @param left pixels, of the cell @param top likewise
void drawCharacter(sf::Image &image, int left, int top, const Glyph &glyph,
                   sf::Color color) {
  for (int y = 0; y < CELL_HEIGHT; y++)
    for (int x = 0; x < CELL_WIDTH; x++)
      image.setPixel(sf::Vector2u(sf::Vector2i(left + BACKGROUND_LEFT + x,
                                               top + BACKGROUND_TOP + y)),
                     sf::Color::Black);
  const sf::Vector2i size(image.getSize());
  for (int y = 0; y < glyph.height; y++)
    for (int x = 0; x < glyph.width; x++) {
      const sf::Vector2i place(left + glyph.left + x, top + glyph.top + y);
      if (place.x < 0 || place.y < 0 || place.x >= size.x || place.y >= size.y)
        continue;
      const int coverage = glyph.coverage[static_cast<std::size_t>(y) *
                                              static_cast<std::size_t>(glyph.width) +
                                          static_cast<std::size_t>(x)];
      const sf::Color below = image.getPixel(sf::Vector2u(place));
      image.setPixel(sf::Vector2u(place), sf::Color(blend(color.r, below.r, coverage),
                                                    blend(color.g, below.g, coverage),
                                                    blend(color.b, below.b, coverage)));
    }
}

/// Copies everything from `source` to `target`. @return whether all of it arrived
bool copy(std::istream &source, std::ostream &target) {
  target << source.rdbuf();
  target.flush();
  return source.good() && target.good();
}

std::string because(const std::string &filename) {
  return filename + ": cannot be written: " + std::strerror(errno);
}

/// Runs a program and waits for its end.
/// @return its exit status; -1 when it died; -2 with `errno` when it did not start
int run(std::vector<std::string> words) {
  std::vector<char *> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string &word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_t child = 0;
  errno = posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ);
  if (errno != 0)
    return -2;
  int status = 0;
  while (waitpid(child, &status, 0) == -1 && errno == EINTR)
    continue;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// 1/100 s that a frame of a GIF stays. The format knows no finer time, so what is
/// rounded at one frame is made up for at the next.
long long delayOf(int frame, int slowdown) {
  const auto timeOf = [slowdown](long long frames) {
    return (frames * slowdown * gw::FRAME_TIME_DEFAULT + 5) / 10;
  };
  return std::min(timeOf(frame + 1LL) - timeOf(frame), LONGEST_DELAY);
}

/// Has ImageMagick make a GIF, by the name that it goes by on this machine.
bool runImageMagick(std::vector<std::string> words, std::string &error) {
  for (const char *name : {"magick", "convert"}) {
    words[0] = name;
    const int status = run(words);
    if (status == 0)
      return true;
    if (status != -2) {
      error = std::string(name) + " (ImageMagick) failed";
      return false;
    }
    error =
        std::string(name) + " (ImageMagick) cannot be started: " + std::strerror(errno);
  }
  return false;
}

} // namespace

bool fitsPicture(const gw::Sprite &sprite, int frame_count) {
  return (sprite.getWidth() + 2.0) * CELL_WIDTH * (sprite.getHeight() + 2.0) *
             CELL_HEIGHT * frame_count <=
         LARGEST_PICTURE;
}

sf::Image drawFrame(const gw::Sprite &sprite, int frame, GlyphRasterizer &rasterizer) {
  const sf::Vector2i size(pictureWidth(sprite), pictureHeight(sprite));
  sf::Image image(sf::Vector2u(size), sf::Color::Black);
  const std::string characters = sprite.getFrame(frame).getString();
  const sf::Color color =
      gw::DisplayManager::getInstance().mapGlidewingColorToSFMLColor(sprite.getColor());
  auto ch = characters.begin();
  for (int y = 1; y <= sprite.getHeight(); y++)
    for (int x = 1; x <= sprite.getWidth(); x++)
      drawCharacter(image, x * CELL_WIDTH, y * CELL_HEIGHT, rasterizer.get(*ch++), color);
  return image;
}

sf::Image drawSheet(const gw::Sprite &sprite, GlyphRasterizer &rasterizer) {
  const sf::Vector2i size(pictureWidth(sprite) * sprite.getFrameCount(),
                          pictureHeight(sprite));
  sf::Image sheet{sf::Vector2u(size)};
  for (int frame = 0; frame < sprite.getFrameCount(); frame++) {
    const sf::Vector2i place(pictureWidth(sprite) * frame, 0);
    static_cast<void>(
        sheet.copy(drawFrame(sprite, frame, rasterizer), sf::Vector2u(place)));
  }
  return sheet;
}

bool writePng(const sf::Image &image, const std::string &filename, std::string &error) {
  // Not saveToFile, which goes by the name's ending.
  const auto bytes = image.saveToMemory("png");
  std::ofstream file(filename, std::ios::binary);
  if (bytes && file)
    file.write(reinterpret_cast<const char *>(bytes->data()),
               static_cast<std::streamsize>(bytes->size()));
  file.flush();
  if (bytes && file)
    return true;
  error = because(filename);
  return false;
}

bool writeGif(const gw::Sprite &sprite, GlyphRasterizer &rasterizer,
              const std::string &filename, std::string &error) {
  const TemporaryDirectory directory;
  if (directory.getPath().empty()) {
    error = "no temporary directory can be made";
    return false;
  }
  // A picture has fewer shades than a GIF has room for. Only without dithering does
  // ImageMagick keep them all.
  std::vector<std::string> words = {"", "-loop", "0", "+dither"};
  const int frame_count = sprite.getSlowdown() == 0 ? 1 : sprite.getFrameCount();
  for (int frame = 0; frame < frame_count; frame++) {
    const std::string picture = directory.getPath() / (std::to_string(frame) + ".png");
    if (!writePng(drawFrame(sprite, frame, rasterizer), picture, error))
      return false;
    words.insert(
        words.end(),
        {"-delay", std::to_string(delayOf(frame, sprite.getSlowdown())), picture});
  }
  // To a name of our own: ImageMagick would read meanings into the user's.
  const std::string gif = directory.getPath() / "sprite.gif";
  words.push_back(gif);
  if (!runImageMagick(words, error))
    return false;
  std::ifstream source(gif, std::ios::binary);
  std::ofstream target(filename, std::ios::binary);
  if (target && copy(source, target))
    return true;
  error = because(filename);
  return false;
}
