#pragma once

#include "Assertion.h"
#include "Box.h"

#include <vector>

namespace gw {

/// Finds the boxes that intersect a box without looking at all of them. Belongs to the
/// world manager, which knows boxes by their object's index in its list and keeps them
/// current.
///
/// The plane is divided into cells, and a box is kept in the one that its upper-left
/// corner lies in. No box in a cell is larger than a cell, so what intersects a box has
/// its corner in a cell that the box touches, or in one left of or above these. A box
/// that is larger, or far out, or not a number, is kept apart and always looked at.
class CollisionGrid {
public:
  CollisionGrid();

  /// Adds a box, which gets the next index: 0, 1, 2 ... `find` leaves it out unless
  /// `is_found`.
  void insert(const Box &box, bool is_found);

  /// Removes a box, 0 up to but not including the number of boxes; the last one gets its
  /// index.
  void remove(int index);

  /// Replaces a box. As for `insert`.
  void update(int index, const Box &box, bool is_found);

  /// The indices of all boxes that intersect `box`, in ascending order. Valid until the
  /// next call.
  const std::vector<int> &find(const Box &box);

private:
  /// Where a box is kept, and its neighbours there.
  struct Link {
    int cell = 0;     ///< or `NONE`
    int next = 0;     ///< index, or `NONE`
    int previous = 0; ///< index, or `NONE`
  };

  void findInCell(int cell, const Box &box);
  void findInAll(const Box &box);
  void link(int index, const Box &box, int cell);
  void unlink(int index);

  int getCount() const { return static_cast<int>(boxes.size()); }
  bool hasBox(int index) const { return index >= 0 && index < getCount(); }
  Box &boxAt(int index) {
    GW_ASSERT(hasBox(index), "there is no box of that index");
    return boxes[static_cast<std::size_t>(index)];
  }
  Link &linkAt(int index) {
    GW_ASSERT(hasBox(index), "there is no box of that index");
    return links[static_cast<std::size_t>(index)];
  }

  // Two arrays: going from link to link need not wait for a box.
  std::vector<Box> boxes;
  std::vector<Link> links;
  std::vector<int> first_in_cell; ///< index, or `NONE`
  std::vector<int> found;
};

} // namespace gw
