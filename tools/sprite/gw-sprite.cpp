/// Checks sprite files, shows them and makes pictures of them: for those who draw
/// for the game.

#include "DisplayManager.h"
#include "Picture.h"
#include "SpriteLoader.h"
#include "TerminalPlayer.h"
#include "internal/platform.h"
#include "utility.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <string>
#include <system_error>
#include <vector>

namespace {

/// Exit statuses.
constexpr int GOOD = 0;
constexpr int FAILED = 1;
constexpr int WRONG_USAGE = 2;

constexpr int NO_FRAME = -1;
constexpr int MANY = -1;

struct Options {
  std::vector<std::string> files; ///< one, but for `check`
  int frame = NO_FRAME;
  bool all = false;
  std::string output;
  std::string font;
};

int fail(const std::string &reason) {
  std::fprintf(stderr, "gw-sprite: %s\n", gw::printable(reason).c_str());
  return FAILED;
}

int check(const Options &options, SpriteLoader &loader) {
  int status = GOOD;
  for (const std::string &file : options.files) {
    const LoadedSprite loaded = loader.load(file);
    if (!loaded.sprite)
      status = FAILED;
    else
      std::printf("%s: good, frames: %d of %d x %d\n", gw::printable(file).c_str(),
                  loaded.sprite->getFrameCount(), loaded.sprite->getWidth(),
                  loaded.sprite->getHeight());
    for (const std::string &message : loaded.messages)
      std::fprintf(stderr, "%s\n", message.c_str());
  }
  return status;
}

/// Reads the file that is to be shown or drawn, and says what is wrong with it or
/// with the frame asked for. @return whether to go on
bool load(const Options &options, SpriteLoader &loader, LoadedSprite &loaded) {
  const std::string &file = options.files.front();
  loaded = loader.load(file);
  for (const std::string &message : loaded.messages)
    std::fprintf(stderr, "%s\n", message.c_str());
  if (!loaded.sprite)
    return false;
  const int last = loaded.sprite->getFrameCount() - 1;
  if (options.frame > last)
    fail(file + ": no frame " + std::to_string(options.frame) + ", the last one is " +
         std::to_string(last));
  return options.frame <= last;
}

int show(const Options &options, SpriteLoader &loader) {
  LoadedSprite loaded;
  if (!load(options, loader, loaded))
    return FAILED;
  if (options.frame != NO_FRAME)
    printFrame(*loaded.sprite, options.frame);
  else if (isTerminal())
    play(options.files.front(), loaded);
  else
    printFrames(*loaded.sprite);
  return GOOD;
}

int draw(const Options &options, SpriteLoader &loader, bool animated) {
  LoadedSprite loaded;
  if (!load(options, loader, loaded))
    return FAILED;
  const gw::Sprite &sprite = *loaded.sprite;
  if (!fitsPicture(sprite, animated || options.all ? sprite.getFrameCount() : 1))
    return fail(options.files.front() + ": too large for a picture");
  std::error_code ignored;
  for (const std::string &source : {options.files.front(), options.font})
    if (std::filesystem::equivalent(source, options.output, ignored))
      return fail(options.output + ": is what the picture is made from");
  GlyphRasterizer rasterizer;
  if (!rasterizer.open(options.font))
    return fail(options.font + ": no font that can be read; name one with --font");
  std::string error;
  bool written = false;
  if (animated)
    written = writeGif(sprite, rasterizer, options.output, error);
  else if (options.all)
    written = writePng(drawSheet(sprite, rasterizer), options.output, error);
  else
    written = writePng(drawFrame(sprite, std::max(options.frame, 0), rasterizer),
                       options.output, error);
  return written ? GOOD : fail(error);
}

/// The font that the build stages for the game; elsewhere the one that is installed with
/// the engine.
std::string gamesFont() {
  std::error_code ignored;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  const auto directory = program.parent_path();
  const std::string staged = directory / "run" / gw::FONT_FILE_DEFAULT;
  return gw::isRegularFile(staged) ? staged : (directory / GW_INSTALLED_FONT).string();
}

/// @param file_count how many files it wants, or `MANY`
CLI::App *addCommand(CLI::App &app, Options &options, const char *name,
                     const char *description, int file_count = 1) {
  CLI::App *p_command = app.add_subcommand(name, description);
  CLI::Option *p_files = p_command->add_option("FILE", options.files, "sprite file");
  p_files->required();
  if (file_count != MANY)
    p_files->expected(file_count);
  return p_command;
}

void addPictureOptions(CLI::App *p_command, Options &options) {
  p_command->add_option("-o,--output", options.output, "file to write")->required();
  p_command->add_option("--font", options.font, "font file; as a rule the game's")
      ->capture_default_str();
}

CLI::Option *addFrameOption(CLI::App *p_command, Options &options,
                            const char *description) {
  return p_command->add_option("--frame", options.frame, description)
      ->check(CLI::Range(0, std::numeric_limits<int>::max()));
}

/// Reads the command line and does what it says. @return the exit status
int run(int argc, char **argv) {
  CLI::App app("Checks sprite files, shows them and makes pictures of them.",
               "gw-sprite");
  app.failure_message([](const CLI::App *, const CLI::Error &error) {
    return gw::printable(error.what()) + "\nRun with --help for more information.\n";
  });
  app.require_subcommand(1);
  app.footer("Exit status: 0 when all is good, 1 when a file is bad or the work could "
             "not be done,\n2 for wrong usage. docs/sprite-format.md says what a sprite "
             "file is.");
  Options options;
  options.font = gamesFont();
  const CLI::App *p_check =
      addCommand(app, options, "check", "Say what the game's loader finds wrong", MANY);
  CLI::App *p_show = addCommand(app, options, "show",
                                "Play on a terminal, at the game's speed, until Ctrl-C; "
                                "elsewhere print all frames, one under the other");
  addFrameOption(p_show, options, "print this frame and end; the first is 0");
  CLI::App *p_png = addCommand(
      app, options, "png", "Draw a frame as the game does, with a margin of one cell");
  addPictureOptions(p_png, options);
  CLI::Option *p_frame =
      addFrameOption(p_png, options, "which one; the first is 0, and drawn by default");
  p_png->add_flag("--all", options.all, "all frames, side by side")->excludes(p_frame);
  CLI::App *p_gif = addCommand(app, options, "gif",
                               "Draw all frames as an animation at the game's speed; "
                               "needs ImageMagick");
  addPictureOptions(p_gif, options);
  const CLI::App *p_watch =
      addCommand(app, options, "watch",
                 "Show again on every save, or say what is wrong, until Ctrl-C");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError &error) {
    return app.exit(error) == 0 ? GOOD : WRONG_USAGE;
  }
  SpriteLoader loader;
  std::string error;
  if (!loader.startUp(error))
    return fail(error);
  if (p_check->parsed())
    return check(options, loader);
  if (p_show->parsed())
    return show(options, loader);
  if (p_watch->parsed()) {
    watch(options.files.front(), loader);
    return GOOD;
  }
  return draw(options, loader, p_gif->parsed());
}

} // namespace

int main(int argc, char **argv) {
  gw::keepStandardStreams();
  const int status = run(argc, argv);
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
    return fail("standard output cannot be written");
  return status;
}
