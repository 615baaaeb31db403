#include "Picture.h"

#include "DisplayManager.h"
#include "GameManager.h"
#include "SignalBlock.h"
#include "TemporaryDirectory.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>
#include <thread>

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

using Bytes = std::vector<std::uint8_t>;

std::error_code lastError() {
  return {errno, std::generic_category()};
}

/// @return why it could not be done, if so
std::error_code writeBytes(const std::filesystem::path &filename, const Bytes &bytes) {
  std::ofstream file(filename, std::ios::binary);
  file.write(reinterpret_cast<const char *>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file ? std::error_code() : lastError();
}

/// Puts a new file in the place of that one, if there is one, with its permissions. It
/// is written beside it, so that the old one is there until the new one is complete.
/// @return as above
std::error_code replaceFile(const std::filesystem::path &filename, const Bytes &bytes) {
  const TemporaryDirectory beside(filename.parent_path());
  if (beside.getPath().empty())
    return lastError();
  const std::filesystem::path written = beside.getPath() / "picture";
  std::error_code failed = writeBytes(written, bytes);
  if (failed)
    return failed;
  const auto status = std::filesystem::status(filename, failed);
  if (exists(status))
    std::filesystem::permissions(written, status.permissions(), failed);
  std::filesystem::rename(written, filename, failed);
  return failed;
}

/// Writes a picture to a file; to a device or a pipe, too.
bool writePicture(const Bytes &bytes, const std::string &filename, std::string &error) {
  // A link stays one, and leads to the picture.
  std::error_code unknown;
  const auto place = std::filesystem::weakly_canonical(
      std::filesystem::absolute(filename, unknown), unknown);
  const auto status = std::filesystem::status(filename, unknown);
  const bool is_file = !exists(status) || is_regular_file(status);
  const std::error_code failed =
      is_file && !place.empty() ? replaceFile(place, bytes) : writeBytes(filename, bytes);
  if (failed)
    error = filename + ": cannot be written: " + failed.message();
  return !failed;
}

/// @return nothing, with `error` set, when memory does not suffice
std::optional<Bytes> encode(const sf::Image &image, std::string &error) {
  // Not saveToFile, which goes by the name's ending.
  std::optional<Bytes> bytes = image.saveToMemory("png");
  if (!bytes)
    error = "the picture cannot be encoded";
  return bytes;
}

/// Waits for the end of a child process, and brings it about when this one is to end.
/// @return what waitpid tells of it
int waitFor(pid_t child) {
  constexpr std::chrono::milliseconds PAUSE(10);
  int status = 0;
  while (waitpid(child, &status, WNOHANG) == 0) {
    if (SignalBlock::isPending())
      kill(child, SIGTERM);
    std::this_thread::sleep_for(PAUSE);
  }
  return status;
}

/// Runs a program, to which no signal is blocked, and waits for its end.
/// @return its exit status; -1 when it died; -2 with `errno` when it did not start
int run(std::vector<std::string> words) {
  std::vector<char *> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string &word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawnattr_t attributes{};
  sigset_t nothing{};
  sigemptyset(&nothing);
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigmask(&attributes, &nothing);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
  pid_t child = 0;
  const int failure =
      posix_spawnp(&child, arguments[0], nullptr, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  errno = failure;
  if (failure != 0)
    return -2;
  const int status = waitFor(child);
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

/// The animation's bytes. @return nothing, with `error` set, when it cannot be made
std::optional<Bytes> makeGif(const gw::Sprite &sprite, GlyphRasterizer &rasterizer,
                             std::string &error) {
  const TemporaryDirectory directory;
  if (directory.getPath().empty()) {
    error = "no temporary directory can be made";
    return std::nullopt;
  }
  // A picture has fewer shades than a GIF has room for. Only without dithering does
  // ImageMagick keep them all.
  std::vector<std::string> words = {"", "-loop", "0", "+dither"};
  const int frame_count = sprite.getSlowdown() == 0 ? 1 : sprite.getFrameCount();
  for (int frame = 0; frame < frame_count; frame++) {
    const auto bytes = encode(drawFrame(sprite, frame, rasterizer), error);
    if (!bytes || SignalBlock::isPending())
      return std::nullopt;
    const std::string picture = directory.getPath() / (std::to_string(frame) + ".png");
    if (const std::error_code failed = writeBytes(picture, *bytes)) {
      error = picture + ": cannot be written: " + failed.message();
      return std::nullopt;
    }
    words.insert(
        words.end(),
        {"-delay", std::to_string(delayOf(frame, sprite.getSlowdown())), picture});
  }
  // To a name of our own: ImageMagick would read meanings into the user's.
  const std::string gif = directory.getPath() / "sprite.gif";
  words.push_back(gif);
  if (!runImageMagick(words, error))
    return std::nullopt;
  std::ifstream file(gif, std::ios::binary);
  Bytes bytes(std::istreambuf_iterator<char>(file), {});
  if (!bytes.empty())
    return bytes;
  error = gif + ": cannot be read";
  return std::nullopt;
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
  const auto bytes = encode(image, error);
  return bytes && writePicture(*bytes, filename, error);
}

bool writeGif(const gw::Sprite &sprite, GlyphRasterizer &rasterizer,
              const std::string &filename, std::string &error) {
  const auto bytes = makeGif(sprite, rasterizer, error);
  return bytes && writePicture(*bytes, filename, error);
}
