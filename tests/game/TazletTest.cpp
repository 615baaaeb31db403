#include "RulesTest.h"

#include <filesystem>

using TazletTest = RulesTest;

TEST_F(TazletTest, LoadsInOrderAndGoesOnAfterEveryFailure) {
  using Files = std::vector<std::pair<std::string, std::string>>;
  const Files sprites = {{"NeutralCursor", "neutral_cursor"},
                         {"ClickedCursor", "clicked_cursor"},
                         {"GameStart", "game_start"},
                         {"GameOver", "game_over"},
                         {"PinBoard", "pin_board"},
                         {"Border", "border"},
                         {"Spawner", "spawner"},
                         {"Bee", "bee"},
                         {"Butterfly", "butterfly"},
                         {"Glidewing", "glidewing"},
                         {"Sequence", "sequence"},
                         {"Score", "score"},
                         {"SoldTag", "sold_tag"}};
  const Files sounds = {{"GameStart", "game_start"},         {"BugSpawn", "bug_spawn"},
                        {"ClickPin", "click_pin"},           {"PinBug", "pin_bug"},
                        {"ClearSequence", "clear_sequence"}, {"GameOver", "game_over"}};
  for (const bool has_sprites : {true, false}) {
    if (!has_sprites)
      std::filesystem::remove_all("tazlet");
    Lines expected;
    const auto expect = [&expected](const std::string &kind, const std::string &label,
                                    const std::string &file, const std::string &error) {
      const std::string where = ": gw::ResourceManager::load" + kind + "() - ";
      expected.push_back("INFO" + where + "Loading " + file.substr(0, kind.size()) +
                         " with label '" + label + "' from file 'tazlet/" + file + "'.");
      if (!error.empty())
        expected.push_back("ERROR" + where + error);
    };
    for (const auto &[label, name] : sprites) {
      const std::string file = "sprites/" + name + ".txt";
      expect("Sprite", label, file,
             has_sprites ? "" : "Could not open sprite file 'tazlet/" + file + "'.");
    }
    for (const auto &[label, name] : sounds)
      expect("Sound", label, "sounds/" + name + ".wav",
             "Unable to load Sound '" + label + "' from file.");
    expect("Music", "StartMusic", "musics/BlippyTrance.mp3",
           "Unable to load Music 'StartMusic' from file.");
    // Sounds and music give a reason first, as warnings.
    EXPECT_EQ(matching("^INFO|^ERROR", logOf(loadResources)), expected);
  }
  populateGame();
  EXPECT_EQ(types(), (Lines{"Border", "GameStart"}));
}
