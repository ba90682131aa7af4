// The print order file as the list saves and loads it: where it lies, whose name it carries, which
// lists may load it.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::ListedCard;

constexpr char kOne[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kTwo[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kPrintOrder[] = "MISC/AUTPRINT.MRK";
constexpr char kOrderForOne[] =
    "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n"
    "[JOB]\r\nPRT PID=001\r\nPRT TYP=STD\r\nPRT QTY=002\r\nIMG FMT=EXIF2 -J\r\n"
    "<IMG SRC=\"../DCIM/100PHOTO/QVX_0001.JPG\">\r\n";

std::string Header(const std::string& name) {
  return "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"" + name + "\"\r\n\r\n";
}

class PrintOrder : public testing::Test {
 protected:
  PrintOrder() { EXPECT_EQ(2, at_.With({kOne, kTwo})); }
  void OrderOne(int copies) {
    CQFileListItem item = at_.Item(kOne);
    ASSERT_EQ(0, at_.list.SetDPOF(&item, copies));
  }
  int Copies(const std::string& file) {
    CQFileListItem item = at_.Item(file);
    return at_.list.GetDPOFNumOfCopy(&item);
  }
  ListedCard at_;
};

TEST_F(PrintOrder, WithoutAPathItIsTheCardsOwnFile) {
  OrderOne(2);
  EXPECT_EQ(0, at_.list.SaveDPOFInfo(nullptr, Arg("CAM")));
  EXPECT_EQ(kOrderForOne, at_.card.ReadFile(kPrintOrder));
}

TEST_F(PrintOrder, AGivenPathIsUsedAsItIs) {
  OrderOne(2);
  EXPECT_EQ(0, at_.list.SaveDPOFInfo(Arg(at_.card.Path("elsewhere.txt")), Arg("CAM")));
  EXPECT_EQ(kOrderForOne, at_.card.ReadFile("elsewhere.txt"));
  EXPECT_FALSE(at_.card.Exists(kPrintOrder));
}

TEST_F(PrintOrder, AFileThatCannotBeMadeIsReported) {
  EXPECT_EQ(-1, at_.list.SaveDPOFInfo(Arg(at_.card.Path("none/AUTPRINT.MRK")), Arg("CAM")));
  EXPECT_EQ(-1, at_.list.SaveDPOFInfo(Arg(""), Arg("CAM")));
  EXPECT_EQ(-1, at_.list.SaveDPOFInfo(Arg(at_.card.Path("MISC")), Arg("CAM")));
  at_.card.Remove("MISC");
  EXPECT_EQ(-1, at_.list.SaveDPOFInfo(nullptr, Arg("CAM")));
  EXPECT_FALSE(at_.card.Exists("MISC"));
}

TEST_F(PrintOrder, MarksReachTheCardOnlyWhenSaved) {
  OrderOne(2);
  EXPECT_FALSE(at_.card.Exists(kPrintOrder));
}

TEST_F(PrintOrder, LoadingBringsTheSavedMarksBack) {
  OrderOne(2);
  CQFileListItem two = at_.Item(kTwo);
  ASSERT_EQ(0, at_.list.SetDPOFSize(&two, 4));
  ASSERT_EQ(0, at_.list.SetDPOFIndex(true));
  ASSERT_EQ(0, at_.list.SaveDPOFInfo(nullptr, Arg("CAM")));
  at_.list.SetDPOFAll(0);
  at_.list.SetDPOFSizeAll(0);
  at_.list.SetDPOFIndex(false);
  EXPECT_EQ(0, at_.list.LoadDPOFInfo(nullptr));
  EXPECT_EQ(2, Copies(kOne));
  EXPECT_EQ(0, Copies(kTwo));
  EXPECT_EQ(4, at_.list.GetDPOFSize(&two));
  EXPECT_TRUE(at_.list.GetDPOFIndex(&two));
}

TEST_F(PrintOrder, LoadingClearsNothing) {
  at_.card.WriteFile(kPrintOrder, kOrderForOne);
  CQFileListItem two = at_.Item(kTwo);
  ASSERT_EQ(0, at_.list.SetDPOF(&two, 9));
  EXPECT_EQ(0, at_.list.LoadDPOFInfo(nullptr));
  EXPECT_EQ(2, Copies(kOne));
  EXPECT_EQ(9, Copies(kTwo));
}

TEST_F(PrintOrder, TheScanLoadsTheCardsOrder) {
  at_.card.WriteFile(kPrintOrder, kOrderForOne);
  ASSERT_EQ(2, at_.Scan());
  EXPECT_EQ(2, Copies(kOne));
  EXPECT_EQ(kOrderForOne, at_.card.ReadFile(kPrintOrder));
}

TEST_F(PrintOrder, AGivenPathIsLoaded) {
  at_.card.MakeFile("MISC/OTHER.MRK", kOrderForOne);
  EXPECT_EQ(0, at_.list.LoadDPOFInfo(Arg(at_.card.Path("MISC/OTHER.MRK"))));
  EXPECT_EQ(2, Copies(kOne));
}

TEST_F(PrintOrder, APathBelowNoMiscFolderIsNotLoaded) {
  at_.card.MakeFile("OTHER.MRK", kOrderForOne);
  EXPECT_EQ(-1, at_.list.LoadDPOFInfo(Arg(at_.card.Path("OTHER.MRK"))));
  EXPECT_EQ(0, Copies(kOne));
}

TEST_F(PrintOrder, AMissingOrderIsReported) { EXPECT_EQ(-1, at_.list.LoadDPOFInfo(nullptr)); }

TEST_F(PrintOrder, AnOverlongPathIsRefusedBeforeTheTypeIsLookedAt) {
  EXPECT_EQ(-3, at_.list.LoadDPOFInfo(Arg(std::string(128, 'a'))));
  EXPECT_EQ(-1, at_.list.LoadDPOFInfo(Arg(std::string(127, 'a'))));
  at_.list.SetType(0);
  EXPECT_EQ(-3, at_.list.LoadDPOFInfo(Arg(std::string(128, 'a'))));
}

TEST_F(PrintOrder, OnlyListsOfTwoTypesLoad) {
  at_.card.WriteFile(kPrintOrder, kOrderForOne);
  for (const int type : {0, 1, 2, 5, -1, 100}) {
    at_.list.SetType(type);
    EXPECT_EQ(-1, at_.list.LoadDPOFInfo(nullptr)) << type;
    EXPECT_EQ(0, Copies(kOne)) << type;
  }
  for (const int type : {3, 4}) {
    at_.list.SetDPOFAll(0);
    at_.list.SetType(type);
    EXPECT_EQ(0, at_.list.LoadDPOFInfo(nullptr)) << type;
    EXPECT_EQ(2, Copies(kOne)) << type;
  }
}

TEST_F(PrintOrder, ListsOfEveryTypeSave) {
  for (const int type : {0, 1, 2, 3, 4, 5}) {
    at_.list.SetType(type);
    EXPECT_EQ(0, at_.list.SaveDPOFInfo(nullptr, Arg("CAM"))) << type;
    EXPECT_EQ(Header("CAM"), at_.card.ReadFile(kPrintOrder)) << type;
    at_.card.Remove(kPrintOrder);
  }
}

TEST_F(PrintOrder, TheNumberOfFilesBoundsIt) {
  OrderOne(2);
  ASSERT_EQ(2, at_.list.GetCount());
  at_.list.FreeList();
  EXPECT_EQ(0, at_.list.SaveDPOFInfo(nullptr, Arg("CAM")));
  EXPECT_EQ("", at_.card.ReadFile(kPrintOrder));
}

TEST_F(PrintOrder, WithoutACatalogueNothingIsWrittenOrRead) {
  at_.card.WriteFile(kPrintOrder, "untouched");
  at_.list.Destroy();
  EXPECT_EQ(-1, at_.list.SaveDPOFInfo(nullptr, Arg("CAM")));
  EXPECT_EQ(-1, at_.list.SaveDPOFInfo(Arg(at_.card.Path("elsewhere.txt")), Arg("CAM")));
  EXPECT_EQ(-1, at_.list.LoadDPOFInfo(nullptr));
  EXPECT_EQ("untouched", at_.card.ReadFile(kPrintOrder));
  EXPECT_FALSE(at_.card.Exists("elsewhere.txt"));
}

TEST_F(PrintOrder, ANullNameIsWrittenEmpty) {
  EXPECT_EQ(0, at_.list.SaveDPOFInfo(nullptr, nullptr));
  EXPECT_EQ(Header(""), at_.card.ReadFile(kPrintOrder));
}

// The device name is what a deletion writes as the maker of the order.
class DeviceName : public testing::Test {
 protected:
  DeviceName() { EXPECT_EQ(2, at_.With({kOne, kTwo})); }
  std::string Saved() {
    flm_test::Progress::Begin(0);
    at_.list.SetSelAll(true);
    EXPECT_EQ(10000, at_.list.DeleteSel(false, flm_test::Progress::Record));
    at_.card.MakeFile(kTwo);
    EXPECT_EQ(2, at_.Scan());
    return at_.card.ReadFile(kPrintOrder);
  }
  ListedCard at_;
};

TEST_F(DeviceName, ItStartsEmpty) { EXPECT_EQ(Header(""), Saved()); }

TEST_F(DeviceName, ItIsKeptWhole) {
  at_.list.SetDPOFDevName(Arg("A camera, model 7"));
  EXPECT_EQ(Header("A camera, model 7"), Saved());
}

TEST_F(DeviceName, AShorterNameReplacesALongerOne) {
  at_.list.SetDPOFDevName(Arg("A camera, model 7"));
  at_.list.SetDPOFDevName(Arg("CAM"));
  EXPECT_EQ(Header("CAM"), Saved());
  at_.list.SetDPOFDevName(Arg(""));
  EXPECT_EQ(Header(""), Saved());
}

TEST_F(DeviceName, ThirtyCharactersAreTheMost) {
  const std::string thirty = "123456789012345678901234567890";
  at_.list.SetDPOFDevName(Arg(thirty));
  EXPECT_EQ(Header(thirty), Saved());
  at_.list.SetDPOFDevName(Arg(thirty + "1"));
  EXPECT_EQ(Header(thirty), Saved());
  at_.list.SetDPOFDevName(Arg(std::string(500, 'x')));
  EXPECT_EQ(Header(thirty), Saved());
}

TEST_F(DeviceName, ANullNameIsIgnored) {
  at_.list.SetDPOFDevName(Arg("CAM"));
  at_.list.SetDPOFDevName(nullptr);
  EXPECT_EQ(Header("CAM"), Saved());
}

TEST_F(DeviceName, ItSurvivesANewScan) {
  at_.list.SetDPOFDevName(Arg("CAM"));
  ASSERT_EQ(2, at_.Scan());
  EXPECT_EQ(Header("CAM"), Saved());
}

}  // namespace
