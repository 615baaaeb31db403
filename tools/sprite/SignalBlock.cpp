#include "SignalBlock.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int ENDS[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

} // namespace

SignalBlock::SignalBlock() {
  sigset_t mask{};
  sigemptyset(&mask);
  for (const int number : ENDS) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    if (action.sa_handler != SIG_IGN)
      sigaddset(&mask, number);
  }
  pthread_sigmask(SIG_BLOCK, &mask, &mask_before);
}

SignalBlock::~SignalBlock() {
  pthread_sigmask(SIG_SETMASK, &mask_before, nullptr);
}

bool SignalBlock::isPending() {
  sigset_t pending{};
  sigpending(&pending);
  return std::any_of(std::begin(ENDS), std::end(ENDS), [&pending](int number) {
    return sigismember(&pending, number) == 1;
  });
}
