#include "GameTest.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

void GameTest::SetUp() {
  EngineTest::SetUp();
  std::filesystem::remove_all("tazlet"); // of the test before, in the same process
  std::filesystem::create_directory("tazlet");
  std::filesystem::create_directory_symlink(GLIDEWING_RUN_DIR "/tazlet/sprites",
                                            "tazlet/sprites");
  gw::srand(1);
}

void GameTest::startGame() {
  loadResources();
  populateGame();
  pressKey(gw::Keyboard::P);
}

Insect *GameTest::add(const std::string &code, gw::Vector where) {
  Insect *p_insect = nullptr;
  if (code == "bee")
    p_insect = new Bee;
  else if (code[0] == 'B')
    p_insect = new Butterfly;
  else
    p_insect = new Glidewing;
  for (const gw::Color color : INSECT_COLORS)
    if (code[1] == gw::definitionOf(color).name[0])
      p_insect->setColor(color);
  p_insect->setPosition(where);
  return p_insect;
}

Insect *GameTest::pin(const std::string &codes) {
  std::istringstream rest(codes);
  Insect *p_insect = nullptr;
  for (std::string code; rest >> code;) {
    p_insect = add(code);
    press(p_insect->getPosition());
  }
  return p_insect;
}

void GameTest::pressKey(gw::Keyboard::Key key) {
  gw::EventKeyboard event;
  event.setKey(key);
  event.setKeyboardAction(gw::KEY_PRESSED);
  send(event);
}

void GameTest::sendMouse(gw::EventMouseAction action, gw::Mouse::Button button,
                         gw::Vector where) {
  gw::EventMouse event;
  event.setMouseAction(action);
  event.setMouseButton(button);
  event.setMousePosition(where);
  send(event);
}

void GameTest::press(gw::Vector where) {
  sendMouse(gw::PRESSED, gw::Mouse::LEFT, where);
}

void GameTest::seedRows(const Lines &rows, bool draws_length) {
  unsigned seed = 0;
  for (bool fits = false; !fits;) {
    gw::srand(++seed);
    fits = true;
    for (const std::string &row : rows) {
      const auto length = static_cast<int>(row.size() + 1) / 3;
      if (draws_length || &row != &rows.front())
        fits = fits && gw::rand() % 6 + 1 == length;
      for (std::size_t at = 0; at < row.size() && fits; at += 3)
        fits = "rgbmc"[gw::rand() % 5] == row[at + 1] && "GB"[gw::rand() % 2] == row[at];
    }
  }
  gw::srand(seed);
}

void GameTest::makeRows(const Lines &rows) {
  new Score;
  seedRows(rows, false);
  (new Sequence)->generateSequence(static_cast<int>(rows.front().size() + 1) / 3);
}

void GameTest::removeAll(const gw::ObjectList &objects) {
  for (int i = 0; i < objects.getCount(); i++)
    world().markForDelete(objects[i]);
  world().update();
}

std::string GameTest::codeOf(const gw::Object *p_o) {
  const auto *p_insect = dynamic_cast<const Insect *>(p_o);
  return p_insect->getType() == "Bee"
             ? "bee"
             : p_insect->getType().substr(0, 1) + p_insect->getColorAsString()[0];
}

std::string GameTest::codesOf(const gw::ObjectList &insects) {
  std::string codes;
  for (int i = 0; i < insects.getCount(); i++)
    codes += (i > 0 ? " " : "") + codeOf(insects[i]);
  return codes;
}

void GameTest::expectPicture(const Insect *p_insect) {
  const gw::Sprite *p_sprite = p_insect->getAnimation().getSprite();
  const std::string code = codeOf(p_insect),
                    kind = code[0] == 'B' ? "butterfly" : "glidewing";
  EXPECT_EQ(p_sprite->getLabel(),
            code == "bee" ? "Bee" : kind + "color" + p_insect->getColorAsString());
  EXPECT_TRUE(code == "bee" || p_sprite->getColor() == p_insect->getColor());
}

int GameTest::count(const std::string &type) {
  return world().getAllObjectsOfType(type).getCount();
}

Lines GameTest::types() {
  Lines found;
  const gw::ObjectList objects = world().getAllObjects();
  for (int i = 0; i < objects.getCount(); i++)
    found.push_back(objects[i]->getType());
  return found;
}

Lines GameTest::sortedTypes() {
  Lines found = types();
  std::sort(found.begin(), found.end());
  return found;
}

long GameTest::countOf(const std::string &text, const Lines &lines) {
  return std::count(lines.begin(), lines.end(), text);
}
