#include "EngineTest.h"
#include "Sprite.h"

namespace {

/// A sprite of so many frames of one character, "a", "b" …
std::unique_ptr<gw::Sprite> makeSprite(int frame_count, int slowdown) {
  auto sprite = std::make_unique<gw::Sprite>(frame_count);
  for (int i = 0; i < frame_count; i++)
    sprite->addFrame(gw::Frame(1, 1, std::string(1, static_cast<char>('a' + i))));
  sprite->setSlowdown(slowdown);
  return sprite;
}

/// The frames that so many draw calls show.
std::string draw(gw::Animation &animation, int calls) {
  std::string shown;
  for (int i = 0; i < calls; i++) {
    shown += animation.getSprite()->getFrame(animation.getFrameIndex()).getString();
    EXPECT_EQ(animation.draw({0, 0}), 0);
  }
  return shown;
}

} // namespace

TEST(Animation, EachFrameIsShownForAsManyCallsAsTheSlowdownSays) {
  const struct {
    int frame_count, slowdown;
    const char *shown;
  } cases[] = {{3, 0, "aaaaaaa"}, {3, 1, "abcabca"}, {3, 2, "aabbcca"},
               {2, 3, "aaabbba"}, {1, 2, "aaaaaaa"}, {2, 7, "aaaaaaa"}};
  for (const auto &c : cases) {
    const auto sprite = makeSprite(c.frame_count, c.slowdown);
    gw::Animation animation;
    animation.setSprite(sprite.get());
    EXPECT_EQ(draw(animation, 7), c.shown) << c.frame_count << " at " << c.slowdown;
  }
}

TEST(Animation, ObjectsThatShareASpriteAnimateIndependently) {
  const auto sprite = makeSprite(3, 2);
  gw::Animation early;
  early.setSprite(sprite.get());
  EXPECT_EQ(draw(early, 3), "aab");
  gw::Animation late;
  late.setSprite(sprite.get());
  gw::Animation copy = early;
  EXPECT_EQ(draw(late, 5), "aabbc");
  EXPECT_EQ(draw(early, 3), "bcc");
  EXPECT_EQ(draw(copy, 4), "bcca");
  copy.setFrameIndex(1);
  EXPECT_EQ(draw(copy, 2), "bc") << "the call already spent counts for the new frame";
  early.setSprite(sprite.get());
  EXPECT_EQ(draw(early, 3), "aab") << "setting the sprite starts again";
  sprite->setSlowdown(1);
  EXPECT_EQ(draw(early, 4) + draw(late, 2), "bcabca") << "the speed is the sprite's";
}

TEST_F(EngineTest, AnimationsAndSpritesRefuseWhatTheyCannotShow) {
  const auto sprite = makeSprite(3, 1);
  const auto empty = makeSprite(0, 1);
  gw::Animation animation;
  const auto refused = [](const std::string &line, int result,
                          const std::function<int()> &action) {
    EXPECT_EQ(logOf([&] { EXPECT_EQ(action(), result); }),
              std::vector<std::string>{line});
  };
  const auto set_index = [&](int index) {
    return [&animation, index] {
      animation.setFrameIndex(index);
      return animation.getFrameIndex();
    };
  };
  refused("WARNING: gw::Animation::draw() - Animation has no sprite. Cannot draw.", -1,
          [&] { return (new gw::Object)->draw(); });
  refused("WARNING: Cannot set Sprite label if Animation Sprite is NULL. Ignoring.", 0,
          [&] { return animation.setSpriteLabel("x"), 0; });
  refused(
      "WARNING: gw::Animation::getBox() - Animation Sprite is NULL. Returning unit Box "
      "centered at (0, 0).",
      1, [&] { return static_cast<int>(animation.getBox().getHorizontal()); });
  animation.setSprite(empty.get());
  const std::string no_such_frame =
      "ERROR: gw::Sprite::draw() - Cannot draw frame outside sprite's frames.";
  refused(no_such_frame, 0, [&] { return animation.draw({}); });
  refused(no_such_frame, -1, [&] { return sprite->draw(3, {}); });
  animation.setSprite(sprite.get());
  animation.setFrameIndex(2);
  gw::Object &object = *new gw::Object;
  refused("WARNING: New frame index 0 is outside Sprite frame count 0. Ignoring.", -1,
          [&] { return object.setFrameIndex(0); });
  object.setAnimation(animation);
  refused("WARNING: New frame index 3 is outside Sprite frame count 3. Ignoring.", -1,
          [&] { return object.setFrameIndex(3); });
  EXPECT_EQ(object.setFrameIndex(1), 0);
  EXPECT_EQ(object.getFrameIndex(), 1);
  refused("WARNING: New frame index 3 is outside Sprite frame count 3. Ignoring.", 2,
          set_index(3));
  refused("WARNING: New frame index -1 is outside Sprite frame count 3. Ignoring.", 2,
          set_index(-1));
  refused("ERROR: gw::Frame::draw(): Cannot draw empty frame.", -1,
          [] { return gw::Frame().draw({}, gw::RED); });
  refused("ERROR: gw::Sprite::addFrame() - Cannot add frame as Sprite frames are full.",
          -1, [&] { return sprite->addFrame(gw::Frame(1, 1, "d")); });
  gw::Sprite sized(3);
  sized.setWidth(5); // the first frame decides
  EXPECT_EQ(sized.addFrame(gw::Frame(3, 2, "abcdef")), 0);
  for (const gw::Frame &frame : {gw::Frame(5, 2, "abcdefghij"), gw::Frame(3, 1, "abc")})
    refused("WARNING: gw::Sprite::addFrame() - New Frame does not match Sprite width or "
            "height. Ignoring.",
            -1, [&] { return sized.addFrame(frame); });
  EXPECT_EQ(sized.addFrame(gw::Frame(3, 2, "ghijkl")), 0);
  EXPECT_EQ(sized.getFrame(1).getString(), "ghijkl");
  EXPECT_EQ(sized.getFrame(2).getString() + sized.getFrame(-1).getString(), "");
}
