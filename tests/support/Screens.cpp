#include "Screens.h"

#include "ScreenText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

std::filesystem::path pathOf(const std::string &name) {
  return std::filesystem::path(GLIDEWING_SCREENS) / (name + ".txt");
}

/// Whether scripts/screens runs the tests, which then expect nothing.
bool isUpdate() {
  return std::getenv("GLIDEWING_UPDATE_SCREENS") != nullptr;
}

void update(const std::string &text, const std::string &name) {
  std::filesystem::create_directories(pathOf(name).parent_path());
  std::ofstream file(pathOf(name));
  file << text;
  GTEST_SKIP() << name << " is written, not tested";
}

std::string read(const std::string &name) {
  std::ifstream file(pathOf(name));
  EXPECT_TRUE(file.is_open()) << pathOf(name);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

} // namespace

void expectScreen(const gw::TextScreen &screen, const std::string &name) {
  if (isUpdate())
    return update(gw::toText(screen), name);
  const std::string differences = gw::differencesFrom(read(name), screen);
  EXPECT_TRUE(differences.empty()) << name << "\n" << differences;
}

void expectText(const std::string &text, const std::string &name) {
  if (isUpdate())
    return update(text, name);
  EXPECT_EQ(text, read(name)) << name;
}
