#include "EngineTest.h"

#include "EventStep.h"

#include <fstream>
#include <regex>
#include <sstream>

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

void EngineTest::step(int steps) {
  for (int i = 0; i < steps; i++)
    gw::GameManager::getInstance().runStep(gw::NEVER_SLEEP);
}

Recorder::~Recorder() {
  note("deleted");
  if (onDelete)
    onDelete();
}

int Recorder::eventHandler(const gw::Event *p_e) {
  const std::string event_type = p_e->getType();
  if (event_type != gw::STEP_EVENT)
    note(event_type.substr(event_type.rfind(':') + 1));
  if (onEvent)
    onEvent(*p_e);
  return 0;
}

int Recorder::draw() {
  note("drawn");
  if (onDraw)
    onDraw();
  return 0;
}

void Recorder::note(const std::string &what) {
  if (p_journal)
    p_journal->push_back(getType() + " " + what);
}

Lines logLines() {
  constexpr std::size_t TIME_LENGTH = sizeof "[00:00:00] " - 1;
  Lines found;
  std::ifstream file(gw::LOGFILE_NAME);
  for (std::string line; std::getline(file, line);) {
    // A message may have lines of its own; they carry no time.
    const bool has_time = line.size() > TIME_LENGTH && line.front() == '[';
    const std::size_t start = has_time ? line.find_first_not_of(' ', TIME_LENGTH) : 0;
    found.push_back(line.substr(start));
  }
  return found;
}

Lines logOf(const std::function<void()> &action) {
  const auto before = static_cast<std::ptrdiff_t>(logLines().size());
  action();
  Lines found = logLines();
  found.erase(found.begin(), found.begin() + before);
  return found;
}

Lines matching(const std::string &expression, const Lines &lines) {
  const std::regex wanted(expression);
  Lines found;
  for (const std::string &line : lines)
    if (std::regex_search(line, wanted))
      found.push_back(line);
  return found;
}

std::string readFile(const std::string &filename) {
  std::ifstream file(filename);
  EXPECT_TRUE(file.is_open()) << filename;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void writeFile(const std::string &filename, const std::string &content) {
  std::ofstream file(filename, std::ios::binary);
  file << content;
  ASSERT_TRUE(file.good()) << filename;
}

std::string lines(const Lines &content) {
  std::string text;
  for (const std::string &line : content)
    text += line + "\n";
  return text;
}
