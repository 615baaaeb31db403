#include "ObjectList.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace gw {

namespace {

/// `storage` resized to room for `capacity` pointers; null gives fresh storage.
/// Ends the process when there is no memory, without running destructors: they
/// might want some, too.
Object **resize(Object **storage, int capacity) {
  // NOLINTNEXTLINE(bugprone-sizeof-expression): pointers are what it holds
  const std::size_t bytes = static_cast<std::size_t>(capacity) * sizeof(Object *);
  auto *resized = static_cast<Object **>(std::realloc(storage, bytes));
  if (!resized) {
    std::fprintf(stderr, "Error calling malloc(): %s\n", std::strerror(errno));
    std::fflush(nullptr);
    std::_Exit(1);
  }
  return resized;
}

} // namespace

ObjectList::ObjectList() : list(resize(nullptr, max_count)) {
}

ObjectList::ObjectList(const ObjectList &other)
    : count(other.count), max_count(other.max_count), list(resize(nullptr, max_count)) {
  std::copy_n(other.list, count, list);
}

ObjectList &ObjectList::operator=(const ObjectList &other) {
  if (this != &other) {
    std::free(list);
    count = other.count;
    max_count = other.max_count;
    list = resize(nullptr, max_count);
    std::copy_n(other.list, count, list);
  }
  return *this;
}

ObjectList::~ObjectList() {
  std::free(list);
}

bool ObjectList::contains(const Object *p_o) const {
  return std::find(list, list + count, p_o) != list + count;
}

Object *ObjectList::operator[](int index) const {
  if (index < 0 || index >= count)
    throw std::out_of_range("Invalid index.");
  return list[index];
}

int ObjectList::insert(Object *p_o) {
  if (isFull()) {
    list = resize(list, 2 * max_count);
    max_count *= 2;
  }
  list[count++] = p_o;
  return 0;
}

int ObjectList::remove(Object *p_o) {
  Object **const end = list + count;
  Object **const found = std::find(list, end, p_o);
  if (found == end)
    return -1;
  *found = list[--count];
  return 0;
}

} // namespace gw
