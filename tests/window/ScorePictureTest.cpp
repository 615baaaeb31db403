#include "Score.h"
#include "WindowTest.h"

#include <filesystem>

namespace {

class ScorePictureTest : public WindowTest {};

struct Rank {
  int from; ///< the fewest points that earn it
  const char *title;
  gw::Color color;
};

// What a player has at the most below a rank is one point less.
constexpr Rank RANKS[] = {
    {0, "Bug Idiot", gw::WHITE},
    {5, "Bug Beginner", gw::CYAN},
    {26, "Bug Novice", gw::BLUE},
    {76, "Bug Enthusiast", gw::CYAN},
    {101, "Bug Apprentice", gw::GREEN},
    {151, "Bug Academic", gw::BLUE},
    {201, "Bug Professional", gw::GREEN},
    {251, "Bug Master", gw::MAGENTA},
    {326, "Bug Maestro", gw::RED},
    {401, "Bug Wizard", gw::MAGENTA},
    {476, "Entomologist", gw::RED},
    {551, "Bug God", gw::YELLOW},
    {701, "Bug Omniscence", gw::YELLOW},
    {951, "Bug Cosmic Being", gw::YELLOW},
    {1201, "Bug Black Hole", gw::YELLOW},
    {1451, "Bug Universal Arbiter", gw::YELLOW},
    {1701, "Bug Time Devourer", gw::YELLOW},
    {2000, "BUG", gw::YELLOW},
};

} // namespace

TEST_F(ScorePictureTest, ShowsAmountAndTitleInTheRanksColorOnBothSidesOfEveryThreshold) {
  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  ASSERT_EQ(gw::ResourceManager::getInstance().loadSprite(
                GLIDEWING_RUN_DIR "/tazlet/sprites/score.txt", "Score"),
            0);
  Score &score = *new Score;
  gw::Object &panel = *new gw::Object;
  panel.setSprite("Score");
  panel.setPosition({13, 45});

  const auto expectAt = [&](int points, const Rank &rank) {
    score.updateScore(points - score.getScore());
    EXPECT_EQ(score.draw(), 0);
    const sf::Image actual = picture();
    display.swapBuffers();
    panel.draw();
    display.drawString({13, 43}, rank.title, gw::LEFT_JUSTIFIED, rank.color);
    display.drawString({13, 45}, "$" + std::to_string(points), gw::CENTER_JUSTIFIED,
                       rank.color);
    EXPECT_TRUE(samePixels(actual, picture())) << points << ": " << rank.title;
    display.swapBuffers();
  };
  expectAt(-15, RANKS[0]);
  for (std::size_t i = 0; i < std::size(RANKS); i++) {
    expectAt(RANKS[i].from, RANKS[i]);
    if (i > 0)
      expectAt(RANKS[i].from - 1, RANKS[i - 1]);
  }
  expectAt(123456, RANKS[std::size(RANKS) - 1]);
}
