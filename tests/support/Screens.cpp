#include "Screens.h"

#include "EngineTest.h"
#include "ScreenText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

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

} // namespace

void expectScreen(const gw::TextScreen &screen, const std::string &name) {
  if (isUpdate())
    return update(gw::toText(screen), name);
  const std::string differences =
      gw::differencesFrom(readFile(pathOf(name).string()), screen);
  EXPECT_TRUE(differences.empty()) << name << "\n" << differences;
}

void expectText(const std::string &text, const std::string &name) {
  if (isUpdate())
    return update(text, name);
  EXPECT_EQ(text, readFile(pathOf(name).string())) << name;
}
