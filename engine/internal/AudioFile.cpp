#include "internal/AudioFile.h"

#include "utility.h"

#include <algorithm>
#include <exception>
#include <fstream>

namespace gw {

namespace {

constexpr unsigned MOST_CHANNELS = 8;

enum ByteOrder { little_endian, big_endian };

unsigned toNumber(std::string bytes, ByteOrder order) {
  if (order == little_endian)
    std::reverse(bytes.begin(), bytes.end());
  unsigned number = 0;
  for (const char byte : bytes)
    number = number << 8 | static_cast<unsigned char>(byte);
  return number;
}

/// The next bytes of a file; fewer at its end.
std::string read(std::istream &file, std::size_t count) {
  std::string bytes(count, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

/// Whether each chunk of that name says that there are not too many channels: in two
/// bytes, `offset` after its head. A chunk is a name, its size and its content.
bool hasFewChannels(std::istream &file, ByteOrder order, const std::string &name,
                    std::size_t offset) {
  constexpr unsigned LEAST_SIZE = 16; // what follows a smaller one is read differently
  while (true) {
    const std::string head = read(file, 8);
    if (head.size() < 8)
      return true;
    const unsigned size = toNumber(head.substr(4), order);
    const std::streamoff content = file.tellg();
    if (head.substr(0, 4) == name &&
        (size < LEAST_SIZE || read(file, offset).size() < offset ||
         toNumber(read(file, 2), order) > MOST_CHANNELS))
      return false;
    file.clear();
    file.seekg(content + size + size % 2);
  }
}

/// Whether each head of a Vorbis stream says so. They come first in the file.
bool hasFewVorbisChannels(std::istream &file) {
  const std::string head_start = "\1vorbis";
  constexpr std::size_t CHANNELS = 11; // their place in the head
  const std::string bytes = read(file, 1 << 16);
  for (auto at = bytes.find(head_start); at != std::string::npos;
       at = bytes.find(head_start, at + 1))
    if (at + CHANNELS < bytes.size() &&
        static_cast<unsigned char>(bytes[at + CHANNELS]) > MOST_CHANNELS)
      return false;
  return true;
}

/// Those containers of which the library asserts that it knows what each channel is.
/// All others have no room for many.
bool hasFewChannels(const std::string &filename) {
  std::ifstream file(filename, std::ios::binary);
  const std::string container = read(file, 4);
  if (container == "OggS")
    return hasFewVorbisChannels(file);
  read(file, 8); // the size, and WAVE or AIFF
  if (container == "RIFF" || container == "RF64")
    return hasFewChannels(file, little_endian, "fmt ", 2);
  if (container == "RIFX")
    return hasFewChannels(file, big_endian, "fmt ", 2);
  if (container == "FORM")
    return hasFewChannels(file, big_endian, "COMM", 0);
  return container != "riff"; // wave 64
}

} // namespace

bool openAudioFile(const std::string &filename, const std::function<bool()> &open) {
  if (!isRegularFile(filename) || !hasFewChannels(filename))
    return false;
  try {
    return open();
  } catch (const std::exception &) { // out of memory
    return false;
  }
}

} // namespace gw
