#include "SpriteReaderFuzz.h"

#include "EngineTest.h"

#include <filesystem>
#include <fstream>
#include <sstream>

class SpriteReaderFuzzTest : public EngineTest {};

TEST_F(SpriteReaderFuzzTest, EverySingleByteEditOfAGoodFileIsReadOrRefusedCleanly) {
  const std::string good = lines({"2", "3", "2", "4", "red", "abc", "def", "ghi", "jkl"});
  ASSERT_TRUE(readFuzzInput(good));
  int accepted = 0;
  gw::LogManager::getInstance().setFlush(false);
  for (std::size_t i = 0; i < good.size(); i++)
    for (int byte = 0; byte < 256; byte++) {
      std::string edited = good;
      edited[i] = static_cast<char>(byte);
      accepted += readFuzzInput(edited);
      if (byte == 0)
        accepted += readFuzzInput(edited.erase(i, 1));
    }
  const int unchanged = 11 + 3;     // the head but for the slowdown, the ends of rows
  const int fewer = 1 + 1;          // one frame, or one row, is there as well
  const int slowdowns = 10 + 1 + 1; // any digit, a carriage return, nothing at all
  const int picture = 8 * 255 + 4 * 254; // no end of line, nor a CR in front of one
  const int last_end = 2 + 1;            // itself, a carriage return, nothing at all
  EXPECT_EQ(accepted, unchanged + fewer + slowdowns + picture + last_end);
}

TEST_F(SpriteReaderFuzzTest, TheFuzzersCorpusIsReadOrRefusedCleanly) {
  int accepted = 0;
  int refused = 0;
  for (const auto &entry : std::filesystem::directory_iterator(GLIDEWING_CORPUS)) {
    std::ifstream file(entry.path(), std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    (readFuzzInput(content.str()) ? accepted : refused)++;
  }
  EXPECT_GE(accepted, 5) << "in the corpus there are good files";
  EXPECT_GE(refused, 20) << "and bad ones";
}
