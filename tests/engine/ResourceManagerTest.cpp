#include "EngineTest.h"

#include <sys/resource.h>

#include <filesystem>

namespace {

using Lines = std::vector<std::string>;

class ResourceManagerTest : public EngineTest {
protected:
  gw::ResourceManager &resources = gw::ResourceManager::getInstance();

  /// Loads a sprite file of that content as "x" and expects those two lines of
  /// complaint and no sprite.
  void expectRefused(const std::string &content, const std::string &reason,
                     const std::string &line) {
    writeFile("bad.txt", content);
    const Lines found =
        logOf([&] { EXPECT_EQ(resources.loadSprite("bad.txt", "x"), -1); });
    const Lines expected = {
        "INFO: gw::ResourceManager::loadSprite() - Loading sprite with label 'x' from "
        "file 'bad.txt'.",
        "ERROR: " + reason, "ERROR: Line is: '" + line + "'",
        "ERROR: gw::ResourceManager::loadSprite() - Sprite 'x' not loaded."};
    EXPECT_TRUE(found == expected) // some lines are megabytes long, too long to print
        << reason << "\ninstead: " << (found.size() > 1 ? found[1].substr(0, 200) : "");
    EXPECT_EQ(resources.getSprite("x"), nullptr) << reason;
  }
};

/// Why a line of a sprite file of width 3 is refused.
std::string reason(int line, const std::string &value) {
  const std::pair<const char *, const char *> texts[] = {
      {"Frame count ", ". Expected frame count greater than 0."},
      {"Sprite width ", ". Expected width greater than 0."},
      {"Sprite height ", ". Expected height greater than 0."},
      {"Sprite slowdown ", ". Expected slowdown greater than or equal to 0."}};
  const std::string start = "Line " + std::to_string(line) + ": ";
  if (line == 5)
    return start + "Invalid Sprite color.";
  if (line > 5)
    return start + "Line width " + value + ", expected 3.";
  return start + texts[line - 1].first + value + texts[line - 1].second;
}

/// A WAV file with a few samples of silence: 8 bits, mono, 8000 Hz.
const std::string
    WAV("RIFF\x2c\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x40\x1f\0\0"
        "\x01\0\x08\0data\x08\0\0\0\x80\x80\x80\x80\x80\x80\x80\x80",
        52);

/// What the three kinds of resources have in common; the texts are the log's.
struct Kind {
  std::string name, lower, full;
  std::string unreadable; ///< up to the name of the file
  std::string file;       ///< one that can be loaded
  int capacity;
  std::function<int(const std::string &, const std::string &)> load;
  std::function<int(const std::string &)> unload;
  std::function<void *(const std::string &)> get;

  /// A line about the operation "load", "unload" or "get".
  std::string line(const char *level, const char *operation, const std::string &message) {
    return std::string(level) + ": gw::ResourceManager::" + operation + name + "() - " +
           message;
  }
  std::string loading(const std::string &from) {
    return line("INFO", "load",
                "Loading " + lower + " with label 'x' from file '" + from + "'.");
  }
};

std::vector<Kind> kinds() {
  gw::ResourceManager &all = gw::ResourceManager::getInstance();
  writeFile("good.txt", lines({"1", "1", "1", "0", "red", "x"}));
  writeFile("good.wav", WAV);
  return {
      {"Sprite", "sprite", "Sprite array is full. Cannot load new sprite.",
       "ERROR: gw::ResourceManager::loadSprite() - Could not open sprite file '",
       "good.txt", 500,
       [&](auto file, auto label) { return all.loadSprite(file, label); },
       [&](auto label) { return all.unloadSprite(label); },
       [&](auto label) { return all.getSprite(label); }},
      {"Sound", "sound", "Sound array is full. Cannot load new Sound.",
       "WARNING: gw::Sound::loadSound() - Could not load sound file '", "good.wav", 50,
       [&](auto file, auto label) { return all.loadSound(file, label); },
       [&](auto label) { return all.unloadSound(label); },
       [&](auto label) { return all.getSound(label); }},
      {"Music", "music", "Music array is full. Cannot load new Music.",
       "WARNING: gw::Music::loadMusic() - Could not associate music buffer with file '",
       "good.wav", 50, [&](auto file, auto label) { return all.loadMusic(file, label); },
       [&](auto label) { return all.unloadMusic(label); },
       [&](auto label) { return all.getMusic(label); }}};
}

} // namespace

TEST_F(ResourceManagerTest, GoodSpriteFilesAreRead) {
  const struct {
    std::string content;
    int width, height, slowdown, color;
    const char *frames; ///< each followed by a bar
  } cases[] = {
      {"2\n3\n1\n4\nblack\nabc\ndef\n", 3, 1, 4, 0, "abc|def|"},
      {"2\r\n3\r\n1\r\n4\r\nred\r\nabc\r\ndef\r\n", 3, 1, 4, 1, "abc|def|"},
      {"2\n3\n1\n4\ngreen\nabc\ndef", 3, 1, 4, 2, "abc|def|"},
      {"2\n2\n2\n1\nyellow\nab\ncd\nef\ngh\n", 2, 2, 1, 3, "abcd|efgh|"},
      {"1\n1\n1\n\nblue\nx\n", 1, 1, 0, 4, "x|"},
      {"001\n01\n1\n007\nmagenta\nx\n", 1, 1, 7, 5, "x|"},
      {"1\n3\n2\n0\ncyan\n \tx\n   \n", 3, 2, 0, 6, " \tx   |"},
      {"1\n3\n1\n0\nwhite\na\r\r\r\n", 3, 1, 0, 7, "a\r\r|"},
      {"1\n3\n1\n0\nred\n\x80\xff\x1b\nafter the end\n", 3, 1, 0, 1, "\x80\xff\x1b|"},
  };
  std::string label; // a longer one for each
  for (const auto &c : cases) {
    label += 'x';
    writeFile("good.txt", c.content);
    const Lines found =
        logOf([&] { EXPECT_EQ(resources.loadSprite("good.txt", label), 0); });
    EXPECT_EQ(found.size(), 1U) << "nothing but that it is loaded: " << found.back();
    const gw::Sprite *p_sprite = resources.getSprite(label);
    ASSERT_NE(p_sprite, nullptr) << c.content;
    EXPECT_EQ(p_sprite->getWidth(), c.width) << c.content;
    EXPECT_EQ(p_sprite->getHeight(), c.height) << c.content;
    EXPECT_EQ(p_sprite->getSlowdown(), c.slowdown) << c.content;
    EXPECT_EQ(p_sprite->getColor(), c.color) << c.content;
    std::string frames;
    for (int i = 0; i < p_sprite->getFrameCount(); i++)
      frames += p_sprite->getFrame(i).getString() + "|";
    EXPECT_EQ(frames, c.frames);
  }
}

TEST_F(ResourceManagerTest, ABadLineOfASpriteFileIsNamed) {
  const Lines good = {"2", "3", "2", "4", "red", "abc", "def", "ghi", "jkl"};
  const auto expectNamed = [&](int line, const std::string &replacement,
                               const std::string &value) {
    for (const char *end : {"\n", "\r\n"}) {
      std::string content;
      for (int i = 1; i <= 9; i++)
        content += (i == line ? replacement : good[std::size_t(i) - 1]) + end;
      expectRefused(content, reason(line, value), replacement);
    }
  };
  const struct {
    int line; ///< of the good file, from 1 on
    const char *replacement;
    const char *value; ///< that the log names
  } cases[] = {{1, "0", "0"},    {1, "-1", "-1"},  {1, " 2", "2"},  {1, "2 ", "2"},
               {1, "", "0"},     {1, "5x", "5"},   {1, "x5", "0"},  {1, "+2", "2"},
               {1, "1.5", "1"},  {1, "2\r2", "2"}, {2, "0", "0"},   {2, "3 ", "3"},
               {2, "", "0"},     {3, "0", "0"},    {3, "-7", "-7"}, {3, "two", "0"},
               {4, "-1", "-1"},  {4, "4 ", "4"},   {4, "x", "0"},   {5, "Red", ""},
               {5, "red ", ""},  {5, " red", ""},  {5, "", ""},     {5, "redred", ""},
               {5, "1", ""},     {6, "abcd", "4"}, {7, "de", "2"},  {8, "", "0"},
               {9, "jk\rl", "4"}};
  for (const auto &c : cases)
    expectNamed(c.line, c.replacement, c.value);
  expectNamed(1, "99999999999", "2147483647"); // no int: the nearest one is named
  expectNamed(2, "2147483648", "2147483647");
  expectNamed(4, "-99999999999999999999", "-2147483648");
  std::string cut;
  for (int line = 1; line <= 9; line++) {
    // Without line 4 the slowdown is 0, and the next line is found missing.
    expectRefused(cut, reason(line == 4 ? 5 : line, "0"), "");
    cut += good[std::size_t(line) - 1] + "\n";
  }
  // A NUL is a character like another; the log shows what is before it.
  expectRefused(std::string("1\n3\n1\n0\nred\nab\0d\n", 18), reason(6, "4"), "ab");
  expectRefused(std::string("\x7f\xfe\xff\0\x01\n\0\n", 8), reason(1, "0"),
                "\x7f\xfe\xff");
}

TEST_F(ResourceManagerTest, WhatASpriteFileClaimsCostsNoMemory) {
  const auto peak = [] {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss; // kilobytes
  };
  const long before = peak();
  const std::string huge = "2000000000";
  const std::string too_narrow = "Line 6: Line width 3, expected 2000000000.";
  expectRefused(lines({huge, "3", "1", "0", "red", "abc"}), reason(7, "0"), "");
  expectRefused(lines({"5000000", "3", "1", "0", "red", "abc"}), reason(7, "0"), "");
  expectRefused(lines({"1", "3", huge, "0", "red", "abc"}), reason(7, "0"), "");
  expectRefused(lines({"1", huge, "1", "0", "red", "abc"}), too_narrow, "abc");
  expectRefused(lines({huge, huge, huge, huge, "red", "abc"}), too_narrow, "abc");
  EXPECT_LT(peak() - before, 50000);
  const std::string line(10000000, '1');
  expectRefused(line, reason(1, "2147483647"), line);
  expectRefused(lines({"1", "3", "1", "0", line}), reason(5, ""), line);
  expectRefused(lines({"1", "3", "1", "0", "red", line}), reason(6, "10000000"), line);
  EXPECT_LT(peak() - before, 500000) << "a line is held a few times at most";
}

TEST_F(ResourceManagerTest, WhatCannotBeReadIsReportedAndLeftOut) {
  writeFile("rubbish", "neither a sound\nnor music\n");
  writeFile("empty", "");
  writeFile("cut.wav", WAV.substr(0, 30));
  std::filesystem::create_directory("directory");
  for (Kind kind : kinds())
    for (const std::string file :
         {"missing", "directory", "", "/dev/zero", "rubbish", "empty", "cut.wav"}) {
      Lines expected = {kind.loading(file), kind.unreadable + file + "'."};
      if (kind.name != "Sprite")
        expected.push_back(kind.line("ERROR", "load",
                                     "Unable to load " + kind.name + " 'x' from file."));
      else if (std::filesystem::is_regular_file(file))
        continue; // it can be opened; what happens then has tests of its own
      EXPECT_EQ(logOf([&] { EXPECT_EQ(kind.load(file, "x"), -1); }), expected);
      EXPECT_EQ(kind.get("x"), nullptr) << kind.name << " " << file;
    }
}

TEST_F(ResourceManagerTest, AFullTableRefusesBeforeItOpensTheFile) {
  for (Kind kind : kinds()) {
    for (int i = 0; i < kind.capacity; i++)
      ASSERT_EQ(kind.load(kind.file, std::to_string(i)), 0) << kind.name << i;
    EXPECT_EQ(logOf([&] { EXPECT_EQ(kind.load("missing", "x"), -1); }),
              (Lines{kind.loading("missing"), kind.line("WARNING", "load", kind.full)}));
    EXPECT_EQ(kind.unload("0"), 0);
    EXPECT_EQ(kind.load(kind.file, "x"), 0) << "there is room for one again";
    EXPECT_NE(kind.get(std::to_string(kind.capacity - 1)), nullptr);
    EXPECT_NE(kind.get("x"), nullptr);
  }
}

TEST_F(ResourceManagerTest, TheFirstOfALabelIsFoundAndUnloadedFirst) {
  for (Kind kind : kinds()) {
    for (const char *label : {"first", "x", "last"})
      ASSERT_EQ(kind.load(kind.file, label), 0);
    const std::string missing = "Could not find loaded " + kind.name + " with label 'x'.";
    const Lines none = {kind.line("WARNING", "get", missing),
                        kind.line("WARNING", "unload", missing)};
    const Lines unloading = {
        kind.line("DEBUG", "unload", "Unloading " + kind.lower + " with label 'x'.")};
    void *const p_first = kind.get("first");
    void *const p_older = kind.get("x");
    void *const p_last = kind.get("last");
    for (const char *label : {"x", "last"})
      ASSERT_EQ(kind.load(kind.file, label), 0);
    EXPECT_EQ(kind.get("x"), p_older) << kind.name;
    EXPECT_EQ(kind.get("X"), nullptr) << "letter case counts";
    for (bool found : {true, true, false})
      EXPECT_EQ(logOf([&] {
                  EXPECT_EQ(kind.get("x") != nullptr, found);
                  EXPECT_EQ(kind.unload("x"), found ? 0 : -1);
                }),
                found ? unloading : none);
    EXPECT_EQ(kind.get("first"), p_first) << kind.name;
    EXPECT_EQ(kind.get("last"), p_last) << kind.name << ": the others keep their order";
  }
  EXPECT_EQ(
      logOf([&] { EXPECT_EQ(resources.unloadMusic(""), -1); }),
      Lines{"WARNING: gw::ResourceManager::unloadMusic() - Cannot unload Music with "
            "label \"\". Ignoring."});
  resources.getSound("last")->play(true);
  resources.getMusic("last")->play(true);
  resources.shutDown(); // while they play
  resources.startUp();
  for (Kind kind : kinds())
    EXPECT_EQ(kind.get("last"), nullptr) << kind.name;
}
