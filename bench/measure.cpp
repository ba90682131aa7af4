#include "bench/measure.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <vector>

namespace flm::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t kManyRounds = 9;
constexpr size_t kFewRounds = 3;
constexpr double kShortPair = 200;  // ms: until then more rounds cost nothing and steady the median
constexpr double kEnoughTime = 1000;  // ms for many rounds
constexpr double kMostTime = 5000;    // ms for at least kFewRounds

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double MiddleOf(std::vector<double> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

double TimeOf(const Pair& pair, const std::function<void()>& work) {
  if (pair.settle) pair.settle();
  const Clock::time_point start = Clock::now();
  work();
  return MillisecondsSince(start);
}

bool IsEnough(Rounds rounds, size_t done, double spent) {
  if (rounds == Rounds::kFew) return done >= kFewRounds;
  if (done >= kManyRounds) return spent > kShortPair;
  if (done >= kFewRounds) return spent > kEnoughTime;
  return done > 0 && spent > kMostTime;
}

}  // namespace

void Require(bool fulfilled, const char* complaint) {
  if (!fulfilled) throw std::runtime_error(complaint);
}

Times MeasureInTurn(const Pair& pair, Rounds rounds) {
  std::vector<double> operations;
  std::vector<double> floors;
  double spent = 0;
  while (!IsEnough(rounds, operations.size(), spent)) {
    if (pair.prepare) pair.prepare();
    const bool floorFirst = operations.size() % 2 == 0;
    if (floorFirst) floors.push_back(TimeOf(pair, pair.floor));
    operations.push_back(TimeOf(pair, pair.operation));
    if (!floorFirst) floors.push_back(TimeOf(pair, pair.floor));
    spent += operations.back() + floors.back();
  }
  return {MiddleOf(operations), MiddleOf(floors)};
}

}  // namespace flm::bench
