#pragma once

#include "ObjectList.h"
#include "Vector.h"

#include <cstdint>
#include <string_view>

namespace gw {

/// Makes one number of many values: equal values in equal order give equal numbers, on
/// every machine and with every compiler. FNV-1a, 64 bits.
class Hash {
public:
  /// Takes one more value. Of a text, its length as well; of a list, the objects' ids in
  /// their order. @{
  void add(int value);
  void add(float value);
  void add(std::string_view text);
  void add(const char *text) { add(std::string_view(text)); }
  void add(Vector vector);
  void add(const ObjectList &list); ///@}

  /// The number for all values so far.
  std::uint64_t get() const { return value_so_far; }

private:
  void addBits(std::uint32_t bits);
  void addByte(unsigned char byte);

  std::uint64_t value_so_far = 14695981039346656037u;
};

} // namespace gw
