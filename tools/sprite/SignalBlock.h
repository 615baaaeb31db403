#pragma once

#include <csignal>

/// Holds back the signals that ask the program to end while this object lives, so that
/// it can put things in order first. Then the signal that came takes its course. Those
/// that the program was started to ignore stay ignored.
class SignalBlock {
public:
  SignalBlock();
  ~SignalBlock();

  SignalBlock(const SignalBlock &) = delete;
  SignalBlock &operator=(const SignalBlock &) = delete;

  /// Whether one is held back: what takes long should be given up.
  static bool isPending();

private:
  sigset_t mask_before{};
};
