// The main program of every test executable. Before a test begins it gets a preference store of its
// own, so that no test sees another's numbers and none ever sees the machine's; the time zone is
// fixed, with a part of an hour in it so that local time is never mistaken for UTC.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>

#include "tests/support/card.h"

namespace {

class FreshPreference : public testing::EmptyTestEventListener {
 public:
  // A child of a test that ends in the ordinary way must not take its parent's store away.
  ~FreshPreference() override {
    [[maybe_unused]] static flm_test::ScopedPreference* parents = nullptr;
    if (getpid() != process_) parents = preference_.release();
  }

 private:
  void OnTestStart(const testing::TestInfo&) override {
    preference_ = std::make_unique<flm_test::ScopedPreference>();
  }
  void OnTestEnd(const testing::TestInfo&) override { preference_.reset(); }

  const pid_t process_ = getpid();
  std::unique_ptr<flm_test::ScopedPreference> preference_;
};

}  // namespace

int main(int argc, char** argv) {
  setenv("TZ", "FLT-05:30", 1);
  umask(022);
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new FreshPreference);
  return RUN_ALL_TESTS();
}
