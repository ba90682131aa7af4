// What a power cut leaves of a change that was reported done.
#include <unistd.h>

#include <chrono>
#include <thread>

#include "fsio/PCQDCFFSIO.h"
#include "platform/preference.h"
#include "tests/fat/fat_card.h"

namespace flm_test {
namespace {

constexpr int kSeries = 856;  // the series value's key, in category 1
constexpr char kPicture[] = "DCIM/100PHOTO/QVX_0001.JPG";

std::string OneValue(long value) {
  return "filelistmanagement preferences 1\n1 856 " + std::to_string(value) + "\nend 1\n";
}

class FatPowerCut : public OnFat {
 protected:
  FatPowerCut() { sync(); }
};

// Shows that the tests below can fail: what nobody flushed is not on the card.
TEST_F(FatPowerCut, TakesWhatWasNotFlushed) {
  card.MakeFile("A.TXT", "content");
  EXPECT_FALSE(AfterPowerCut().Has(card.Path("A.TXT")));
  sync();
  EXPECT_EQ(AfterPowerCut().Content(card.Path("A.TXT")), "content");
}

TEST_F(FatPowerCut, LeavesTheSeriesValueThatWasStored) {
  const std::string store = card.Path("series");
  const ScopedVariable here("FLM_PREFERENCE_FILE", store.c_str());
  for (const long value : {10000001L, 10000002L, 10109999L}) {
    ASSERT_EQ(pref_set_long(1, kSeries, value), 0);
    EXPECT_EQ(AfterPowerCut().Content(store), OneValue(value));
  }
}

TEST_F(FatPowerCut, LeavesTheFirstSeriesValueAndTheFoldersMadeForIt) {
  const std::string store = card.Path("state/filelistmanagement/series");
  const ScopedVariable here("FLM_PREFERENCE_FILE", store.c_str());
  ASSERT_EQ(pref_set_long(1, kSeries, 10000001), 0);
  EXPECT_EQ(AfterPowerCut().Content(store), OneValue(10000001));
}

TEST_F(FatPowerCut, LeavesTheProtection) {
  card.MakeFile(kPicture);
  ASSERT_EQ(Scan(), 1);
  CQFileListItem item = At(0);
  ASSERT_EQ(list.SetProtect(&item, true), 0);
  ASSERT_EQ(card.IsReadOnly(kPicture), OwnerWriteIsProtection());
  EXPECT_EQ(AfterPowerCut().IsReadOnly(card.Path(kPicture)), OwnerWriteIsProtection());
}

TEST_F(FatPowerCut, LeavesTheNewFolder) {
  ASSERT_EQ(Scan(), 0);
  char path[396] = {};
  ASSERT_EQ(list.GetNewFileName(path, 0), 0);
  EXPECT_TRUE(AfterPowerCut().Has(card.Path("DCIM/100PHOTO")));
}

// The flush after a deletion goes on in the background.
TEST_F(FatPowerCut, SoonLeavesTheDeletion) {
  constexpr int kTries = 200;
  constexpr std::chrono::milliseconds kPause(10);
  card.MakeFile(kPicture);
  card.MakeFile("DCIM/100PHOTO/QVX_0002.JPG");
  sync();
  ASSERT_EQ(Scan(), 2);
  ASSERT_TRUE(AfterPowerCut().Has(card.Path(kPicture)));
  CQFileListItem item = At(0);
  ASSERT_EQ(list.Delete(&item, false, false), 10000002);
  bool there = true;
  for (int i = 0; there && i < kTries; ++i) {
    std::this_thread::sleep_for(kPause);
    there = AfterPowerCut().Has(card.Path(kPicture));
  }
  EXPECT_FALSE(there);
}

}  // namespace
}  // namespace flm_test
