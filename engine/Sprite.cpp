#include "Sprite.h"

#include "LogManager.h"

#include <algorithm>
#include <utility>

namespace gw {

Sprite::Sprite(int max_frames)
    : max_frame_count(std::max(max_frames, 0)),
      frames(std::make_unique<Frame[]>(static_cast<std::size_t>(max_frame_count))) {
}

int Sprite::addFrame(Frame new_frame) {
  LogManager &log = LogManager::getInstance();
  if (frame_count == max_frame_count) {
    log.writeLog(ERROR, "gw::Sprite::addFrame() - Cannot add frame as Sprite frames are "
                        "full.");
    return -1;
  }
  if (frame_count == 0) {
    width = new_frame.getWidth();
    height = new_frame.getHeight();
  }
  if (new_frame.getWidth() != width || new_frame.getHeight() != height) {
    log.writeLog(WARNING,
                 "gw::Sprite::addFrame() - New Frame does not match Sprite width "
                 "or height. Ignoring.");
    return -1;
  }
  frames[static_cast<std::size_t>(frame_count)] = std::move(new_frame);
  frame_count++;
  return 0;
}

Frame Sprite::getFrame(int frame_number) const {
  if (!hasFrame(frame_number))
    return Frame();
  return frames[static_cast<std::size_t>(frame_number)];
}

int Sprite::draw(int frame_number, Vector position) const {
  if (!hasFrame(frame_number)) {
    LogManager::getInstance().writeLog(
        ERROR, "gw::Sprite::draw() - Cannot draw frame outside sprite's frames.");
    return -1;
  }
  frames[static_cast<std::size_t>(frame_number)].draw(position, color);
  return 0;
}

bool Sprite::hasFrame(int frame_number) const {
  return frame_number >= 0 && frame_number < frame_count;
}

} // namespace gw
