#include "internal/Options.h"

#include "internal/Terminal.h"
#include "utility.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>

namespace gw {

namespace {

std::string absolute(const std::string &path) {
  std::error_code error;
  const auto found = std::filesystem::absolute(std::filesystem::u8path(path), error);
  return path.empty() || error ? path : found.u8string();
}

/// Whether windows can be tried. Where they need no server, always.
bool hasDisplay() {
#ifdef __linux__
  const char *p_name = std::getenv("DISPLAY");
  return p_name && *p_name;
#else
  return true;
#endif
}

/// @return the place; `problem` says why it cannot be
Place decidePlace(Place wanted, std::string &problem) {
  const bool looks_for_one = wanted == Place::automatic;
  if (looks_for_one)
    wanted = hasDisplay() ? Place::window : Place::terminal;
  if (wanted == Place::terminal)
    problem = Terminal::findProblem();
  if (looks_for_one && !problem.empty())
    problem = "there is no display (DISPLAY), and " + problem;
  return wanted;
}

} // namespace

void complain(const Game &game, const std::string &message) {
  std::fprintf(stderr, "%s: %s\n", game.name.c_str(), printable(message).c_str());
}

std::optional<Options> readOptions(const Game &game, int argc, char *argv[],
                                   int &status) {
  Options options;
  options.place = game.default_place;
  options.player = game.default_player;
  CLI::App app("", game.name);
  app.failure_message([](const CLI::App *, const CLI::Error &error) {
    return printable(error.what()) + "\nRun with --help for more information.\n";
  });
  std::vector<std::string> names = {HUMAN};
  for (const NamedPlayer &player : game.players)
    names.push_back(player.name);

  const auto place = [&options](Place wanted) {
    return [&options, wanted](std::int64_t) { options.place = wanted; };
  };
  CLI::Option *p_window =
      app.add_flag_function("--window", place(Place::window),
                            "show it in a window; as a rule, where there is a display");
  CLI::Option *p_terminal = app.add_flag_function(
      "--terminal", place(Place::terminal),
      "show it in this terminal, with its mouse; as a rule, where there is no display");
  app.add_flag_function("--headless", place(Place::headless),
                        "show it nowhere, as fast as it goes")
      ->excludes(p_window)
      ->excludes(p_terminal);
  p_terminal->excludes(p_window);
  CLI::Option *p_seed = app.add_option(
      "--seed", options.seed,
      "of the game and its player; as a rule 1, and another each time for a person");
  app.add_option("--steps", options.steps,
                 "end after so many, 33 ms each; 0 goes on until the game is over; as a "
                 "rule 5000 with --headless, else 0")
      ->check(CLI::Range(0, std::numeric_limits<int>::max() - 1000));
  CLI::Option *p_player =
      app.add_option("--player", options.player, "who plays; \"human\" is you")
          ->check(CLI::IsMember(names))
          ->capture_default_str();
  CLI::Option *p_record = app.add_option("--record", options.record_file,
                                         "write seed and input to this file");
  app.add_option("--replay", options.replay_file,
                 "play that recording again; it brings seed and steps")
      ->excludes(p_record)
      ->excludes(p_seed)
      ->excludes(p_player);
  app.add_flag("--digest", options.digest,
               "print a hash of the game's state every 100 steps and at the end");
  std::vector<long long> screen_step;
  CLI::Option *p_screen =
      app.add_option("--screen", screen_step,
                     "print the screen as text, after so many steps or at the end")
          ->expected(0, 1)
          ->type_name("[STEP]")
          ->check(CLI::Range(0, std::numeric_limits<int>::max()));
  app.add_flag("--boxes", options.boxes,
               "draw every object's box and id over the game, and the step's number and "
               "time");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError &error) {
    status = app.exit(error);
    return std::nullopt;
  }
  options.screen = p_screen->count() > 0;
  if (!screen_step.empty() && screen_step.front() > 0) // 0: none was given
    options.screen_step = screen_step.front();
  options.record_file = absolute(options.record_file);
  options.replay_file = absolute(options.replay_file);
  std::string problem;
  options.place = decidePlace(options.place, problem);
  if (problem.empty())
    return options;
  complain(game, problem + "; --help tells where else it can be played");
  status = 1;
  return std::nullopt;
}

} // namespace gw
