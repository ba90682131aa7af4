// Random operation sequences on random cards, compared step by step with an independent model of
// what the library does. FLM_MODEL_STEPS=N makes a longer run, FLM_MODEL_SEED=N repeats the round
// of one seed.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/model/model_round.h"

namespace {

constexpr int kDefaultSteps = 10000;
constexpr int kFailuresShown = 3;

// How long the rounds of a kind of card are. A large card takes long to make, so that its rounds
// are longer, and each of their steps costs several of a small card.
struct Length {
  flm_model::CardSize size;
  int stepsInRound;
  int share;  // of FLM_MODEL_STEPS: one in so many
};
constexpr Length kSmall = {flm_model::CardSize::kSmall, 90, 1};
constexpr Length kLarge = {flm_model::CardSize::kLarge, 300, 7};

long FromEnvironment(const char* name, long otherwise) {
  const char* value = getenv(name);
  return value == nullptr ? otherwise : atol(value);
}

class ModelTest : public testing::Test {
 protected:
  void SetUp() override {
    // Thousands of small cards are made and removed: in memory where the system has such a place.
    std::string folder = access("/dev/shm", W_OK) == 0 ? "/dev/shm/flmXXXXXX" : "/tmp/flmXXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    folder_ = folder;
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void Compare(int cards, const Length& length, long firstSeed) {
    long steps = FromEnvironment("FLM_MODEL_STEPS", 2 * kDefaultSteps) / 2 / length.share;
    long only = FromEnvironment("FLM_MODEL_SEED", -1);
    int failures = 0;
    long seed = only >= 0 ? only : firstSeed;
    for (long made = 0; made < steps && failures < kFailuresShown; ++seed) {
      flm_model::Round round(static_cast<uint64_t>(seed), cards, length.size, folder_ + "/r");
      made += round.Run(length.stepsInRound);
      if (!round.Failure().empty()) {
        ++failures;
        ADD_FAILURE() << cards << " card(s), " << round.Failure();
      }
      if (only >= 0) return;
    }
  }

  std::string folder_;
};

TEST_F(ModelTest, LibraryAndModelAgreeOnOneCard) { Compare(1, kSmall, 1); }

TEST_F(ModelTest, LibraryAndModelAgreeOnTwoCardsAtOnce) { Compare(2, kSmall, 1000001); }

TEST_F(ModelTest, LibraryAndModelAgreeOnALargeCard) { Compare(1, kLarge, 2000001); }

TEST_F(ModelTest, LibraryAndModelAgreeOnTwoLargeCardsAtOnce) { Compare(2, kLarge, 3000001); }

}  // namespace
