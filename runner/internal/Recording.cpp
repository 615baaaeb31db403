#include "internal/Recording.h"

#include "utility.h"

#include <array>
#include <cinttypes>
#include <cstdio>
#include <filesystem>
#include <istream>
#include <limits>
#include <sstream>
#include <string_view>

namespace gw {

namespace {

constexpr const char *FIRST_LINE = "glidewing-recording 2";
constexpr int MOST_STEPS = std::numeric_limits<int>::max() - DIGEST_STEPS;

constexpr std::array<std::string_view, 5> KINDS = {
    "key-press", "key-release", "mouse-move", "mouse-press", "mouse-release"};

/// The index is the `Keyboard::Key`.
constexpr std::array<std::string_view, Keyboard::PAUSE + 1> KEYS = {"escape",
                                                                    "f1",
                                                                    "f2",
                                                                    "f3",
                                                                    "f4",
                                                                    "f5",
                                                                    "f6",
                                                                    "f7",
                                                                    "f8",
                                                                    "f9",
                                                                    "f10",
                                                                    "f11",
                                                                    "f12",
                                                                    "grave",
                                                                    "1",
                                                                    "2",
                                                                    "3",
                                                                    "4",
                                                                    "5",
                                                                    "6",
                                                                    "7",
                                                                    "8",
                                                                    "9",
                                                                    "0",
                                                                    "minus",
                                                                    "plus",
                                                                    "tab",
                                                                    "a",
                                                                    "b",
                                                                    "c",
                                                                    "d",
                                                                    "e",
                                                                    "f",
                                                                    "g",
                                                                    "h",
                                                                    "i",
                                                                    "j",
                                                                    "k",
                                                                    "l",
                                                                    "m",
                                                                    "n",
                                                                    "o",
                                                                    "p",
                                                                    "q",
                                                                    "r",
                                                                    "s",
                                                                    "t",
                                                                    "u",
                                                                    "v",
                                                                    "w",
                                                                    "x",
                                                                    "y",
                                                                    "z",
                                                                    "enter",
                                                                    "period",
                                                                    "comma",
                                                                    "slash",
                                                                    "left-shift",
                                                                    "right-shift",
                                                                    "left-control",
                                                                    "right-control",
                                                                    "space",
                                                                    "left",
                                                                    "right",
                                                                    "up",
                                                                    "down",
                                                                    "pause"};

/// The index is the `Mouse::Button`.
constexpr std::array<std::string_view, Mouse::MIDDLE + 1> BUTTONS = {"left", "right",
                                                                     "middle"};

constexpr std::string_view OTHER = "other"; ///< key or button, unknown to the engine

template <std::size_t Count>
std::string_view nameIn(const std::array<std::string_view, Count> &names, int number) {
  const auto index = static_cast<std::size_t>(number);
  return index < Count ? names[index] : OTHER;
}

/// @param number set to the name's place, or to -1 for what the engine does not know
template <std::size_t Count>
bool findIn(const std::array<std::string_view, Count> &names, const std::string &name,
            int &number) {
  number = -1;
  for (std::size_t i = 0; i < Count; i++)
    if (names[i] == name)
      number = static_cast<int>(i);
  return number >= 0 || name == OTHER;
}

bool isKey(InputEvent::Kind kind) {
  return kind == InputEvent::key_press || kind == InputEvent::key_release;
}

/// Reads a whole number and nothing else.
bool parse(const std::string &word, long long low, long long high, long long &value) {
  std::istringstream stream(word);
  return stream >> value && stream.eof() && value >= low && value <= high;
}

bool parseDigest(const std::string &word, std::uint64_t &digest) {
  constexpr std::size_t LENGTH = 16;
  if (word.size() != LENGTH ||
      word.find_first_not_of("0123456789abcdef") != std::string::npos)
    return false;
  digest = std::stoull(word, nullptr, 16);
  return true;
}

/// What a message shows of a word, however long that is.
std::string quote(const std::string &word) {
  return '"' + gw::shortened(word) + '"';
}

/// Reads the recording's lines into `recording`.
class Parser {
public:
  explicit Parser(Recording &init_recording) : recording(init_recording) {}

  /// @return what is wrong with the line; empty if nothing is
  std::string take(const std::string &line) {
    line_count++;
    if (line_count == 1)
      return line == FIRST_LINE ? ""
                                : "not a recording of this format, which begins with \"" +
                                      std::string(FIRST_LINE) + "\"";
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; stream >> word;)
      words.push_back(word);
    if (has_ended)
      return "nothing may follow the end";
    if (line_count == 2)
      return takeGame(words);
    if (line_count == 3)
      return takeSeed(words);
    if (!words.empty() && words[0] == "end")
      return takeEnd(words);
    return takeStep(words);
  }

  bool isComplete() const { return line_count >= 3; }

private:
  std::string takeGame(const std::vector<std::string> &words) {
    if (words.size() != 3 || words[0] != "game")
      return "expected \"game\", its name and its version";
    recording.game = words[1];
    recording.version = words[2];
    return "";
  }

  std::string takeSeed(const std::vector<std::string> &words) {
    long long seed = 0;
    if (words.size() != 2 || words[0] != "seed" ||
        !parse(words[1], 0, std::numeric_limits<unsigned>::max(), seed))
      return "expected \"seed\" and a number from 0 to 4294967295";
    recording.seed = static_cast<unsigned>(seed);
    recording.steps = DIGEST_STEPS;
    return "";
  }

  std::string takeEnd(const std::vector<std::string> &words) {
    long long steps = 0;
    if (words.size() != 2 || !parse(words[1], least_steps, MOST_STEPS, steps))
      return "expected \"end\" and the number of steps, past the last event";
    recording.steps = static_cast<int>(steps);
    has_ended = true;
    return "";
  }

  /// An event of a step, or the digest after it.
  std::string takeStep(const std::vector<std::string> &words) {
    long long number = 0;
    if (words.size() < 2 || !parse(words[0], step, MOST_STEPS - 1, number))
      return "expected a step, not before that of the line above, and an event";
    step = static_cast<int>(number);
    std::string reason = words[1] == "digest" ? takeDigest(words) : takeEvent(words);
    recording.steps = (step / DIGEST_STEPS + 1) * DIGEST_STEPS;
    return reason;
  }

  std::string takeDigest(const std::vector<std::string> &words) {
    RecordedDigest digest;
    digest.steps = step;
    if (words.size() != 3 || step == 0 || !parseDigest(words[2], digest.digest))
      return "expected a digest after a step, 16 digits";
    recording.digests.push_back(digest);
    least_steps = step;
    return "";
  }

  std::string takeEvent(const std::vector<std::string> &words) {
    InputEvent event;
    event.step = step;
    int kind = 0;
    if (!findIn(KINDS, words[1], kind) || kind < 0)
      return "unknown event " + quote(words[1]);
    event.kind = static_cast<InputEvent::Kind>(kind);
    std::string reason =
        isKey(event.kind) ? takeKey(words, event) : takeMouse(words, event);
    if (reason.empty()) {
      recording.events.push_back(event);
      least_steps = step + 1;
    }
    return reason;
  }

  static std::string takeKey(const std::vector<std::string> &words, InputEvent &event) {
    if (words.size() != 3)
      return "expected one key";
    int key = 0;
    if (!findIn(KEYS, words[2], key))
      return "unknown key " + quote(words[2]);
    event.key = static_cast<Keyboard::Key>(key);
    return "";
  }

  static std::string takeMouse(const std::vector<std::string> &words, InputEvent &event) {
    constexpr int LIMIT = 1000000; // pixels
    const bool has_button = event.kind != InputEvent::mouse_move;
    const std::size_t first = has_button ? 3 : 2; // of the numbers
    if (words.size() != first + 2)
      return has_button ? "expected a button, x and y" : "expected x and y";
    int button = -1;
    if (has_button && !findIn(BUTTONS, words[2], button))
      return "unknown button " + quote(words[2]);
    event.button = static_cast<Mouse::Button>(button);
    for (const auto &[place, p_number] :
         {std::pair(first, &event.x), {first + 1, &event.y}}) {
      long long number = 0;
      if (!parse(words[place], -LIMIT, LIMIT, number))
        return quote(words[place]) + " is not a number in range";
      *p_number = static_cast<int>(number);
    }
    return "";
  }

  Recording &recording;
  int line_count = 0;
  int step = 0;        ///< of the last line
  int least_steps = 0; ///< that the lines so far need
  bool has_ended = false;
};

} // namespace

RecordingWriter::RecordingWriter(const std::string &filename, const std::string &game,
                                 const std::string &version, unsigned seed)
    // Binary: the same bytes on every system.
    : file(std::filesystem::u8path(filename), std::ios::binary) {
  file << FIRST_LINE << "\ngame " << game << ' ' << version << "\nseed " << seed
       << std::endl;
}

void RecordingWriter::write(const InputEvent &event) {
  file << event.step << ' ' << KINDS[event.kind];
  if (isKey(event.kind)) {
    file << ' ' << nameIn(KEYS, event.key);
  } else {
    if (event.kind != InputEvent::mouse_move)
      file << ' ' << nameIn(BUTTONS, event.button);
    file << ' ' << event.x << ' ' << event.y;
  }
  file << std::endl;
}

void RecordingWriter::write(const RecordedDigest &digest) {
  std::array<char, 17> digits{};
  std::snprintf(digits.data(), digits.size(), "%016" PRIx64, digest.digest);
  file << digest.steps << " digest " << digits.data() << std::endl;
}

void RecordingWriter::finish(int steps) {
  file << "end " << steps << std::endl;
  file.close();
}

std::optional<Recording> readRecording(const std::string &filename, std::string &error) {
  std::ifstream file;
  if (isRegularFile(filename))
    file.open(std::filesystem::u8path(filename), std::ios::binary);
  if (!file.is_open()) {
    error = filename + ": cannot be read";
    return std::nullopt;
  }
  return readRecording(file, filename, error);
}

std::optional<Recording> readRecording(std::istream &stream, const std::string &filename,
                                       std::string &error) {
  Recording recording;
  Parser parser(recording);
  int line_number = 1;
  std::string reason;
  for (std::string line; reason.empty() && std::getline(stream, line) && !stream.eof();) {
    discardCarriageReturn(line);
    reason = parser.take(line);
    if (reason.empty())
      line_number++;
  }
  if (reason.empty() && !parser.isComplete())
    reason = "the recording is cut short";
  if (reason.empty())
    return recording;
  error = filename + ":" + std::to_string(line_number) + ": " + reason;
  return std::nullopt;
}

} // namespace gw
