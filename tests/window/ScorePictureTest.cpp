#include "Score.h"
#include "WindowTest.h"

namespace {

using ScorePictureTest = WindowTest;

const struct {
  int to; ///< the most points that are called so; one more is the next title
  const char *title;
  gw::Color color;
} RANKS[] = {
    {4, "Bug Idiot", gw::WHITE},
    {25, "Bug Beginner", gw::CYAN},
    {75, "Bug Novice", gw::BLUE},
    {100, "Bug Enthusiast", gw::CYAN},
    {150, "Bug Apprentice", gw::GREEN},
    {200, "Bug Academic", gw::BLUE},
    {250, "Bug Professional", gw::GREEN},
    {325, "Bug Master", gw::MAGENTA},
    {400, "Bug Maestro", gw::RED},
    {475, "Bug Wizard", gw::MAGENTA},
    {550, "Entomologist", gw::RED},
    {700, "Bug God", gw::YELLOW},
    {950, "Bug Omniscence", gw::YELLOW},
    {1200, "Bug Cosmic Being", gw::YELLOW},
    {1450, "Bug Black Hole", gw::YELLOW},
    {1700, "Bug Universal Arbiter", gw::YELLOW},
    {1999, "Bug Time Devourer", gw::YELLOW},
    {123456, "BUG", gw::YELLOW},
};

} // namespace

TEST_F(ScorePictureTest, ShowsAmountAndTitleInTheRanksColorOnBothSidesOfEveryThreshold) {
  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  EXPECT_EQ((new Score)->draw(), -1) << "without its panel it shows nothing";
  ASSERT_EQ(gw::ResourceManager::getInstance().loadSprite(
                GLIDEWING_RUN_DIR "/tazlet/sprites/score.txt", "Score"),
            0);
  Score &score = *new Score;
  gw::Object &panel = *new gw::Object;
  panel.setSprite("Score");
  panel.setPosition({13, 45});
  int from = -15;
  for (const auto &[to, title, color] : RANKS) {
    for (const int points : {from, to}) {
      score.updateScore(points - score.getScore());
      EXPECT_EQ(score.draw(), 0);
      const sf::Image actual = picture();
      display.swapBuffers();
      panel.draw();
      display.drawString({13, 43}, title, gw::LEFT_JUSTIFIED, color);
      display.drawString({13, 45}, "$" + std::to_string(points), gw::CENTER_JUSTIFIED,
                         color);
      EXPECT_TRUE(samePixels(actual, picture())) << points << ": " << title;
      display.swapBuffers();
    }
    from = to + 1;
  }
}
