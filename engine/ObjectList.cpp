#include "ObjectList.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace gw {

/// What stands in front of the entries in memory.
struct ObjectList::Storage {
  std::size_t owners; ///< lists that have these entries
};

ObjectList::ObjectList(const ObjectList &other)
    : count(other.count), max_count(other.max_count), p_storage(other.p_storage),
      list(other.list) {
  if (p_storage)
    // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): it does not keep count of the owners
    p_storage->owners++;
}

ObjectList &ObjectList::operator=(const ObjectList &other) {
  if (this == &other)
    return *this;
  if (other.p_storage)
    other.p_storage->owners++; // first: the two may have it in common
  release();
  count = other.count;
  max_count = other.max_count;
  p_storage = other.p_storage;
  list = other.list;
  return *this;
}

ObjectList::~ObjectList() {
  release();
}

bool ObjectList::contains(const Object *p_o) const {
  return std::find(begin(), end(), p_o) != end();
}

int ObjectList::insert(Object *p_o) {
  own(isFull() ? 2 * max_count : max_count);
  list[count++] = p_o;
  return 0;
}

int ObjectList::remove(Object *p_o) {
  return removeAt(static_cast<int>(std::find(begin(), end(), p_o) - begin()));
}

int ObjectList::removeAt(int index) {
  if (index < 0 || index >= count)
    return -1;
  own(max_count);
  list[index] = list[--count];
  return 0;
}

void ObjectList::clear() {
  count = 0;
  if (p_storage && p_storage->owners > 1)
    release();
}

void ObjectList::refuseIndex() {
  throw std::out_of_range("Invalid index.");
}

/// Before a change: has the list be the only owner of its entries, with room for
/// `capacity` pointers. Ends the process when there is no memory, without running
/// destructors: they might want some, too.
void ObjectList::own(int capacity) {
  const bool is_shared = p_storage && p_storage->owners > 1;
  if (p_storage && !is_shared && capacity == max_count)
    return;
  // NOLINTNEXTLINE(bugprone-sizeof-expression): pointers are what it holds
  const std::size_t entry_bytes = sizeof(Object *) * static_cast<std::size_t>(capacity);
  auto *p_owned = static_cast<Storage *>(
      std::realloc(is_shared ? nullptr : p_storage, sizeof(Storage) + entry_bytes));
  if (!p_owned) {
    std::fprintf(stderr, "Error calling malloc(): %s\n", std::strerror(errno));
    std::fflush(nullptr);
    std::_Exit(1);
  }
  auto **owned_list = reinterpret_cast<Object **>(p_owned + 1);
  if (is_shared) {
    std::copy_n(list, count, owned_list);
    release();
  }
  p_owned->owners = 1;
  max_count = capacity;
  p_storage = p_owned;
  list = owned_list;
}

/// Leaves the entries to the other owners, if there are any.
void ObjectList::release() {
  if (p_storage && --p_storage->owners == 0)
    std::free(p_storage);
  p_storage = nullptr;
  list = nullptr;
}

} // namespace gw
