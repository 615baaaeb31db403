#include "SpriteReaderFuzz.h"

#include "LogManager.h"
#include "internal/SpriteReader.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

namespace {

void require(bool holds, const char *what) {
  if (!holds) {
    std::fprintf(stderr, "A sprite was read that should not be: %s\n", what);
    std::abort();
  }
}

} // namespace

bool readFuzzInput(const std::string &content) {
  std::istringstream file(content);
  std::string remark;
  const std::unique_ptr<gw::Sprite> sprite = gw::readSprite(file, remark);
  require(!sprite || remark.empty(), "one with a remark");
  if (!sprite)
    return false;
  require(sprite->getFrameCount() >= 1, "no frames");
  require(sprite->getSlowdown() >= 0, "a negative slowdown");
  require(sprite->getColor() >= gw::BLACK && sprite->getColor() <= gw::WHITE, "a colour");
  std::size_t characters = 0;
  for (int i = 0; i < sprite->getFrameCount(); i++) {
    const gw::Frame frame = sprite->getFrame(i);
    const std::size_t area = static_cast<std::size_t>(frame.getWidth()) *
                             static_cast<std::size_t>(frame.getHeight());
    require(area > 0 && frame.getString().size() == area, "a frame of another size");
    characters += area;
    sprite->draw(i, gw::Vector());
  }
  require(characters < content.size(), "more than the file holds");
  return true;
}

#ifdef GLIDEWING_FUZZ

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  gw::LogManager &log = gw::LogManager::getInstance();
  log.setLogLevel(static_cast<gw::LogLevel>(-1)); // nothing: it would be the bottleneck
  return log.startUp();
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
  readFuzzInput(std::string(reinterpret_cast<const char *>(data), size));
  return 0;
}

#endif
