#include "Recording.h"

#include "utility.h"

#include <array>
#include <limits>
#include <sstream>

namespace {

constexpr const char *FIRST_LINE = "tazlet-recording 1";

constexpr std::array<const char *, 5> KINDS = {"key-press", "key-release", "mouse-move",
                                               "mouse-press", "mouse-release"};

bool isKey(InputEvent::Kind kind) {
  return kind == InputEvent::key_press || kind == InputEvent::key_release;
}

/// Reads a whole number and nothing else.
bool parse(const std::string &word, long long low, long long high, long long &value) {
  std::istringstream stream(word);
  return stream >> value && stream.eof() && value >= low && value <= high;
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
    if (line_count++ == 0)
      return line == FIRST_LINE ? "" : "expected \"" + std::string(FIRST_LINE) + "\"";
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; stream >> word;)
      words.push_back(word);
    if (has_ended)
      return "nothing may follow the end";
    if (line_count == 2)
      return takeSeed(words);
    if (!words.empty() && words[0] == "end")
      return takeEnd(words);
    return takeEvent(words);
  }

  bool isComplete() const { return line_count >= 2; }

private:
  std::string takeSeed(const std::vector<std::string> &words) {
    long long seed = 0;
    if (words.size() != 2 || words[0] != "seed" ||
        !parse(words[1], 0, std::numeric_limits<unsigned>::max(), seed))
      return "expected \"seed\" and a number from 0 to 4294967295";
    recording.seed = static_cast<unsigned>(seed);
    return "";
  }

  std::string takeEnd(const std::vector<std::string> &words) {
    long long steps = 0;
    if (words.size() != 2 ||
        !parse(words[1], recording.steps, std::numeric_limits<int>::max(), steps))
      return "expected \"end\" and the number of steps, past the last event";
    recording.steps = static_cast<int>(steps);
    has_ended = true;
    return "";
  }

  std::string takeEvent(const std::vector<std::string> &words) {
    InputEvent event;
    long long number = 0;
    const int earliest = recording.events.empty() ? 0 : recording.events.back().step;
    if (words.size() < 2 ||
        !parse(words[0], earliest, std::numeric_limits<int>::max() - 1, number))
      return "expected a step, not before that of the line above, and an event";
    event.step = static_cast<int>(number);
    std::size_t kind = 0;
    while (kind < KINDS.size() && words[1] != KINDS[kind])
      kind++;
    if (kind == KINDS.size())
      return "unknown event " + quote(words[1]);
    event.kind = static_cast<InputEvent::Kind>(kind);
    std::string reason = takeDetails(words, event);
    if (reason.empty()) {
      recording.events.push_back(event);
      recording.steps = event.step + 1;
    }
    return reason;
  }

  std::string takeDetails(const std::vector<std::string> &words, InputEvent &event) {
    constexpr int LIMIT = 1000000; // pixels
    std::vector<long long> numbers(words.size() - 2);
    for (std::size_t i = 0; i < numbers.size(); i++)
      if (!parse(words[i + 2], -LIMIT, LIMIT, numbers[i]))
        return quote(words[i + 2]) + " is not a number in range";
    if (isKey(event.kind)) {
      if (numbers.size() != 1 || numbers[0] < -1 || numbers[0] >= sf::Keyboard::KeyCount)
        return "expected one key code, -1 to 100";
      event.key = static_cast<sf::Keyboard::Key>(numbers[0]);
      return "";
    }
    const std::size_t position = event.kind == InputEvent::mouse_move ? 0 : 1;
    if (numbers.size() != position + 2)
      return position ? "expected a button, x and y" : "expected x and y";
    if (position == 1) {
      if (numbers[0] < 0 || numbers[0] >= sf::Mouse::ButtonCount)
        return "expected a button, 0 to 4";
      event.button = static_cast<sf::Mouse::Button>(numbers[0]);
    }
    event.position = {static_cast<int>(numbers[position]),
                      static_cast<int>(numbers[position + 1])};
    return "";
  }

  Recording &recording;
  int line_count = 0;
  bool has_ended = false;
};

} // namespace

RecordingWriter::RecordingWriter(const std::string &filename, unsigned seed)
    : file(filename) {
  file << FIRST_LINE << "\nseed " << seed << std::endl;
}

void RecordingWriter::write(const InputEvent &event) {
  file << event.step << ' ' << KINDS[event.kind];
  if (isKey(event.kind)) {
    file << ' ' << static_cast<int>(event.key);
  } else {
    if (event.kind != InputEvent::mouse_move)
      file << ' ' << static_cast<int>(event.button);
    file << ' ' << event.position.x << ' ' << event.position.y;
  }
  file << std::endl;
}

void RecordingWriter::finish(int steps) {
  file << "end " << steps << std::endl;
  file.close();
}

std::optional<Recording> readRecording(const std::string &filename, std::string &error) {
  std::ifstream file;
  if (gw::isRegularFile(filename))
    file.open(filename);
  if (!file.is_open()) {
    error = filename + ": cannot be read";
    return std::nullopt;
  }
  Recording recording;
  Parser parser(recording);
  int line_number = 1;
  std::string reason;
  for (std::string line; reason.empty() && std::getline(file, line) && !file.eof();) {
    gw::discardCarriageReturn(line);
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
