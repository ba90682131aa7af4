// Measuring an operation and its floor in turn.
#ifndef FILELISTMANAGEMENT_BENCH_MEASURE_H
#define FILELISTMANAGEMENT_BENCH_MEASURE_H

#include <functional>

namespace flm::bench {

// Throws std::runtime_error: an operation that did not do its work must not be timed.
void Require(bool fulfilled, const char* complaint);

// An operation and the floor it is held against. Neither preparing nor settling is timed.
struct Pair {
  std::function<void()> operation;
  std::function<void()> floor;
  std::function<void()> prepare = {};  // before each round
  std::function<void()> settle = {};   // before each of the two
};

enum class Rounds {
  kMany,  // nine, fewer when they take more than a second together
  kFew,   // three, for pairs that use up a card each
};

// Milliseconds.
struct Times {
  double operation;
  double floor;
};

// The medians over the rounds. The two change places from round to round, so that neither always
// finds the caches as the other one left them.
Times MeasureInTurn(const Pair& pair, Rounds rounds = Rounds::kMany);

}  // namespace flm::bench

#endif
