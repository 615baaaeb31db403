#include "EngineTest.h"
#include "Music.h"
#include "Sound.h"
#include "Sprite.h"

#ifndef _WIN32
#include <sys/resource.h>
#endif

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace {

class ResourceManagerTest : public EngineTest {
protected:
  gw::ResourceManager &resources = gw::ResourceManager::getInstance();

  /// Loads a sprite file of that content as "x" and expects those two lines of
  /// complaint, after them the remark, if it is one, and no sprite.
  void expectRefused(const std::string &content, const std::string &reason,
                     const std::string &line, const std::string &remark = "") {
    writeFile("bad.txt", content);
    const Lines found =
        logOf([&] { EXPECT_EQ(resources.loadSprite("bad.txt", "x"), -1); });
    Lines expected = {
        "INFO: gw::ResourceManager::loadSprite() - Loading sprite with label 'x' from "
        "file 'bad.txt'.",
        "ERROR: " + reason, "ERROR: Line is: '" + line + "'",
        "ERROR: gw::ResourceManager::loadSprite() - Sprite 'x' not loaded."};
    if (!remark.empty())
      expected.push_back("WARNING: gw::ResourceManager::loadSprite() - File 'bad.txt', " +
                         remark + ".");
    EXPECT_TRUE(found == expected) // some lines are megabytes long, too long to print
        << reason << "\ninstead: " << (found.size() > 1 ? found[1].substr(0, 200) : "")
        << "\nat its end: " << found.back().substr(0, 200);
    EXPECT_EQ(resources.getSprite("x"), nullptr) << reason;
  }
};

/// Why a line of a sprite file of width 3 is refused.
std::string reason(int line, const std::string &value) {
  const std::string texts[] = {
      "Frame count " + value + ". Expected frame count greater than 0.",
      "Sprite width " + value + ". Expected width greater than 0.",
      "Sprite height " + value + ". Expected height greater than 0.",
      "Sprite slowdown " + value + ". Expected slowdown greater than or equal to 0.",
      "Invalid Sprite color.",
      "Line width " + value + ", expected 3."};
  return "Line " + std::to_string(line) + ": " + texts[std::min(line, 6) - 1];
}

/// A WAV file with a few samples of silence: 8 bits, mono, 8000 Hz.
const std::string
    WAV("RIFF\x2c\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x40\x1f\0\0"
        "\x01\0\x08\0data\x08\0\0\0\x80\x80\x80\x80\x80\x80\x80\x80",
        52);

} // namespace

TEST_F(ResourceManagerTest, GoodSpriteFilesAreRead) {
  const struct {
    const char *content, *expected; ///< width, height, slowdown, colour and frames
  } cases[] = {
      {"2\n3\n1\n4\nblack\nabc\ndef\n", "3 1 4 0 abc|def|"},
      {"2\r\n3\r\n1\r\n4\r\nred\r\nabc\r\ndef\r\n", "3 1 4 1 abc|def|"},
      {"2\n3\n1\n4\ngreen\nabc\ndef", "3 1 4 2 abc|def|"},
      {"2\n2\n2\n1\nyellow\nab\ncd\nef\ngh\n", "2 2 1 3 abcd|efgh|"},
      {"1\n1\n1\n\nblue\nx\n", "1 1 0 4 x|"},
      {"001\n01\n1\n007\nmagenta\nx\n", "1 1 7 5 x|"},
      {"1\n3\n2\n0\ncyan\n \tx\n   \n", "3 2 0 6  \tx   |"},
      {"1\n3\n1\n0\nwhite\na\r\r\r\n", "3 1 0 7 a\r\r|"},
      {"1\n3\n1\n0\nred\n\x80\xff\x1b\nafter the end\n", "3 1 0 1 \x80\xff\x1b|"},
  };
  for (const auto &c : cases) {
    writeFile("good.txt", c.content);
    EXPECT_EQ(logOf([&] { resources.loadSprite("good.txt", c.expected); }).size(), 1U)
        << "nothing but that it is loaded: " << c.expected;
    const gw::Sprite *p_sprite = resources.getSprite(c.expected);
    ASSERT_NE(p_sprite, nullptr) << c.content;
    std::ostringstream found;
    found << p_sprite->getWidth() << ' ' << p_sprite->getHeight() << ' '
          << p_sprite->getSlowdown() << ' ' << p_sprite->getColor() << ' ';
    for (int i = 0; i < p_sprite->getFrameCount(); i++)
      found << p_sprite->getFrame(i).getString() << '|';
    EXPECT_EQ(found.str(), c.expected);
  }
}

TEST_F(ResourceManagerTest, ABadLineOfASpriteFileIsNamed) {
  const Lines good = {"2", "3", "2", "4", "red", "abc", "def", "ghi", "jkl"};
  const auto expectNamed = [&](int line, const std::string &replacement,
                               const std::string &value, std::string remark) {
    if (!remark.empty())
      remark = "line " + std::to_string(line) + ": " + remark;
    for (const char *end : {"\n", "\r\n"}) {
      std::string content;
      for (int i = 1; i <= 9; i++)
        content += (i == line ? replacement : good[std::size_t(i) - 1]) + end;
      expectRefused(content, reason(line, value), replacement, remark);
    }
  };
  const struct {
    int line = 0; ///< of the good file, from 1 on
    const char *replacement = nullptr;
    const char *value = nullptr; ///< that the log names
    const char *remark = "";     ///< about what is in the line
  } cases[] = {{1, "0", "0"},
               {1, "-1", "-1", "column 1 is '-'"},
               {1, " 2", "2", "column 1 is a blank"},
               {1, "2 ", "2", "column 2 is a blank"},
               {1, "", "0", "it is empty"},
               {1, "5x", "5", "column 2 is 'x'"},
               {1, "x5", "0", "column 1 is 'x'"},
               {1, "+2", "2", "column 1 is '+'"},
               {1, "1.5", "1", "column 2 is '.'"},
               {1, "2\r2", "2", "column 2 is 0x0d, a control character"},
               {1, "99999999999", "2147483647", "the number is too large"}, // for an int
               {2, "2147483648", "2147483647", "the number is too large"},
               {2, "0", "0"},
               {2, "3\t", "3", "column 2 is a tab"},
               {2, "", "0", "it is empty"},
               {3, "0", "0"},
               {3, "-7", "-7", "column 1 is '-'"},
               {3, "two", "0", "column 1 is 't'"},
               {4, "-1", "-1", "column 1 is '-'"},
               {4, "4 ", "4", "column 2 is a blank"},
               {4, "x", "0", "column 1 is 'x'"},
               {4, "-99999999999999999999", "-2147483648", "column 1 is '-'"},
               {5, "Red", "", "column 1 is 'R'"},
               {5, "red ", "", "column 4 is a blank"},
               {5, " red", "", "column 1 is a blank"},
               {5, "", "", "it is empty"},
               {5, "redred", ""},
               {5, "1", "", "column 1 is '1'"},
               {6, "abcd", "4"},
               {6, "ab ~", "4"},
               {6, "a\tbc", "4", "column 2 is a tab"},
               {7, "de", "2"},
               {7, "de\xc3\xa9", "4", "column 3 is 0xc3, part of what is not ASCII"},
               {8, "", "0", "it is empty"},
               {9, "jk\rl", "4", "column 3 is 0x0d, a control character"}};
  for (const auto &c : cases)
    expectNamed(c.line, c.replacement, c.value, c.remark);
  std::string cut;
  for (int line = 1; line <= 9; line++) {
    // Without line 4 the slowdown is 0, and the next line is found missing.
    const int missing = line == 4 ? 5 : line;
    expectRefused(cut, reason(missing, "0"), "",
                  "line " + std::to_string(missing) + ": the file ends before it");
    cut += good[std::size_t(line) - 1] + "\n";
  }
  // A NUL is a character like another; the log shows what is before it.
  expectRefused(std::string("1\n3\n1\n0\nred\nab\0d\n", 17), reason(6, "4"), "ab",
                "line 6: column 3 is 0x00, a control character");
  expectRefused(std::string("\x7f\xfe\xff\0\x01\n\0\n", 8), reason(1, "0"),
                "\x7f\xfe\xff", "line 1: column 1 is 0x7f, a control character");
}

TEST_F(ResourceManagerTest, WhatASpriteFileClaimsCostsNoMemory) {
  const auto peak = [] {
#ifdef _WIN32
    return 0L; // not measured there: the claims are refused nevertheless
#else
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss; // kilobytes
#endif
  };
  const long before = peak();
  const std::string cut = "line 7: the file ends before it";
  const std::string huge = "2000000000";
  const std::string too_narrow = "Line 6: Line width 3, expected 2000000000.";
  expectRefused(lines({huge, "3", "1", "0", "red", "abc"}), reason(7, "0"), "", cut);
  expectRefused(lines({"1", "3", huge, "0", "red", "abc"}), reason(7, "0"), "", cut);
  expectRefused(lines({"1", huge, "1", "0", "red", "abc"}), too_narrow, "abc");
  expectRefused(lines({huge, huge, huge, huge, "red", "abc"}), too_narrow, "abc");
  EXPECT_LT(peak() - before, 50000);
  const std::string ones(8000000, '1');
  const std::string quoted = std::string(200, '1') + "...";
  expectRefused(ones, reason(1, "2147483647"), quoted, "line 1: the number is too large");
  expectRefused(lines({"1", "3", "1", "0", ones}), reason(5, ""), quoted,
                "line 5: column 1 is '1'");
  expectRefused(lines({"1", "3", "1", "0", "red", ones}), reason(6, "8000000"), quoted);
  EXPECT_LT(peak() - before, 500000) << "a line is held a few times at most";
}

TEST_F(ResourceManagerTest, ASpriteThatCannotBeOpenedIsReported) {
  std::filesystem::create_directory("directory");
  for (const std::string file : {"missing", "directory", "", "/dev/zero"})
    EXPECT_EQ(logOf([&] { EXPECT_EQ(resources.loadSprite(file, "x"), -1); }).back(),
              "ERROR: gw::ResourceManager::loadSprite() - Could not open sprite file '" +
                  file + "'.");
}

TEST_F(ResourceManagerTest, SpritesAreFoundAndUnloadedInTheirOrderUpToAFullTable) {
  writeFile("good.txt", lines({"1", "1", "1", "0", "red", "x"}));
  EXPECT_EQ(resources.loadSprite("good.txt", "x"), 0);
  const gw::Sprite *p_older = resources.getSprite("x");
  for (int i = 1; i < 500; i++)
    ASSERT_EQ(resources.loadSprite("good.txt", i < 499 ? std::to_string(i) : "x"), 0);
  const gw::Sprite *p_last = resources.getSprite("498");
  EXPECT_EQ(logOf([&] { EXPECT_EQ(resources.loadSprite("missing", "y"), -1); }).back(),
            "WARNING: gw::ResourceManager::loadSprite() - Sprite array is full. Cannot "
            "load new sprite.");
  EXPECT_EQ(resources.getSprite("x"), p_older);
  EXPECT_EQ(resources.getSprite("X"), nullptr) << "letter case counts";
  const std::string unloading =
      "DEBUG: gw::ResourceManager::unloadSprite() - Unloading sprite with label 'x'.";
  const std::string missing = "Could not find loaded Sprite with label 'x'.";
  EXPECT_EQ(logOf([&] {
              EXPECT_EQ(resources.unloadSprite("x"), 0);
              EXPECT_NE(resources.getSprite("x"), nullptr) << "the younger one";
              EXPECT_EQ(resources.unloadSprite("x"), 0);
              EXPECT_EQ(resources.getSprite("x"), nullptr);
              EXPECT_EQ(resources.unloadSprite("x"), -1);
            }),
            (Lines{unloading, unloading,
                   "WARNING: gw::ResourceManager::getSprite() - " + missing,
                   "WARNING: gw::ResourceManager::unloadSprite() - " + missing}));
  EXPECT_EQ(resources.getSprite("498"), p_last) << "the others keep their order";
  EXPECT_EQ(resources.loadSprite("good.txt", "y"), 0) << "there is room again";
}

TEST_F(ResourceManagerTest, WhatHasTheLabelOfAnotherIsNamedWhenAskedFor) {
  writeFile("good.txt", lines({"1", "1", "1", "0", "red", "x"}));
  writeFile("good.wav", WAV);
  for (const char *label : {"x", "y", "x"})
    EXPECT_EQ(resources.loadSprite("good.txt", label), 0);
  for (const char *label : {"x", "z", "z", "z"})
    EXPECT_EQ(resources.loadSound("good.wav", label), 0);
  const auto line = [](const std::string &what) {
    return "WARNING: gw::ResourceManager::warnOfSharedLabels() - " + what +
           " was loaded more than once. The first one is found.";
  };
  const std::string z = line("Sound with label 'z'");
  EXPECT_EQ(logOf([&] { resources.warnOfSharedLabels(); }),
            (Lines{line("Sprite with label 'x'"), z, z}));
}

TEST_F(ResourceManagerTest, SoundsAndMusicHaveTablesOfTheirOwn) {
  writeFile("rubbish", "neither a sound\nnor music\n");
  writeFile("good.wav", WAV);
  std::string nine_channels = WAV;
  nine_channels[22] = nine_channels[32] = 9;
  writeFile("nine", nine_channels);
  std::filesystem::create_directory("directory");
  const std::string place = "gw::ResourceManager::";
  for (const std::string file : {"missing", "directory", "", "rubbish", "nine"}) {
    const std::string from = " with label 'x' from file '" + file + "'.";
    EXPECT_EQ(
        logOf([&] { EXPECT_EQ(resources.loadSound(file, "x"), -1); }),
        (Lines{"INFO: " + place + "loadSound() - Loading sound" + from,
               "WARNING: gw::Sound::loadSound() - Could not load sound file '" + file +
                   "'.",
               "ERROR: " + place + "loadSound() - Unable to load Sound 'x' from file."}));
    EXPECT_EQ(
        logOf([&] { EXPECT_EQ(resources.loadMusic(file, "x"), -1); }),
        (Lines{"INFO: " + place + "loadMusic() - Loading music" + from,
               "WARNING: gw::Music::loadMusic() - Could not associate music buffer "
               "with file '" +
                   file + "'.",
               "ERROR: " + place + "loadMusic() - Unable to load Music 'x' from file."}));
  }
  EXPECT_EQ(
      logOf([&] {
        EXPECT_EQ(resources.unloadSound("x") + resources.unloadMusic("x"), -2);
        EXPECT_EQ(resources.unloadMusic(""), -1);
      }),
      (Lines{"WARNING: " + place +
                 "unloadSound() - Could not find loaded Sound with label 'x'.",
             "WARNING: " + place +
                 "unloadMusic() - Could not find loaded Music with label 'x'.",
             "WARNING: " + place +
                 "unloadMusic() - Cannot unload Music with label \"\". Ignoring."}));
  for (int i = 0; i < 50; i++) {
    ASSERT_EQ(resources.loadSound("good.wav", std::to_string(i)), 0);
    ASSERT_EQ(resources.loadMusic("good.wav", std::to_string(i)), 0);
  }
  EXPECT_EQ(resources.loadSound("good.wav", "x"), -1);
  EXPECT_EQ(logLines().back(), "WARNING: gw::ResourceManager::loadSound() - Sound array "
                               "is full. Cannot load new Sound.");
  EXPECT_EQ(resources.loadMusic("good.wav", "x"), -1);
  EXPECT_EQ(logLines().back(), "WARNING: gw::ResourceManager::loadMusic() - Music array "
                               "is full. Cannot load new Music.");
  EXPECT_EQ(resources.unloadSound("0") + resources.unloadMusic("1"), 0);
  EXPECT_TRUE(!resources.getSound("0") && resources.getMusic("0"));
  resources.getSound("49")->play(true);
  resources.getMusic("49")->play(true);
  resources.shutDown(); // while they play
  resources.startUp();
  EXPECT_TRUE(!resources.getSound("49") && !resources.getMusic("49"));
}
