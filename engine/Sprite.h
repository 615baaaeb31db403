#pragma once

#include "Color.h"
#include "Frame.h"

#include <memory>
#include <string>

namespace gw {

/// A sequence of equally large frames with one colour, a label and an animation
/// speed. The resource manager makes sprites from files, owns them and hands
/// them out; objects that share a sprite animate independently (Animation).
class Sprite {
public:
  /// @param max_frames how many frames there is room for; below 1, none
  explicit Sprite(int max_frames);

  Sprite(const Sprite &) = delete;
  Sprite &operator=(const Sprite &) = delete;

  /// Characters per row. @{
  void setWidth(int new_width) { width = new_width; }
  int getWidth() const { return width; } ///@}

  /// Rows. @{
  void setHeight(int new_height) { height = new_height; }
  int getHeight() const { return height; } ///@}

  /// Frames added so far.
  int getFrameCount() const { return frame_count; }

  /// Colour of all characters. Changes the sprite for everybody who shows it. @{
  void setColor(Color new_color) { color = new_color; }
  Color getColor() const { return color; } ///@}

  /// The name that it is looked up by. @{
  void setLabel(std::string new_label) { label = new_label; }
  std::string getLabel() const { return label; } ///@}

  /// Steps that each frame stays on the screen; 0 stops the animation. @{
  void setSlowdown(int new_slowdown) { slowdown = new_slowdown; }
  int getSlowdown() const { return slowdown; } ///@}

  /// Appends a copy. The first frame gives the sprite its size.
  /// @return 0; -1 with an ERROR when the sprite is full, -1 with a WARNING when
  /// the frame has another size
  int addFrame(Frame new_frame);

  /// A copy of the frame, 0 up to but not including `getFrameCount()`; for any
  /// other number an empty frame.
  Frame getFrame(int frame_number) const;

  /// Draws the frame centred on `position` (cells) in the sprite's colour.
  /// @return 0, or -1 with an ERROR when there is no such frame
  int draw(int frame_number, Vector position) const;

private:
  bool hasFrame(int frame_number) const;

  int width = 0;
  int height = 0;
  int max_frame_count;
  int frame_count = 0;
  Color color = COLOR_DEFAULT;
  std::string label;
  int slowdown = 1;
  std::unique_ptr<Frame[]> frames; ///< `max_frame_count` of them
};

} // namespace gw
