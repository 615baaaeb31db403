#pragma once

#include "EventMouse.h"
#include "Insect.h"
#include "Player.h"

#include <array>
#include <random>
#include <vector>

/// Ways to play.
enum class Profile {
  skilled, ///< pins what the row asks for, and bees that come near
  random,  ///< moves and presses anywhere
  greedy,  ///< pins whatever is nearest: every game ends soon
  hostile, ///< several events on every step, everything everywhere: any key but
           ///< `Q`, all buttons, outside the window, on what has just been pressed
};

/// What players call it.
struct NamedProfile {
  const char *name;
  Profile profile;
};

/// All profiles.
inline constexpr std::array<NamedProfile, 4> PROFILES = {{
    {"skilled", Profile::skilled},
    {"random", Profile::random},
    {"greedy", Profile::greedy},
    {"hostile", Profile::hostile},
}};

/// Plays by itself, game after game. What it does depends on nothing but the seed
/// and the world; it does not touch the game's own generator.
class AutoPlayer : public gw::Player {
public:
  AutoPlayer(Profile init_profile, unsigned seed);

  void play(int step) override;

private:
  void leaveMenu();
  void playWell();
  void playRandomly();
  void playGreedily();
  void playHostilely();

  /// Moves the pointer towards the insect, as far as a hand gets in a step, and
  /// presses when it is there.
  void goFor(const Insect &insect);
  void moveTowards(gw::Vector goal);
  void pressAt(gw::Vector where);

  int drawNumber(int bound); ///< a random number, 0 up to but not including `bound`
  gw::Vector drawPosition();

  Profile profile;
  std::minstd_rand chance;
  gw::Vector pointer; ///< cells
  bool is_pressing = false;
  int menu_steps = 0; ///< that the menu has been active
};
