#pragma once

#include "Object.h"
#include "ObjectList.h"

class Insect;

/// The row of target insects at the top: what to pin, and in which order. Every
/// pin is checked against the next target; a completed row is sold (an
/// `EventClear`) and replaced by a new random one. One for each game, created
/// after the pin board.
///
/// Progress is a run of consecutive pins: the newest `currentIndex` insects on the
/// board match the first `currentIndex` targets.
class Sequence : public gw::Object {
public:
  static constexpr const char *TYPE = "Sequence";

  /// Empty: call `generateSequence` next.
  Sequence();

  /// A copy of the list of target insects, leftmost first. The insects are the
  /// world's.
  gw::ObjectList getSequence() const { return sequence; }

  /// The index of the next target to be pinned: how many are matched already.
  int getCurrentIndex() const { return currentIndex; }

  /// Replaces the row by one of `length` random insects. A row that was there
  /// counts as completed: it is sold first. The insects that stay on the board
  /// may match the new row's beginning, or all of it.
  void generateSequence(int length);

  /// One of one to six insects.
  void generateSequence();

  /// Whether the insect is of the kind and colour of the target at `index`, 0 up
  /// to but not including the length of the row; leaves a log line.
  bool insectMatchesSequence(Insect *p_insect, int index);

  /// Sets the progress from what is on the board: the first run of insects, from
  /// the oldest on, that begins the row and reaches the newest insect. A run that
  /// is the whole row completes it.
  void advanceCurrentIndexCheck();

  int eventHandler(const gw::Event *p_e) override;

  /// @return 0, or -1 when the panel could not be drawn
  int draw() override;

private:
  void sellSequence();
  Insect *makeTarget(int index);
  void checkPin(Insect *p_insect);

  gw::ObjectList sequence; ///< not owned, leftmost first
  int currentIndex = 0;
};
