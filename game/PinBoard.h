#pragma once

#include "Object.h"
#include "ObjectList.h"

class EventClear;
class Insect;

/// The column of eight slots at the right edge that pinned insects go onto,
/// oldest at the top. A sold row takes the newest ones off; the eighth one ends
/// the game. One for each game. It must hear of a pin before the sequence does,
/// so it is created first.
class PinBoard : public gw::Object {
public:
  static constexpr const char *TYPE = "PinBoard";

  PinBoard();

  /// A copy of the list of insects on the board, oldest first. The insects are
  /// the world's.
  gw::ObjectList getPinnedBugs() const { return pinnedBugs; }

  /// Whether the insect is on the board.
  bool holds(const Insect *p_insect) const;

  int eventHandler(const gw::Event *p_e) override;

private:
  void take(Insect *p_insect);
  void removeNewest(int number);
  void endGame();

  gw::ObjectList pinnedBugs; ///< not owned, oldest first
  int capacity = 8;          ///< slots
};
