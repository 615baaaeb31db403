#pragma once

#include "Bee.h"
#include "Butterfly.h"
#include "Cursor.h"
#include "EngineTest.h"
#include "EventClear.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "EventPin.h"
#include "EventSlow.h"
#include "EventStep.h"
#include "EventUnslow.h"
#include "GameOver.h"
#include "GameStart.h"
#include "Glidewing.h"
#include "PinBoard.h"
#include "Random.h"
#include "Score.h"
#include "Sequence.h"
#include "Slower.h"
#include "SoldTag.h"
#include "Spawner.h"
#include "Sprite.h"
#include "gameUtility.h"
#include "tazlet.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

/// The game in a started engine without a window: real sprites, no sounds (their
/// absence is part of the game), seed 1 unless the test seeds. In these tests an insect
/// is its kind and its colour, "Br" a red butterfly and "Gc" a cyan glidewing, or "bee";
/// a list of insects is "Br Gc".
class GameTest : public EngineTest {
protected:
  void SetUp() override {
    EngineTest::SetUp();
    std::filesystem::remove_all("tazlet"); // of the test before, in the same process
    std::filesystem::create_directory("tazlet");
    std::filesystem::create_directory_symlink(GLIDEWING_RUN_DIR "/tazlet/sprites",
                                              "tazlet/sprites");
    gw::srand(1);
  }

  /// Loads the sprites, creates border and menu, presses `P`.
  static void startGame() {
    loadResources();
    populateGame();
    pressKey(gw::Keyboard::P);
  }

  /// A new insect at rest, on an empty part of the field.
  static Insect *add(const std::string &code, gw::Vector where = {70, 25}) {
    Insect *p_insect = nullptr;
    if (code == "bee")
      p_insect = new Bee;
    else if (code[0] == 'B')
      p_insect = new Butterfly;
    else
      p_insect = new Glidewing;
    for (const gw::Color color : INSECT_COLORS)
      if (code[1] == gw::definitionOf(color).name[0])
        p_insect->setColor(color);
    p_insect->setPosition(where);
    return p_insect;
  }

  /// Presses new insects, one after the other; returns the last.
  static Insect *pin(const std::string &codes) {
    std::istringstream rest(codes);
    Insect *p_insect = nullptr;
    for (std::string code; rest >> code;) {
      p_insect = add(code);
      press(p_insect->getPosition());
    }
    return p_insect;
  }

  static void pressKey(gw::Keyboard::Key key) {
    gw::EventKeyboard event;
    event.setKey(key);
    event.setKeyboardAction(gw::KEY_PRESSED);
    send(event);
  }
  static void sendMouse(gw::EventMouseAction action, gw::Mouse::Button button,
                        gw::Vector where) {
    gw::EventMouse event;
    event.setMouseAction(action);
    event.setMouseButton(button);
    event.setMousePosition(where);
    send(event);
  }

  /// A press of the left button.
  static void press(gw::Vector where) { sendMouse(gw::PRESSED, gw::Mouse::LEFT, where); }

  static void send(const gw::Event &event) { world().onEvent(&event); }

  /// Makes these the next rows; the first with or without a draw of its length.
  static void seedRows(const Lines &rows, bool draws_length) {
    unsigned seed = 0;
    for (bool fits = false; !fits;) {
      gw::srand(++seed);
      fits = true;
      for (const std::string &row : rows) {
        const auto length = static_cast<int>(row.size() + 1) / 3;
        if (draws_length || &row != &rows.front())
          fits = fits && gw::rand() % 6 + 1 == length;
        for (std::size_t at = 0; at < row.size() && fits; at += 3)
          fits =
              "rgbmc"[gw::rand() % 5] == row[at + 1] && "GB"[gw::rand() % 2] == row[at];
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

  /// Takes every object out of the game, or all spawners, so that nothing comes by
  /// chance.
  static void clearWorld() { removeAll(world().getAllObjects()); }
  static void removeSpawners() { removeAll(world().getAllObjectsOfType("Spawner")); }

  static std::string codeOf(const gw::Object *p_o) {
    const auto *p_insect = dynamic_cast<const Insect *>(p_o);
    return p_insect->getType() == "Bee"
               ? "bee"
               : p_insect->getType().substr(0, 1) + p_insect->getColorAsString()[0];
  }
  static std::string codesOf(const gw::ObjectList &insects) {
    std::string codes;
    for (const gw::Object *p_o : insects)
      codes += (codes.empty() ? "" : " ") + codeOf(p_o);
    return codes;
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

  static PinBoard *board() { return findFirst<PinBoard>(); }
  static std::string pinned() { return codesOf(board()->getPinnedBugs()); }
  static gw::ObjectList row() { return findFirst<Sequence>()->getSequence(); }
  static int progress() { return findFirst<Sequence>()->getCurrentIndex(); }
  static int score() { return findFirst<Score>()->getScore(); }
  static GameStart *menu() { return findFirst<GameStart>(); }

  /// How many there are.
  static int count(const std::string &type) {
    return world().getAllObjectsOfType(type).getCount();
  }
  static int insects() { return count("Butterfly") + count("Glidewing") + count("Bee"); }

  /// The types of all objects in the world, in list order or sorted.
  static Lines types() {
    Lines found;
    for (const gw::Object *p_o : world().getAllObjects())
      found.push_back(p_o->getType());
    return found;
  }
  static Lines sortedTypes() {
    Lines found = types();
    std::sort(found.begin(), found.end());
    return found;
  }

  static long countOf(const std::string &text, const Lines &lines) {
    return std::count(lines.begin(), lines.end(), text);
  }

private:
  static void removeAll(const gw::ObjectList &objects) {
    for (gw::Object *p_o : objects)
      world().markForDelete(p_o);
    world().update();
  }
};
