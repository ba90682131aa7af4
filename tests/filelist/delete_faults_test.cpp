// Bulk operations on a card that begins to fail: each call to the system fails in turn, once and
// for good. Whatever the result, the list then names exactly the files that are on the card.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;
using Names = std::vector<std::string>;

int callsLeft = 0;  // calls that still succeed
bool FailsNow() { return callsLeft-- <= 0; }

// Every change of the card fails from now on, after `good` calls that succeed.
void FailChangesAfter(int good) {
  static flm::OsCalls real;
  flm::ResetOsCalls();
  real = flm::Os();
  callsLeft = good;
  flm::Os().Sync = [] {};
  flm::Os().StartThread = [](pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) {
    return -1;
  };
  flm::Os().Unlink = [](const char* path) { return FailsNow() ? -1 : real.Unlink(path); };
  flm::Os().Remove = [](const char* path) { return callsLeft < 0 ? -1 : real.Remove(path); };
  flm::Os().Chmod = [](const char* path, mode_t mode) {
    return FailsNow() ? -1 : real.Chmod(path, mode);
  };
  flm::Os().Open = [](const char* path, int flags, mode_t mode) {
    return FailsNow() ? -1 : real.Open(path, flags, mode);
  };
}

struct Operation {
  const char* name;
  int (*run)(CQFileList& list);
};
const Operation kOperations[] = {
    {"DeleteAll", [](CQFileList& list) { return list.DeleteAll(true, nullptr); }},
    {"DeleteAllButProtected", [](CQFileList& list) { return list.DeleteAll(false, nullptr); }},
    {"DeleteSel", [](CQFileList& list) { return list.DeleteSel(true, nullptr); }},
    {"DeleteConsAll", [](CQFileList& list) { return list.DeleteConsAll(false, nullptr); }},
    {"SetProtectAll", [](CQFileList& list) { return list.SetProtectAll(true, nullptr); }},
    {"SetProtectSel", [](CQFileList& list) { return list.SetProtectSel(nullptr); }},
};

class FailingCard : public testing::TestWithParam<Operation> {
 protected:
  // A card of two folders; every second file is selected, one is protected, one has a companion.
  void Prepare(ListedCard& at) {
    ASSERT_EQ(5, at.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                          "DCIM/100PHOTO/QVX_0002.WAV", "DCIM/101PHOTO/QVX_0001.JPG",
                          "DCIM/101PHOTO/QVX_0002.JPG", "DCIM/101PHOTO/QVX_0003.MP4"}));
    at.card.SetReadOnly("DCIM/101PHOTO/QVX_0001.JPG", true);
    for (const int index : {0, 2, 4}) {
      CQFileListItem item = at.At(index);
      at.list.SetSel(&item, true);
      at.list.SetConsCap(&item, true);
    }
  }
  // The pictures and movies that lie on the card.
  static Names OnCard(const ListedCard& at) {
    Names names;
    for (const std::string& path : at.card.Tree()) {
      const std::string end = path.size() < 4 ? "" : path.substr(path.size() - 4);
      if (end == ".JPG" || end == ".MP4") names.push_back(path);
    }
    return names;
  }
};

TEST_P(FailingCard, TheListNamesWhatIsOnTheCard) {
  bool succeeded = false;
  for (int good = 0; good < 40 && !succeeded; ++good) {
    SCOPED_TRACE(good);
    ListedCard at;
    Prepare(at);
    const int descriptors = flm_test::FdCount();
    FailChangesAfter(good);
    GetParam().run(at.list);
    succeeded = callsLeft >= 0;
    EXPECT_EQ(OnCard(at), at.Files());
    EXPECT_EQ(at.list.DCF_GetCount(), at.list.GetCount());
    EXPECT_EQ(descriptors, flm_test::FdCount());
  }
  EXPECT_TRUE(succeeded);
}

INSTANTIATE_TEST_SUITE_P(Operations, FailingCard, testing::ValuesIn(kOperations),
                         [](const testing::TestParamInfo<Operation>& operation) {
                           return std::string(operation.param.name);
                         });

}  // namespace
