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
constexpr int kStepsInRound = 90;
constexpr int kFailuresShown = 3;

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

  void Compare(int cards, long firstSeed) {
    long steps = FromEnvironment("FLM_MODEL_STEPS", 2 * kDefaultSteps) / 2;
    long only = FromEnvironment("FLM_MODEL_SEED", -1);
    int failures = 0;
    long seed = only >= 0 ? only : firstSeed;
    for (long made = 0; made < steps && failures < kFailuresShown; ++seed) {
      flm_model::Round round(static_cast<uint64_t>(seed), cards, folder_ + "/r");
      made += round.Run(kStepsInRound);
      if (!round.Failure().empty()) {
        ++failures;
        ADD_FAILURE() << cards << " card(s), " << round.Failure();
      }
      if (only >= 0) return;
    }
  }

  std::string folder_;
};

TEST_F(ModelTest, LibraryAndModelAgreeOnOneCard) { Compare(1, 1); }

TEST_F(ModelTest, LibraryAndModelAgreeOnTwoCardsAtOnce) { Compare(2, 1000001); }

}  // namespace
