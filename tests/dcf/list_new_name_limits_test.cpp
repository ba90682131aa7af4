// New names at the limits: full tables and pools, odd texts, buffers that are too small.
#include <gtest/gtest.h>

#include "dcf/CQDCFDir.h"
#include "platform/preference.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

// The count may be lower than what is held when folders share a number, so the pool can be
// exhausted before the count says so.
TEST(CQDCFListNewNameLimits, AFullPoolStillGivesAName) {
  CardCatalogue c;
  FakeListings fake(c.card);
  for (const char* name : {"103AAAAA", "103BBBBB", "103CCCCC", "103PHOTO"}) {
    fake.AddFolder(name, 8000);
  }
  c.Scan();
  CQDCFDir keep;
  keep.SetDnum(103);
  c.list.FreeAllDirExcept(&keep);
  EXPECT_EQ(c.New(), (Step{0, "DCIM/103PHOTO/QVX_8001.JPG"}));
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.Find("DCIM/103PHOTO/QVX_8001.JPG"), nullptr);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10308001);
}

TEST(CQDCFListNewNameLimits, AFullTableHasNoPlaceForANewFolder) {
  CardCatalogue c;
  FakeListings fake(c.card);
  for (int i = 0; i < 999; ++i) fake.AddFolder("100" + std::to_string(10000 + i), 1);
  c.Scan();
  pref_set_long(1, 856, 5);
  const int last = c.list.GetStoredLastIndex();
  const Names tree = c.card.Tree();
  EXPECT_EQ(c.New().result, -9999);
  EXPECT_EQ(c.list.GetCount(), 999);
  EXPECT_EQ(c.list.GetStoredLastIndex(), last);
  EXPECT_EQ(pref_get_long(1, 856), 5);
  EXPECT_EQ(c.card.Tree(), tree);
  EXPECT_EQ(c.New("10998").path, "DCIM/10010998/QVX_0002.JPG") << "a folder that is there will do";
}

TEST(CQDCFListNewNameLimits, MissingTextsAreRefused) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  pref_set_long(1, 856, 5);
  char out[flm::kNewNameSize] = "untouched";
  const int size = sizeof(out);
  EXPECT_EQ(c.list.GetNewFileName(nullptr, "JPG", out, size, false, "PHOTO"), -1);
  EXPECT_EQ(c.list.GetNewFileName("QVX_", nullptr, out, size, false, "PHOTO"), -1);
  EXPECT_EQ(c.list.GetNewFileName("QVX_", "JPG", nullptr, size, false, "PHOTO"), -1);
  EXPECT_EQ(c.list.GetNewFileName("QVX_", "JPG", out, size, false, nullptr), -1);
  EXPECT_STREQ(out, "untouched");
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10000001);
  EXPECT_EQ(pref_get_long(1, 856), 5);
}

// The arguments are checked before anything else, the stored series value included.
TEST(CQDCFListNewNameLimits, ARefusedRequestTakesNoSeriesValue) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.list.SetSeriesMode(true);
  pref_set_long(1, 856, 12300045);
  char out[flm::kNewNameSize] = "untouched";
  const int size = sizeof(out);
  EXPECT_EQ(c.list.GetNewFileName(nullptr, "JPG", out, size, false, "PHOTO"), -1);
  EXPECT_EQ(c.list.GetNewFileName("QVX_", "JPG", nullptr, size, false, "PHOTO"), -1);
  EXPECT_EQ(c.list.GetNewFileName("QVX_", "JPG", out, size, false, nullptr), -1);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10000001);
}

TEST(CQDCFListNewNameLimits, TheInnerOperationsRefuseMissingTexts) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  char out[flm::kNewNameSize] = "untouched";
  const int size = sizeof(out);
  EXPECT_EQ(c.list.GetNewFileIndex(nullptr, "JPG", out, size, "PHOTO"), -1);
  EXPECT_EQ(c.list.GetNewFileIndex("QVX_", nullptr, out, size, "PHOTO"), -1);
  EXPECT_EQ(c.list.GetNewFileIndex("QVX_", "JPG", nullptr, size, "PHOTO"), -1);
  EXPECT_EQ(c.list.GetNewFileIndex("QVX_", "JPG", out, size, nullptr), -1);
  EXPECT_LT(c.list.GetNewFileIndex_SetInfo(10000002, nullptr, "JPG", out, size, "PHOTO"), 0);
  EXPECT_LT(c.list.GetNewFileIndex_SetInfo(10000002, "QVX_", "JPG", out, size, nullptr), 0);
  EXPECT_STREQ(out, "untouched");
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10000001);
}

TEST(CQDCFListNewNameLimits, WithoutARootNothingIsNamedOrMade) {
  static int made;
  made = 0;
  CardCatalogue c;
  c.list.Create();
  flm::Os().Mkdir = [](const char*, mode_t) { return ++made, -1; };
  EXPECT_EQ(c.New().result, -1);
  EXPECT_EQ(c.list.GetCount(), 0);
  EXPECT_EQ(made, 0);
}

TEST(CQDCFListNewNameLimits, WithoutATableNothingIsNamed) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.list.Destroy();
  EXPECT_LT(c.New().result, 0);
}

TEST(CQDCFListNewNameLimits, BeforeAScanTheFirstNameCanBeGiven) {
  CardCatalogue c;
  c.card.MakeDir("DCIM");
  const Step step = c.New();
  EXPECT_EQ(step, (Step{0, "DCIM/100PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(c.list.GetCount(), 1);
}

TEST(CQDCFListNewNameLimits, ASmallBufferIsNeverOverrun) {
  for (int size : {1, 2, 5, 12, 13, 20, 30, 127, 128}) {
    CardCatalogue c;
    c.Scan();
    std::string out(flm::kNewNameSize, '#');
    c.list.GetNewFileName("QVX_", "JPG", &out[0], size, false, "PHOTO");
    const std::string whole = c.card.Path("DCIM/100PHOTO/QVX_0001.JPG");
    EXPECT_EQ(std::string(out.c_str()), whole.substr(0, size - 1)) << size;
    EXPECT_EQ(out.find_last_not_of('#'), std::strlen(out.c_str())) << size;
    c.Walked();
  }
}

TEST(CQDCFListNewNameLimits, WithoutRoomNothingIsWritten) {
  for (int size : {0, -1, -2147483647 - 1}) {
    CardCatalogue c;
    c.Scan();
    char out[4] = "##";
    c.list.GetNewFileName("QVX_", "JPG", out, size, false, "PHOTO");
    EXPECT_STREQ(out, "##");
    c.Walked();
  }
}

TEST(CQDCFListNewNameLimits, TextsOfAnyLengthAreSafe) {
  for (size_t length : {0u, 1u, 40u, 95u, 96u, 300u, 5000u}) {
    CardCatalogue c;
    c.Scan();
    flm::Os().Mkdir = [](const char*, mode_t) { return -1; };
    const std::string text(length, 'A');
    char out[flm::kNewNameSize] = "";
    const int size = sizeof(out);
    c.list.GetNewFileName(text.c_str(), "JPG", out, size, false, "PHOTO");
    c.list.GetNewFileName("QVX_", text.c_str(), out, size, false, "PHOTO");
    c.list.GetNewFileName("QVX_", "JPG", out, size, false, text.c_str());
    c.list.GetNewFileName("%s%n", "%n", out, size, false, "%s%n%");
    EXPECT_LT(std::strlen(out), sizeof(out));
    c.Walked();
    c.WalkedBack();
  }
}

TEST(CQDCFListNewNameLimits, IndexesThatCannotExistAreSafe) {
  for (int index : {-2147483647 - 1, -1, 0, 99999, 100000000, 2147483647}) {
    CardCatalogue c;
    c.Scan();
    flm::Os().Mkdir = [](const char*, mode_t) { return -1; };
    char out[flm::kNewNameSize] = "";
    c.list.GetNewFileIndex_SetInfo(index, "QVX_", "JPG", out, sizeof(out), "PHOTO");
    EXPECT_LT(std::strlen(out), sizeof(out));
    c.Walked();
  }
}

TEST(CQDCFListNewNameLimits, NamingLosesNoDescriptor) {
  CardCatalogue c;
  c.Scan();
  const int before = FdCount();
  for (int i = 0; i < 5; ++i) c.New();
  EXPECT_EQ(FdCount(), before);
}

}  // namespace
}  // namespace flm_test
