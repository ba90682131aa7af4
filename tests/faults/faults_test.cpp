// Every call to the system and every request for memory of every scenario fails, once and for good,
// and each time the library must end, answer as documented, lose nothing and leave a list that says
// what is on the card.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/faults/fault_parts.h"
#include "tests/faults/fault_sweep.h"

namespace flm_faults {
namespace {

const std::vector<std::string> kNone;

class Faults : public testing::TestWithParam<Scenario> {};

TEST_P(Faults, WithoutOneNothingIsWrong) {
  const int handles = flm_test::FdCount();
  {
    const Sweep sweep(GetParam());
    EXPECT_EQ(kNone, sweep.Complaints());
    // Only a deletion asks for a flush in the background.
    EXPECT_EQ(GetParam().mayGo != Never, sweep.Clean().threads > 0);
  }
  EXPECT_EQ(handles, flm_test::FdCount());
}

TEST_P(Faults, OfEveryCallToTheSystemAreEndured) {
  Sweep sweep(GetParam());
  sweep.FailCalls();
  EXPECT_EQ(kNone, sweep.Complaints());
  RecordProperty("faults", sweep.Faults());
}

TEST_P(Faults, OfEveryRequestForMemoryAreEndured) {
  Sweep sweep(GetParam());
  sweep.FailRequests();
  EXPECT_EQ(kNone, sweep.Complaints());
  RecordProperty("faults", sweep.Faults());
}

INSTANTIATE_TEST_SUITE_P(Of, Faults, testing::ValuesIn(Scenarios()),
                         [](const testing::TestParamInfo<Scenario>& scenario) {
                           return std::string(scenario.param.name);
                         });

// Together the scenarios come by every call there is, and are many enough to mean something.
TEST(FaultScenarios, ReachEveryCallAndTwentyThousandFaults) {
  constexpr int kOnceAndForGood = 2;
  unsigned int kinds = 0;
  int calls = 0;
  for (const Scenario& scenario : Scenarios()) {
    const Sweep sweep(scenario);
    kinds |= sweep.Clean().kinds;
    calls += sweep.Clean().calls;
  }
  EXPECT_EQ((1U << static_cast<unsigned int>(Call::kCount)) - 1, kinds);
  EXPECT_LE(20000, calls * static_cast<int>(AllErrors().size()) * kOnceAndForGood);
}

}  // namespace
}  // namespace flm_faults
