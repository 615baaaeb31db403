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

/// The game in a started engine without a window: real sprites, no sounds (their
/// absence is part of the game), seed 1 unless the test seeds. In these tests an insect
/// is its kind and its colour, "Br" a red butterfly and "Gc" a cyan glidewing, or "bee";
/// a list of insects is "Br Gc".
class GameTest : public EngineTest {
protected:
  void SetUp() override;

  /// Loads the sprites, creates border and menu, presses `P`.
  static void startGame();

  /// A new insect at rest, on an empty part of the field.
  static Insect *add(const std::string &code, gw::Vector where = {70, 25});

  /// Presses new insects, one after the other; returns the last.
  static Insect *pin(const std::string &codes);

  static void pressKey(gw::Keyboard::Key key);
  static void sendMouse(gw::EventMouseAction action, gw::Mouse::Button button,
                        gw::Vector where);

  /// A press of the left button.
  static void press(gw::Vector where);

  static void send(const gw::Event &event) { world().onEvent(&event); }

  /// Makes these the next rows; the first with or without a draw of its length.
  static void seedRows(const Lines &rows, bool draws_length);

  /// A score and a sequence that shows the first row and will draw the others.
  static void makeRows(const Lines &rows);

  /// Takes every object out of the game, or all spawners, so that nothing comes by
  /// chance.
  static void clearWorld() { removeAll(world().getAllObjects()); }
  static void removeSpawners() { removeAll(world().getAllObjectsOfType("Spawner")); }

  static std::string codeOf(const gw::Object *p_o);
  static std::string codesOf(const gw::ObjectList &insects);

  /// The picture of its kind in its colour.
  static void expectPicture(const Insect *p_insect);

  static PinBoard *board() { return findFirst<PinBoard>(); }
  static std::string pinned() { return codesOf(board()->getPinnedBugs()); }
  static gw::ObjectList row() { return findFirst<Sequence>()->getSequence(); }
  static int progress() { return findFirst<Sequence>()->getCurrentIndex(); }
  static int score() { return findFirst<Score>()->getScore(); }
  static GameStart *menu() { return findFirst<GameStart>(); }

  /// How many there are.
  static int count(const std::string &type);
  static int insects() { return count("Butterfly") + count("Glidewing") + count("Bee"); }

  /// The types of all objects in the world, in list order or sorted.
  static Lines types();
  static Lines sortedTypes();

  static long countOf(const std::string &text, const Lines &lines);

private:
  static void removeAll(const gw::ObjectList &objects);
};
