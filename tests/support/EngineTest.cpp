#include "EngineTest.h"

#include <fstream>

void EngineTest::SetUp() {
  gw::LogManager &log = gw::LogManager::getInstance();
  log.setLogLevel(gw::ALL);
  log.setFlush(true);
  ASSERT_EQ(gw::GameManager::getInstance().startUpHeadless(), 0);
  ASSERT_TRUE(log.isStarted());
}

void EngineTest::TearDown() {
  gw::GameManager::getInstance().shutDown();
}

int Recorder::eventHandler(const gw::Event *p_e) {
  heard.push_back(p_e->getType());
  return onEvent ? onEvent(*p_e) : 0;
}

int Recorder::draw() {
  if (onDraw)
    onDraw();
  return 0;
}

std::vector<std::string> logLines() {
  constexpr std::size_t TIME_LENGTH = sizeof "[00:00:00] " - 1;
  std::vector<std::string> found;
  std::ifstream file(gw::LOGFILE_NAME);
  for (std::string line; std::getline(file, line);) {
    // A message may have lines of its own; they carry no time.
    const bool has_time = line.size() > TIME_LENGTH && line.front() == '[';
    const std::size_t start = has_time ? line.find_first_not_of(' ', TIME_LENGTH) : 0;
    found.push_back(line.substr(start));
  }
  return found;
}

std::vector<std::string> logOf(const std::function<void()> &action) {
  const auto before = static_cast<std::ptrdiff_t>(logLines().size());
  action();
  std::vector<std::string> found = logLines();
  found.erase(found.begin(), found.begin() + before);
  return found;
}

void writeFile(const std::string &filename, const std::string &content) {
  std::ofstream file(filename, std::ios::binary);
  file << content;
  ASSERT_TRUE(file.good()) << filename;
}

std::string lines(const std::vector<std::string> &content) {
  std::string text;
  for (const std::string &line : content)
    text += line + "\n";
  return text;
}
