#include "GameTest.h"

#include <sstream>

namespace {

const std::string BOARD = "DEBUG: PinBoard::eventHandler(): ";
const std::string SEQUENCE = "DEBUG: Sequence::eventHandler(): ";

/// An insect as lines of the log describe it.
std::string described(const gw::Object *p_o) {
  return "object id " + std::to_string(p_o->getId()) + ", type " + p_o->getType() +
         ", color " + dynamic_cast<const Insect *>(p_o)->getColorAsString();
}

class GameLogTest : public GameTest {
protected:
  /// What board, sequence and the end of the game write while it is pressed.
  static Lines logOfPress(const Insect *p_insect) {
    return matching(": (PinBoard|Sequence|GameOver)::",
                    logOf([&] { press(p_insect->getPosition()); }));
  }

  static std::string taken(const Insect *p_insect, int slot) {
    return BOARD + "Insect with " + described(p_insect) +
           " was pinned. Placing it at Pin Board slot " + std::to_string(slot) + ".";
  }

  static std::string checked(const Insect *p_insect, int index) {
    return SEQUENCE + "Insect with " + described(p_insect) +
           " was pinned. Checking if it matches the next required Insect at index " +
           std::to_string(index) + ".";
  }

  static std::string compared(const Insect *p_insect, const std::string &verdict,
                              const gw::ObjectList &targets, int index) {
    return "DEBUG: Sequence::insectMatchesSequence(): Insect with " +
           described(p_insect) + " " + verdict + " Insect with " +
           described(targets[index]) + " at sequence index " + std::to_string(index) +
           ".";
  }
};

} // namespace

TEST_F(GameLogTest, TellsOfEveryPinWhatItIsComparedWithAndOfEverySale) {
  new PinBoard;
  makeRows({"Br Gb"});
  const gw::ObjectList old_row = row();
  const Insect *p_first = add("Br"), *p_wrong = add("Gr", {1, 1});
  EXPECT_EQ(logOfPress(p_first), (Lines{taken(p_first, 1), checked(p_first, 0),
                                        compared(p_first, "matched", old_row, 0)}));
  EXPECT_EQ(
      logOfPress(p_wrong),
      (Lines{taken(p_wrong, 2), checked(p_wrong, 1),
             compared(p_wrong, "did not match color of", old_row, 1),
             SEQUENCE + "Sequence failed! Setting next required Sequence index to 0.",
             compared(p_wrong, "did not match type of", old_row, 0)}));
  const Insect *p_second = pin("Br"), *p_last = add("Gb", {1, 1});
  seedRows({"Gm"}, true);
  const Lines log = logOfPress(p_last);
  const std::string target = described(row()[0]);
  EXPECT_EQ(
      log,
      (Lines{
          taken(p_last, 4), checked(p_last, 1), compared(p_last, "matched", old_row, 1),
          SEQUENCE + "Sequence cleared! Sending clear event.",
          BOARD + "Removing pinned bug with " + described(p_second) +
              " at board index 2.",
          BOARD + "Removing pinned bug with " + described(p_last) + " at board index 3.",
          SEQUENCE + "Generating new Sequence.",
          "DEBUG: Sequence::generateSequence(): Insect with " +
              target.substr(0, target.find(" color")) + " and" +
              target.substr(target.find(" color")) + " placed at sequence index 0.",
          compared(p_first, "did not match type of", row(), 0),
          compared(p_wrong, "did not match color of", row(), 0)}));
}

TEST_F(GameLogTest, TellsOfAFullBoardAndOfEveryInsectThatStaysOnItForNow) {
  new PinBoard;
  pin("Br Gg Bb Gm Bc Gr Bg");
  const Insect *p_last = add("Gb", {1, 1});
  const Lines log = logOfPress(p_last);
  Lines expected = {taken(p_last, 8), BOARD + "The Pin Board overflowed! Transitioning "
                                              "to Game Over."};
  for (int i = 0; i < 8; i++) {
    const gw::Object *p_o = board()->getPinnedBugs()[i];
    std::ostringstream line;
    line << "DEBUG: GameOver::deleteGameObjects(): Object with id " << p_o->getId()
         << ", " << p_o->getType() << " (" << static_cast<const void *>(p_o)
         << ") is on the Pin Board. Delaying deletion.";
    expected.push_back(line.str());
  }
  EXPECT_EQ(log, expected);
}
