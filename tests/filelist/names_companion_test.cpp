// Companions of existing files: the marks for them and the names under which they are written.
#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FileListTest;
using flm_test::ItemOf;

class FileListCompanions : public FileListTest {
 protected:
  void SetUp() override {
    card.MakeFiles("DCIM/100PHOTO", "QVX_", 11, 2, "JPG");
    ASSERT_EQ(Scan(), 2);
  }
  std::string ObjectAt(int index) {
    CQFileListItem item;
    EXPECT_EQ(list.DCF_GetAt(index, &item), 0);
    return item.objectPath;
  }
};

TEST_F(FileListCompanions, TheNewestFilesCompanionHasItsNameAndIsMarked) {
  const char* const extensions[] = {"SRW", "WAV", "MPO"};
  const char* const objects[] = {"S  ", "SW ", "SWM"};
  for (int kind = 0; kind < 3; ++kind) {
    char out[396] = {};
    EXPECT_EQ(list.GetLatestFileName(out, static_cast<eFileAddType>(kind)), 0);
    EXPECT_EQ(out, On(std::string("DCIM/100PHOTO/QVX_0012.") + extensions[kind]));
    EXPECT_EQ(ObjectAt(1), On(std::string("DCIM/100PHOTO/QVX_0012.") + objects[kind]));
  }
  EXPECT_EQ(ObjectAt(0), "");
  EXPECT_FALSE(card.Exists("DCIM/100PHOTO/QVX_0012.WAV"));
}

TEST_F(FileListCompanions, NoTerminatorIsWritten) {
  char out[128];
  std::memset(out, 'z', sizeof(out));
  ASSERT_EQ(list.GetLatestFileName(out, FILE_ADD_VOICE_MEMO), 0);
  const std::string name = On("DCIM/100PHOTO/QVX_0012.WAV");
  EXPECT_EQ(std::string(out, name.size()), name);
  for (size_t i = name.size(); i < sizeof(out); ++i) ASSERT_EQ(out[i], 'z');
}

TEST_F(FileListCompanions, AnUnknownKindLeavesTheBuffer) {
  char out[396] = "untouched";
  for (const int kind : {3, -1, 1000}) {
    EXPECT_EQ(list.GetLatestFileName(out, static_cast<eFileAddType>(kind)), -200);
  }
  EXPECT_STREQ(out, "untouched");
  EXPECT_EQ(ObjectAt(1), "");
}

TEST_F(FileListCompanions, NoBufferIsRefused) {
  EXPECT_EQ(list.GetLatestFileName(nullptr, FILE_ADD_RAW), -1);
  EXPECT_EQ(ObjectAt(1), "");
}

TEST_F(FileListCompanions, TheCursorGoesToTheNewestFile) {
  ASSERT_EQ(list.SetCurIndex(0), 0);
  char out[396] = {};
  ASSERT_EQ(list.GetLatestFileName(out, FILE_ADD_RAW), 0);
  EXPECT_EQ(list.GetCurIndex(), 1);
}

TEST_F(FileListCompanions, AnEmptyListHasNoNewestFile) {
  card.Remove("DCIM");
  ASSERT_EQ(list.Listup(0), 0);
  char out[396] = "untouched";
  EXPECT_EQ(list.GetLatestFileName(out, FILE_ADD_RAW), -1);
  EXPECT_EQ(list.GetLatestFileName(out, static_cast<eFileAddType>(3)), -200);
  EXPECT_STREQ(out, "untouched");
}

TEST_F(FileListCompanions, AReservedNameTakesACompanionAtOnce) {
  char name[396] = {};
  ASSERT_EQ(list.GetNewFileName(name, 0), 0);
  char out[396] = {};
  ASSERT_EQ(list.GetLatestFileName(out, FILE_ADD_VOICE_MEMO), 0);
  EXPECT_EQ(out, On("DCIM/100PHOTO/QVX_0013.WAV"));
}

// --- SetObject ----------------------------------------------------------------------------------

TEST_F(FileListCompanions, ArgumentsAreCheckedInTheirOrder) {
  CQFileList unscanned;
  CQFileListItem item = ItemOf(On("DCIM/100PHOTO/QVX_0099.JPG"));
  const eFileAddType unknown = static_cast<eFileAddType>(3);
  EXPECT_EQ(unscanned.SetObject(nullptr, unknown, true), -1);
  EXPECT_EQ(unscanned.SetObject(&item, unknown, true), -6);
  EXPECT_EQ(list.SetObject(nullptr, unknown, true), -1);
  EXPECT_EQ(list.SetObject(&item, unknown, true), -200);
  EXPECT_EQ(list.SetObject(&item, static_cast<eFileAddType>(-1), true), -200);
  EXPECT_EQ(list.SetObject(&item, FILE_ADD_RAW, true), -1);
}

TEST_F(FileListCompanions, AnEmptyPathIsRefused) {
  CQFileListItem item;
  EXPECT_LT(list.SetObject(&item, FILE_ADD_RAW, true), 0);
}

TEST_F(FileListCompanions, EachIsSetAndTakenAway) {
  CQFileListItem item = ItemOf(PathAt(0));
  EXPECT_EQ(list.SetObject(&item, FILE_ADD_RAW, true), 0);
  EXPECT_EQ(ObjectAt(0), On("DCIM/100PHOTO/QVX_0011.S  "));
  EXPECT_EQ(list.SetObject(&item, FILE_ADD_VOICE_MEMO, true), 0);
  EXPECT_EQ(list.SetObject(&item, FILE_ADD_MULTI_PICTURE, true), 0);
  EXPECT_EQ(ObjectAt(0), On("DCIM/100PHOTO/QVX_0011.SWM"));
  EXPECT_EQ(list.SetObject(&item, FILE_ADD_VOICE_MEMO, false), 0);
  EXPECT_EQ(ObjectAt(0), On("DCIM/100PHOTO/QVX_0011.S M"));
  EXPECT_EQ(list.SetObject(&item, FILE_ADD_RAW, false), 0);
  EXPECT_EQ(list.SetObject(&item, FILE_ADD_MULTI_PICTURE, false), 0);
  EXPECT_EQ(ObjectAt(0), On("DCIM/100PHOTO/QVX_0011.   "));
  EXPECT_EQ(ObjectAt(1), "");
}

TEST_F(FileListCompanions, TheItemItselfIsNotChanged) {
  CQFileListItem item = ItemOf(PathAt(0));
  ASSERT_EQ(list.SetObject(&item, FILE_ADD_RAW, true), 0);
  EXPECT_EQ(item.filePath, PathAt(0));
  EXPECT_STREQ(item.objectPath, "");
}

}  // namespace
