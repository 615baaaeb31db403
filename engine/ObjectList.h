#pragma once

namespace gw {

class Object;

/// A growable array of object pointers: the world's own lists and the answer to every
/// query. Copies are independent of each other, and cheap: entries are only copied when
/// one of two lists that have them in common changes. The objects are never owned.
/// When memory runs out, one line goes to the standard error stream and the process ends
/// with status 1. For one thread only.
///
/// Iterate by index from 0 to `getCount()` - 1, or with a range-for. That may be over
/// what a query has answered, whatever happens to the world meanwhile, and over no list
/// that changes in the loop: an insert, a removal, `clear` and an assignment end the
/// validity of `begin` and `end`. What changes a copy of the list does not.
class ObjectList {
public:
  /// Empty, or a copy. @{
  ObjectList() = default;
  ObjectList(const ObjectList &other);
  ObjectList &operator=(const ObjectList &other); ///@}

  /// Releases the storage; the objects are not touched.
  ~ObjectList();

  /// Entries in the list. @{
  int getCount() const { return count; }
  bool isEmpty() const { return count == 0; } ///@}

  /// True when the next insert will have to grow the storage (it doubles).
  bool isFull() const { return count == max_count; }

  /// Whether the pointer is in the list.
  bool contains(const Object *p_o) const;

  /// The entry at `index`, 0 up to but not including `getCount()`. Anything
  /// else throws std::out_of_range, "Invalid index.".
  Object *operator[](int index) const {
    if (index < 0 || index >= count)
      refuseIndex();
    return list[index];
  }

  /// For a range-for: `for (gw::Object *p_o : world.getAllObjects())`. @{
  Object *const *begin() const { return list; }
  Object *const *end() const { return list + count; } ///@}

  /// Appends; the same pointer may be in the list more than once. @return 0
  int insert(Object *p_o);

  /// Removes the first occurrence. The last entry moves into the gap, so the
  /// order of the others changes. @return 0, or -1 when it is not in the list
  int remove(Object *p_o);

  /// The same for the entry at `index`, 0 up to but not including `getCount()`.
  /// @return 0, or -1 for any other index
  int removeAt(int index);

  /// Forgets all entries and keeps the capacity.
  void clear();

private:
  struct Storage;

  [[noreturn]] static void refuseIndex();
  void own(int capacity);
  void release();

  int count = 0;
  int max_count = 1;
  Storage *p_storage = nullptr; ///< shared with copies; null before the first insert
  Object **list = nullptr;      ///< in the storage, room for `max_count` pointers
};

} // namespace gw
