#include "internal/CollisionGrid.h"

#include "utility.h"

#include <algorithm>
#include <cmath>

namespace gw {

namespace {

constexpr int NONE = -1; ///< no index; no cell, for a box that is not found

/// Size of a cell in character cells: the smallest one that most sprites fit into.
/// Larger cells hold more boxes to look at; smaller ones leave more boxes apart.
constexpr float CELL_WIDTH = 16;
constexpr float CELL_HEIGHT = 8;

/// The plane wraps around after so many cells in a row or column (a power of two).
/// Boxes of places so far from each other share a cell and are told apart when looked
/// at. More of these take memory, fewer take time in worlds that are wider.
constexpr int CELLS = 256;
constexpr int APART = CELLS * CELLS; ///< the cell of the boxes that are kept apart

/// Below `FAR`, corner + size is exact to `SLACK`.
constexpr float FAR = 65536;
constexpr float SLACK = 1.f / 64;

/// False also for what is not a number.
bool isNear(Vector position) {
  return std::fabs(position.getX()) < FAR && std::fabs(position.getY()) < FAR;
}

int columnOf(float x) {
  return static_cast<int>(std::floor(x / CELL_WIDTH));
}

int rowOf(float y) {
  return static_cast<int>(std::floor(y / CELL_HEIGHT));
}

int cellAt(int column, int row) {
  return (row & (CELLS - 1)) * CELLS + (column & (CELLS - 1));
}

int cellOf(const Box &box) {
  const Vector corner = box.getCorner();
  if (isNear(corner) && box.getHorizontal() <= CELL_WIDTH &&
      box.getVertical() <= CELL_HEIGHT)
    return cellAt(columnOf(corner.getX()), rowOf(corner.getY()));
  return APART;
}

} // namespace

CollisionGrid::CollisionGrid() : first_in_cell(APART + 1, NONE) {
}

void CollisionGrid::insert(const Box &box, bool is_found) {
  boxes.emplace_back();
  links.emplace_back();
  link(getCount() - 1, box, is_found ? cellOf(box) : NONE);
}

void CollisionGrid::remove(int index) {
  unlink(index);
  const int last = getCount() - 1;
  if (index != last) {
    const int cell = linkAt(last).cell;
    unlink(last);
    link(index, boxAt(last), cell);
  }
  boxes.pop_back();
  links.pop_back();
}

void CollisionGrid::update(int index, const Box &box, bool is_found) {
  const int cell = is_found ? cellOf(box) : NONE;
  if (linkAt(index).cell == cell) {
    boxAt(index) = box;
    return;
  }
  unlink(index);
  link(index, box, cell);
}

const std::vector<int> &CollisionGrid::find(const Box &box) {
  found.clear();
  const Vector corner = box.getCorner();
  // A negative size does not reach out of the corner.
  const Vector end = corner + Vector(std::max(box.getHorizontal(), 0.f),
                                     std::max(box.getVertical(), 0.f));
  if (!isNear(corner) || !isNear(end)) {
    findInAll(box);
    return found;
  }
  const int left = columnOf(corner.getX() - CELL_WIDTH - SLACK);
  const int top = rowOf(corner.getY() - CELL_HEIGHT - SLACK);
  const int columns = columnOf(end.getX() + SLACK) - left + 1;
  const int rows = rowOf(end.getY() + SLACK) - top + 1;
  if (std::max(columns, rows) > CELLS || columns * rows > getCount()) {
    findInAll(box);
    return found;
  }
  findInCell(APART, box);
  for (int row = top; row < top + rows; row++)
    for (int column = left; column < left + columns; column++)
      findInCell(cellAt(column, row), box);
  std::sort(found.begin(), found.end());
  return found;
}

void CollisionGrid::findInCell(int cell, const Box &box) {
  for (int i = first_in_cell[static_cast<std::size_t>(cell)]; i != NONE;
       i = linkAt(i).next)
    if (boxesIntersect(box, boxAt(i)))
      found.push_back(i);
}

void CollisionGrid::findInAll(const Box &box) {
  for (int i = 0; i < getCount(); i++)
    if (linkAt(i).cell != NONE && boxesIntersect(box, boxAt(i)))
      found.push_back(i);
}

/// Puts the box at `index` in front of the others of its cell.
void CollisionGrid::link(int index, const Box &box, int cell) {
  boxAt(index) = box;
  Link &link = linkAt(index);
  link = {cell, NONE, NONE};
  if (cell == NONE)
    return;
  int &first = first_in_cell[static_cast<std::size_t>(cell)];
  link.next = first;
  if (first != NONE)
    linkAt(first).previous = index;
  first = index;
}

void CollisionGrid::unlink(int index) {
  const Link &link = linkAt(index);
  if (link.cell == NONE)
    return;
  if (link.previous != NONE)
    linkAt(link.previous).next = link.next;
  else
    first_in_cell[static_cast<std::size_t>(link.cell)] = link.next;
  if (link.next != NONE)
    linkAt(link.next).previous = link.previous;
}

} // namespace gw
