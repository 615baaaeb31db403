#include "ObjectList.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/resource.h>
#endif

#include <climits>
#include <cstdint>
#include <stdexcept>

// Where AddressSanitizer owns the heap, an allocation that fails is to return null,
// as it does without it.
extern "C" const char *__asan_default_options();
extern "C" const char *__asan_default_options() {
  return "allocator_may_return_null=1";
}

namespace {

using gw::ObjectList;

/// Lists are written as text, a letter for each pointer; no pointer is followed.
gw::Object *pointer(char letter) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): nobody follows it, so nothing gets slower
  return reinterpret_cast<gw::Object *>(static_cast<std::uintptr_t>(letter));
}

ObjectList listOf(const std::string &letters) {
  ObjectList list;
  for (char letter : letters)
    list.insert(pointer(letter));
  return list;
}

std::string text(const ObjectList &list) {
  std::string letters;
  for (gw::Object *p_o : list)
    letters += static_cast<char>(reinterpret_cast<std::uintptr_t>(p_o));
  return letters;
}

} // namespace

TEST(ObjectList, RemovingMovesTheLastIntoTheGapOfTheFirst) {
  const struct {
    const char *before;
    char removed;
    int result;
    const char *after;
  } cases[] = {{"abcd", 'b', 0, "adc"},   {"abcd", 'd', 0, "abc"}, {"a", 'a', 0, ""},
               {"abacd", 'a', 0, "dbac"}, {"abc", 'x', -1, "abc"}, {"", 'a', -1, ""}};
  for (const auto &c : cases) {
    ObjectList list = listOf(c.before);
    EXPECT_EQ(list.remove(pointer(c.removed)), c.result) << c.before;
    EXPECT_EQ(text(list), c.after) << c.before;
  }
}

TEST(ObjectList, AnIndexOutsideThrows) {
  for (int index : {3, -1, INT_MAX, INT_MIN})
    try {
      listOf("abc")[index];
      ADD_FAILURE() << index;
    } catch (const std::out_of_range &error) {
      EXPECT_STREQ(error.what(), "Invalid index.");
    }
}

TEST(ObjectList, CopiesAreIndependent) {
  ObjectList source = listOf("abc");
  ObjectList copied(source);
  ObjectList assigned = listOf("vwxyz");
  assigned = source;
  EXPECT_FALSE(copied.isFull() || assigned.isFull()) << "copied with room for four";
  copied.insert(pointer('d'));
  assigned.clear();
  source.remove(pointer('a'));
  source.insert(pointer('e'));
  const ObjectList &same = source;
  source = same;
  EXPECT_EQ(text(source) + "|" + text(copied) + "|" + text(assigned), "cbe|abcd|");
  assigned = source;
  std::string seen;
  for (gw::Object *p_o : assigned) {
    seen += text(listOf("x")) + text(source);
    source.remove(p_o);
    source.insert(pointer('f'));
  }
  EXPECT_EQ(seen, "xcbexebfxeff");
}

#ifndef _WIN32 // where nothing limits the memory
namespace {

/// From now on this process gets no more address space.
void takeAllMemory() {
  const rlimit none{0, 0};
  setrlimit(RLIMIT_AS, &none);
}

} // namespace

TEST(ObjectListDeathTest, RunningOutOfMemoryEndsTheProcessWithAMessage) {
  const ObjectList big = listOf(std::string(1 << 20, 'a')); // 8 MB, and full
  ObjectList growing = listOf(std::string(1 << 20, 'a'));
  ObjectList copied(big);
  const auto exits = testing::ExitedWithCode(1);
  const char *message = "^Error calling malloc\\(\\): Cannot allocate memory\n$";
  EXPECT_EXIT((takeAllMemory(), copied.removeAt(0)), exits, message);
  EXPECT_EXIT((takeAllMemory(), growing.insert(pointer('b'))), exits, message);
}
#endif
