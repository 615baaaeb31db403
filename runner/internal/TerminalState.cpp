#include "internal/TerminalState.h"

#include <sys/types.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace gw {

namespace {

constexpr std::array<int, 6> CRASHES = {SIGSEGV, SIGBUS,  SIGFPE,
                                        SIGILL,  SIGABRT, SIGQUIT};

// All of it is there before the first signal can come, and stays.
std::array<char, 256> goodbye{};
std::size_t goodbye_length = 0;
termios modes{};
std::array<struct sigaction, CRASHES.size()> former_actions{};
std::FILE *p_errors = nullptr; ///< what is written to the standard error stream
int error_stream = -1;         ///< where that goes otherwise
std::atomic<bool> is_guarded{false};
volatile std::sig_atomic_t is_stop_wanted = 0;

void writeAll(int file, const char *text, std::size_t length) {
  while (length > 0) {
    const ssize_t written = write(file, text, length);
    if (written <= 0)
      return;
    text += written;
    length -= static_cast<std::size_t>(written);
  }
}

void giveBackErrorStream() {
  if (error_stream < 0)
    return;
  dup2(error_stream, STDERR_FILENO);
  const int file = fileno(p_errors);
  lseek(file, 0, SEEK_SET);
  std::array<char, 512> part{};
  for (ssize_t length = 0; (length = read(file, part.data(), part.size())) > 0;)
    writeAll(STDERR_FILENO, part.data(), static_cast<std::size_t>(length));
}

/// What was in the way of the crash takes its course: what the process had for this
/// signal before, at the second occurrence of what caused it.
void onCrash(int number, siginfo_t *p_info, void *) {
  releaseTerminal();
  for (std::size_t i = 0; i < CRASHES.size(); i++)
    if (CRASHES[i] == number)
      sigaction(number, &former_actions[i], nullptr);
  if (p_info->si_code <= 0) // somebody sent it: it does not occur again by itself
    raise(number);
}

void onStop(int) {
  is_stop_wanted = 1;
}

void catchStop(bool is_caught) {
  struct sigaction action {};
  action.sa_handler = is_caught ? onStop : SIG_DFL;
  struct sigaction former {};
  sigaction(SIGTSTP, nullptr, &former);
  if (former.sa_handler != SIG_IGN) // its shell knows no fg
    sigaction(SIGTSTP, &action, nullptr);
}

void catchCrashes() {
  static std::array<char, 1 << 16> stack; // for a crash that has used up the other one
  stack_t alternative{};
  alternative.ss_sp = stack.data();
  alternative.ss_size = stack.size();
  sigaltstack(&alternative, nullptr);
  struct sigaction action {};
  action.sa_sigaction = onCrash;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  for (std::size_t i = 0; i < CRASHES.size(); i++)
    sigaction(CRASHES[i], &action, &former_actions[i]);
}

} // namespace

void guardTerminal(const std::string &farewell) {
  goodbye_length = farewell.copy(goodbye.data(), goodbye.size());
  tcgetattr(STDOUT_FILENO, &modes);
  termios ours = modes;
  ours.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO); // each key at once, and unseen
  ours.c_iflag &= ~static_cast<tcflag_t>(ICRNL);
  ours.c_oflag &= ~static_cast<tcflag_t>(OPOST);
  tcsetattr(STDOUT_FILENO, TCSADRAIN, &ours);
  p_errors = isatty(STDERR_FILENO) != 0 ? std::tmpfile() : nullptr;
  if (p_errors) {
    error_stream = dup(STDERR_FILENO);
    dup2(fileno(p_errors), STDERR_FILENO);
  }
  static const bool is_registered = std::atexit(releaseTerminal) == 0;
  static_cast<void>(is_registered);
  is_guarded = true;
  catchCrashes();
  catchStop(true);
}

void releaseTerminal() {
  if (!is_guarded.exchange(false))
    return;
  tcflush(STDOUT_FILENO, TCOFLUSH); // nothing may stand in the way
  writeAll(STDOUT_FILENO, goodbye.data(), goodbye_length);
  tcsetattr(STDOUT_FILENO, TCSANOW, &modes);
  giveBackErrorStream();
}

void stopProcess() {
  catchStop(false);
  raise(SIGTSTP);
  catchStop(true);
}

bool takeStopRequest() {
  const bool is_wanted = is_stop_wanted != 0;
  is_stop_wanted = 0;
  return is_wanted;
}

} // namespace gw
