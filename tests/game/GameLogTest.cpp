#include "GameTest.h"

#include <regex>

namespace {

/// Insects are described as "Br#7": a red butterfly whose id is 7.
class GameLogTest : public GameTest {
protected:
  /// A new insect is pressed; what board, sequence and the end of the game write then.
  static Lines logOfPress(const std::string &code, int id) {
    Insect *p_insect = add(code);
    p_insect->setId(id);
    Lines found = matching(": (PinBoard|Sequence|GameOver)::",
                           logOf([&] { press(p_insect->getPosition()); }));
    const std::regex insect(R"(object id (\d+), type (\w)\w+, color (\w)\w+)"),
        new_insect(R"(object id (\d+), type (\w)\w+, and color (\w)\w+)");
    for (std::string &line : found)
      line = std::regex_replace(std::regex_replace(line, insect, "$2$3#$1"), new_insect,
                                "and $2$3#$1");
    return found;
  }

  const std::string on_board = "DEBUG: PinBoard::eventHandler(): ",
                    in_row = "DEBUG: Sequence::eventHandler(): ",
                    match = "DEBUG: Sequence::insectMatchesSequence(): Insect with ",
                    check = " was pinned. Checking if it matches the next required "
                            "Insect at index ";
};

} // namespace

TEST_F(GameLogTest, TellsOfEveryPinWhatItIsComparedWithAndOfEverySale) {
  new PinBoard;
  makeRows({"Br Gb"});
  row()[0]->setId(21);
  row()[1]->setId(22);
  EXPECT_EQ(
      logOfPress("Br", 1),
      (Lines{on_board + "Insect with Br#1 was pinned. Placing it at Pin Board slot 1.",
             in_row + "Insect with Br#1" + check + "0.",
             match + "Br#1 matched Insect with Br#21 at sequence index 0."}));
  EXPECT_EQ(
      logOfPress("Gr", 2),
      (Lines{on_board + "Insect with Gr#2 was pinned. Placing it at Pin Board slot 2.",
             in_row + "Insect with Gr#2" + check + "1.",
             match + "Gr#2 did not match color of Insect with Gb#22 at sequence index 1.",
             in_row + "Sequence failed! Setting next required Sequence index to 0.",
             match +
                 "Gr#2 did not match type of Insect with Br#21 at sequence index 0."}));
  pin("Br")->setId(3);
  seedRows({"Gm"}, true);
  const Lines log = logOfPress("Gb", 4);
  const std::string target = "Gm#" + std::to_string(row()[0]->getId());
  EXPECT_EQ(
      log,
      (Lines{on_board + "Insect with Gb#4 was pinned. Placing it at Pin Board slot 4.",
             in_row + "Insect with Gb#4" + check + "1.",
             match + "Gb#4 matched Insect with Gb#22 at sequence index 1.",
             in_row + "Sequence cleared! Sending clear event.",
             on_board + "Removing pinned bug with Br#3 at board index 2.",
             on_board + "Removing pinned bug with Gb#4 at board index 3.",
             in_row + "Generating new Sequence.",
             "DEBUG: Sequence::generateSequence(): Insect with and " + target +
                 " placed at sequence index 0.",
             match + "Br#1 did not match type of Insect with " + target +
                 " at sequence index 0.",
             match + "Gr#2 did not match color of Insect with " + target +
                 " at sequence index 0."}));
}

TEST_F(GameLogTest, TellsOfAFullBoardAndOfEveryInsectThatStaysOnItForNow) {
  new PinBoard;
  pin("Br Gg Bb Gm Bc Gr Bg");
  const Lines log = logOfPress("Gb", 8);
  Lines expected = {on_board +
                        "Insect with Gb#8 was pinned. Placing it at Pin Board slot 8.",
                    on_board + "The Pin Board overflowed! Transitioning to Game Over."};
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
