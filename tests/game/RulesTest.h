#pragma once

#include "GameTest.h"

#include "Bee.h"
#include "Butterfly.h"
#include "EventClear.h"
#include "EventPin.h"
#include "EventSlow.h"
#include "EventStep.h"
#include "EventUnslow.h"
#include "GameStart.h"
#include "Glidewing.h"
#include "PinBoard.h"
#include "Random.h"
#include "Score.h"
#include "Sequence.h"
#include "Slower.h"
#include "SoldTag.h"
#include "Spawner.h"
#include "tazlet.h"

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>

/// The random numbers that follow a seed, worked out apart from the engine.
struct Dice {
  int roll() {
    state = (state * 214013 + 2531011) % 4294967296;
    return static_cast<int>(state / 65536 % 32768);
  }

  char rollColor() { return "rgbmc"[roll() % 5]; }

  /// The next target of a row.
  std::string rollTarget() {
    const char color = rollColor();
    return {roll() % 2 == 0 ? 'G' : 'B', color};
  }

  unsigned long long state; ///< the seed, at first
};

/// The game's rules, one or a few objects at a time. In these tests an insect is
/// its kind and its colour, "Br" a red butterfly and "Gc" a cyan glidewing, or
/// "bee"; a list of insects is "Br Gc".
class RulesTest : public GameTest {
protected:
  using Lines = std::vector<std::string>;

  Insect *add(const std::string &code, gw::Vector where = {70, 25}) {
    const std::string colors = "?rg?bmc"; // by their values
    if (code == "bee")
      return addInsect<Bee>(gw::BLACK, where);
    const auto color = static_cast<gw::Color>(colors.find(code[1]));
    if (code[0] == 'B')
      return addInsect<Butterfly>(color, where);
    return addInsect<Glidewing>(color, where);
  }

  /// Presses new insects, one after the other; returns the last.
  Insect *pin(const std::string &codes) {
    std::istringstream rest(codes);
    Insect *p_insect = nullptr;
    for (std::string code; rest >> code;) {
      p_insect = add(code);
      press(p_insect->getPosition());
    }
    return p_insect;
  }

  static std::string codeOf(const gw::Object *p_o) {
    const auto *p_insect = dynamic_cast<const Insect *>(p_o);
    return p_insect->getType() == "Bee"
               ? "bee"
               : p_insect->getType().substr(0, 1) + p_insect->getColorAsString()[0];
  }

  /// The picture of its kind in its colour.
  static void expectPicture(const Insect *p_insect) {
    const gw::Sprite *p_sprite = p_insect->getAnimation().getSprite();
    const std::string code = codeOf(p_insect),
                      kind = code[0] == 'B' ? "butterfly" : "glidewing";
    EXPECT_EQ(p_sprite->getLabel(),
              code == "bee" ? "Bee" : kind + "color" + p_insect->getColorAsString());
    EXPECT_TRUE(code == "bee" || p_sprite->getColor() == p_insect->getColor());
  }

  static std::string codesOf(const gw::ObjectList &insects) {
    std::string codes;
    for (int i = 0; i < insects.getCount(); i++)
      codes += (i > 0 ? " " : "") + codeOf(insects[i]);
    return codes;
  }

  /// Makes these the next rows; the first with or without a draw of its length.
  static void seedRows(const Lines &rows, bool draws_length) {
    unsigned seed = 0;
    for (bool fits = false; !fits;) {
      Dice dice{++seed};
      fits = true;
      for (const std::string &row : rows) {
        const auto length = static_cast<int>(row.size() + 1) / 3;
        if (draws_length || &row != &rows.front())
          fits = fits && dice.roll() % 6 + 1 == length;
        for (std::size_t at = 0; at < row.size() && fits; at += 3)
          fits = dice.rollTarget() == row.substr(at, 2);
      }
    }
    gw::srand(seed);
  }

  /// A score and a sequence that shows the first row and will draw the others.
  static void makeRows(const Lines &rows) {
    new Score;
    seedRows(rows, false);
    (new Sequence)->generateSequence(static_cast<int>(rows.front().size() + 1) / 3);
  }

  static void send(const gw::Event &event) { world().onEvent(&event); }

  static void clearWorld() {
    const gw::ObjectList all = world().getAllObjects();
    for (int i = 0; i < all.getCount(); i++)
      world().markForDelete(all[i]);
    world().update();
  }

  static gw::WorldManager &world() { return gw::WorldManager::getInstance(); }
  static PinBoard *board() { return findFirst<PinBoard>(); }
  static std::string pinned() { return codesOf(board()->getPinnedBugs()); }
  static gw::ObjectList row() { return findFirst<Sequence>()->getSequence(); }
  static int score() { return findFirst<Score>()->getScore(); }
  static GameStart *menu() { return findFirst<GameStart>(); }
  static int insects() { return count("Butterfly") + count("Glidewing") + count("Bee"); }

  static Lines sortedTypes() {
    Lines found = types();
    std::sort(found.begin(), found.end());
    return found;
  }

  /// Those lines that match the expression somewhere.
  static Lines matching(const std::string &expression, const Lines &lines) {
    const std::regex wanted(expression);
    Lines found;
    for (const std::string &line : lines)
      if (std::regex_search(line, wanted))
        found.push_back(line);
    return found;
  }

  static long countOf(const std::string &text, const Lines &lines) {
    return std::count(lines.begin(), lines.end(), text);
  }

  /// What board, sequence, spawners and game over wrote while `action` ran. Where
  /// a line describes an insect of the world in full, it has its code.
  static Lines rulesLog(const std::function<void()> &action) {
    Lines log = matching(": (PinBoard|Sequence|Spawner|GameOver)::", logOf(action));
    const gw::ObjectList all = world().getAllObjects();
    for (int i = 0; i < all.getCount(); i++)
      if (const auto *p_insect = dynamic_cast<const Insect *>(all[i])) {
        std::ostringstream address;
        address << static_cast<const void *>(all[i]);
        const std::string type = p_insect->getType(),
                          color = p_insect->getColorAsString(),
                          id = "id " + std::to_string(p_insect->getId()) + ", ";
        const std::pair<std::string, std::string> descriptions[] = {
            {"object " + id + "type " + type + ", color " + color, codeOf(p_insect)},
            {"object " + id + "type " + type + ", and color " + color,
             "and " + codeOf(p_insect)},
            {id + type + " (" + address.str() + ")", codeOf(p_insect)}};
        for (std::string &line : log)
          for (const auto &[full, code] : descriptions)
            if (const auto at = line.find(full); at != std::string::npos)
              line.replace(at, full.size(), code);
      }
    return log;
  }

  /// The same, from a word for each line and the insects and numbers in it.
  static Lines says(const Lines &words) {
    const std::string board = "DEBUG: PinBoard::eventHandler(): ",
                      sequence = "DEBUG: Sequence::eventHandler(): ",
                      match = "DEBUG: Sequence::insectMatchesSequence(): Insect with % ",
                      with = " of Insect with % at sequence index %.";
    static const std::map<std::string, std::string> texts = {
        {"place", board + "Insect with % was pinned. Placing it at Pin Board slot %."},
        {"overflow", board + "The Pin Board overflowed! Transitioning to Game Over."},
        {"delay", "DEBUG: GameOver::deleteGameObjects(): Object with % is on the Pin "
                  "Board. Delaying deletion."},
        {"remove", board + "Removing pinned bug with % at board index %."},
        {"check", sequence + "Insect with % was pinned. Checking if it matches the next "
                             "required Insect at index %."},
        {"match", match + "matched Insect with % at sequence index %."},
        {"type", match + "did not match type" + with},
        {"color", match + "did not match color" + with},
        {"fail",
         sequence + "Sequence failed! Setting next required Sequence index to 0."},
        {"sell", sequence + "Sequence cleared! Sending clear event."},
        {"period", "INFO: Spawner::eventHandler(): Sequence cleared. Increasing Spawner "
                   "spawn frequency. Spawn frequency is now %"},
        {"renew", sequence + "Generating new Sequence."},
        {"show", "DEBUG: Sequence::generateSequence(): Insect with and % placed at "
                 "sequence index %."}};
    Lines found;
    for (const std::string &line : words) {
      std::istringstream rest(line);
      std::string word;
      rest >> word;
      found.push_back(texts.at(word));
      while (rest >> word)
        found.back().replace(found.back().find('%'), 1, word);
    }
    return found;
  }
};
