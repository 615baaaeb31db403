#include "SpriteLoader.h"

#include "LogManager.h"
#include "TemporaryDirectory.h"
#include "internal/SpriteReader.h"
#include "utility.h"

#include <filesystem>
#include <system_error>

namespace {

/// Without the time of day and the level in front.
std::string messageOf(const std::string &log_line) {
  const std::size_t end = log_line.find(": ");
  return end == std::string::npos ? log_line : log_line.substr(end + 2);
}

} // namespace

bool SpriteLoader::startUp(std::string &error) {
  namespace fs = std::filesystem;
  // The log is written to the working directory. Open on both sides it needs no
  // name any more, so nothing is left behind, however the program ends.
  const TemporaryDirectory directory;
  std::error_code failed;
  const fs::path home = fs::current_path(failed);
  if (!failed && !directory.getPath().empty()) {
    fs::current_path(directory.getPath(), failed);
    gw::LogManager &manager = gw::LogManager::getInstance();
    manager.setLogLevel(gw::WARNING); // already for what it says of its own start
    manager.setFlush(true);
    if (!failed && manager.startUp() == 0)
      log.open(gw::LOGFILE_NAME);
    fs::current_path(home, failed);
  }
  if (failed || !log.is_open()) {
    error = "the engine's log cannot be written to a temporary directory";
    return false;
  }
  return true;
}

LoadedSprite SpriteLoader::load(const std::string &filename) {
  LoadedSprite loaded;
  std::ifstream file;
  if (gw::isRegularFile(filename))
    file.open(filename);
  if (file.is_open()) {
    std::string remark;
    loaded.sprite = gw::readSprite(file, remark);
    for (const std::string &line : takeLogLines())
      loaded.messages.push_back(gw::printable(filename + ": " + messageOf(line)));
    if (!remark.empty())
      loaded.messages.push_back(gw::printable(filename + ": " + remark));
  } else {
    loaded.messages.push_back(gw::printable(filename + ": Could not open sprite file."));
  }
  return loaded;
}

std::vector<std::string> SpriteLoader::takeLogLines() {
  std::vector<std::string> lines;
  log.clear(); // from the end that it had last time
  for (std::string line; std::getline(log, line);)
    lines.push_back(line);
  return lines;
}
