#include "Hash.h"

#include "Object.h"

#include <cstring>

namespace gw {

void Hash::add(int value) {
  addBits(static_cast<std::uint32_t>(value));
}

void Hash::add(float value) {
  std::uint32_t bits = 0;
  static_assert(sizeof bits == sizeof value);
  std::memcpy(&bits, &value, sizeof bits);
  addBits(bits);
}

void Hash::add(std::string_view text) {
  add(static_cast<int>(text.size()));
  for (char ch : text)
    addByte(static_cast<unsigned char>(ch));
}

void Hash::add(Vector vector) {
  add(vector.getX());
  add(vector.getY());
}

void Hash::add(const ObjectList &list) {
  add(list.getCount());
  for (const Object *p_o : list)
    add(p_o->getId());
}

void Hash::addBits(std::uint32_t bits) {
  for (int shift = 0; shift < 32; shift += 8)
    addByte(static_cast<unsigned char>(bits >> shift));
}

void Hash::addByte(unsigned char byte) {
  value_so_far = (value_so_far ^ byte) * 1099511628211u;
}

} // namespace gw
