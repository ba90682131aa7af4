// What a print order looks like, byte by byte, for several cards.
#include "tests/dpof/dpof_fixture.h"

namespace {

constexpr int kCopiesByte = 2;
constexpr int kIndexByte = 14;
constexpr int kSizeByte = 15;

const std::string kHeaderAlone = "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n";

std::string StandardJob(int number, int copies, const std::string& file) {
  return "[JOB]\r\nPRT PID=00" + std::to_string(number) + "\r\nPRT TYP=STD\r\nPRT QTY=00" +
         std::to_string(copies) + "\r\nIMG FMT=EXIF2 -J\r\n<IMG SRC=\"../" + file + "\">\r\n";
}

class SavedPrintOrder : public flm_test::PrintOrderFile {
 protected:
  // The order that a walk over so many files writes.
  std::string SavedOf(int files) {
    EXPECT_EQ(0, dpof_.SaveDPOFInfo(OrderPath().c_str(), &catalogue_, "CAM", files));
    return card_.ReadFile("MISC/AUTPRINT.MRK");
  }
  // How many files the walk has come by.
  int Reached() {
    char path[128];
    char objects[128];
    EXPECT_EQ(0, catalogue_.GetCur(path, 128, objects, 128));
    return catalogue_.GetListIndex(path) + 1;
  }
};

TEST_F(SavedPrintOrder, WithoutMarksItIsTheHeaderAlone) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  EXPECT_EQ("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n", Saved());
}

TEST_F(SavedPrintOrder, WithoutFilesItIsEmpty) {
  ASSERT_EQ(0, With({}));
  EXPECT_EQ("", Saved());
}

TEST_F(SavedPrintOrder, APictureWithPrintsAndASizeHasTwoJobs) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  Mark("DCIM/100PHOTO/ABCD0001.JPG", kCopiesByte, 2);
  Mark("DCIM/100PHOTO/ABCD0001.JPG", kSizeByte, 4);
  EXPECT_EQ(
      "[HDR]\r\n"
      "GEN REV=01.10\r\n"
      "GEN CRT=\"CAM\"\r\n"
      "\r\n"
      "[JOB]\r\n"
      "PRT PID=001\r\n"
      "PRT TYP=STD\r\n"
      "PRT QTY=002\r\n"
      "IMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n"
      "[JOB]\r\n"
      "PRT PID=002\r\n"
      "PRT TYP=SIZ -04\r\n"
      "PRT QTY=001\r\n"
      "IMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n",
      Saved());
}

TEST_F(SavedPrintOrder, JobsComeInTheOrderStandardIndexSizeAndAreNumberedThrough) {
  ASSERT_EQ(4, With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                     "DCIM/101_1224/_QVX0003.JPG", "DCIM/102PHOTO/QVX_0004.MP4"}));
  catalogue_.SetCustomInfoAll(kIndexByte, 1);
  Mark("DCIM/100PHOTO/QVX_0001.JPG", kCopiesByte, 10);
  Mark("DCIM/101_1224/_QVX0003.JPG", kCopiesByte, 99);
  Mark("DCIM/100PHOTO/QVX_0002.JPG", kSizeByte, 8);
  Mark("DCIM/101_1224/_QVX0003.JPG", kSizeByte, 3);
  EXPECT_EQ(
      "[HDR]\r\n"
      "GEN REV=01.10\r\n"
      "GEN CRT=\"Camera 7\"\r\n"
      "\r\n"
      "[JOB]\r\n"
      "PRT PID=001\r\n"
      "PRT TYP=STD\r\n"
      "PRT QTY=010\r\n"
      "IMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/100PHOTO/QVX_0001.JPG\">\r\n"
      "[JOB]\r\n"
      "PRT PID=002\r\n"
      "PRT TYP=STD\r\n"
      "PRT QTY=099\r\n"
      "IMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/101_1224/_QVX0003.JPG\">\r\n"
      "[JOB]\r\n"
      "PRT PID=003\r\n"
      "PRT TYP=IDX\r\n"
      "PRT QTY=001>\r\n"
      "IMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/100PHOTO/QVX_0001.JPG\">\r\n"
      "<IMG SRC=\"../DCIM/100PHOTO/QVX_0002.JPG\">\r\n"
      "<IMG SRC=\"../DCIM/101_1224/_QVX0003.JPG\">\r\n"
      "[JOB]\r\n"
      "PRT PID=004\r\n"
      "PRT TYP=SIZ -08\r\n"
      "PRT QTY=001\r\n"
      "IMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/100PHOTO/QVX_0002.JPG\">\r\n"
      "[JOB]\r\n"
      "PRT PID=005\r\n"
      "PRT TYP=SIZ -03\r\n"
      "PRT QTY=001\r\n"
      "IMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/101_1224/_QVX0003.JPG\">\r\n",
      Saved("Camera 7"));
}

TEST_F(SavedPrintOrder, AnIndexWithoutPicturesHasAHeadAlone) {
  ASSERT_EQ(1, With({"DCIM/CAMERA01/my holiday.jpg"}));
  catalogue_.SetCustomInfoAll(kIndexByte, 1);
  EXPECT_EQ(
      "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n"
      "[JOB]\r\nPRT PID=001\r\nPRT TYP=IDX\r\nPRT QTY=001>\r\nIMG FMT=EXIF2 -J\r\n",
      Saved());
}

TEST_F(SavedPrintOrder, FreeNamesAreWrittenWhole) {
  ASSERT_EQ(1, With({"DCIM/CAMERA01/My holiday picture.JPG"}));
  Mark("DCIM/CAMERA01/My holiday picture.JPG", kCopiesByte, 1);
  catalogue_.SetCustomInfoAll(kIndexByte, 1);
  EXPECT_EQ(
      "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n"
      "[JOB]\r\nPRT PID=001\r\nPRT TYP=STD\r\nPRT QTY=001\r\nIMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/CAMERA01/My holiday picture.JPG\">\r\n"
      "[JOB]\r\nPRT PID=002\r\nPRT TYP=IDX\r\nPRT QTY=001>\r\nIMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/CAMERA01/My holiday picture.JPG\">\r\n",
      Saved());
}

TEST_F(SavedPrintOrder, EverySizeCodeHasItsText) {
  struct Row {
    int code;
    const char* text;
  };
  for (const Row& row :
       {Row{1, ""}, Row{2, ""}, Row{3, "SIZ -03"}, Row{4, "SIZ -04"}, Row{5, "SIZ -05"}, Row{6, ""},
        Row{7, ""}, Row{8, "SIZ -08"}, Row{9, ""}, Row{100, ""}, Row{254, ""}, Row{255, ""}}) {
    SCOPED_TRACE(row.code);
    ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
    Mark("DCIM/100PHOTO/ABCD0001.JPG", kSizeByte, row.code);
    EXPECT_EQ(std::string("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n"
                          "[JOB]\r\nPRT PID=001\r\nPRT TYP=") +
                  row.text +
                  "\r\nPRT QTY=001\r\nIMG FMT=EXIF2 -J\r\n"
                  "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n",
              Saved());
  }
}

TEST_F(SavedPrintOrder, QuantitiesAndNumbersHaveThreeDigits) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  for (const char* quantity : {"001", "009", "010", "099", "100", "255"}) {
    Mark("DCIM/100PHOTO/ABCD0001.JPG", kCopiesByte, std::stoi(quantity));
    EXPECT_NE(std::string::npos, Saved().find(std::string("PRT QTY=") + quantity + "\r\n"))
        << quantity;
  }
}

TEST_F(SavedPrintOrder, TheThousandthJobHasFourDigits) {
  card_.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 1000, "JPG");
  ASSERT_EQ(1000, With({}));
  catalogue_.SetCustomInfoAll(kCopiesByte, 1);
  const std::string text = Saved();
  EXPECT_NE(std::string::npos, text.find("PRT PID=999\r\n"));
  EXPECT_NE(std::string::npos, text.find("PRT PID=1000\r\n"));
  EXPECT_EQ(std::string::npos, text.find("PRT PID=1001"));
}

TEST_F(SavedPrintOrder, EachSaveNumbersFromOneAgain) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  Mark("DCIM/100PHOTO/ABCD0001.JPG", kCopiesByte, 2);
  const std::string first = Saved();
  EXPECT_EQ(first, Saved());
}

TEST_F(SavedPrintOrder, ASaveReplacesTheFileWhole) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  card_.WriteFile("MISC/AUTPRINT.MRK", std::string(5000, 'x'));
  EXPECT_EQ("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n", Saved());
}

TEST_F(SavedPrintOrder, ANameIsWrittenAsGivenWhateverItsLength) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  for (const std::string& name : {std::string(""), std::string("a \"b\" %s\r\nc"),
                                  std::string(2000, 'n'), std::string(100000, 'n')}) {
    EXPECT_EQ("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"" + name + "\"\r\n\r\n", Saved(name.c_str()))
        << name.size();
  }
  EXPECT_EQ("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"\"\r\n\r\n", Saved(nullptr));
}

TEST_F(SavedPrintOrder, TheFileCountBoundsTheWalk) {
  ASSERT_EQ(2, With({"DCIM/100PHOTO/ABCD0001.JPG", "DCIM/100PHOTO/ABCD0002.JPG"}));
  catalogue_.SetCustomInfoAll(kCopiesByte, 1);
  catalogue_.SetCustomInfoAll(kIndexByte, 1);
  catalogue_.SetCustomInfoAll(kSizeByte, 5);
  EXPECT_EQ(0, dpof_.SaveDPOFInfo(OrderPath().c_str(), &catalogue_, "CAM", 1));
  EXPECT_EQ(
      "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n"
      "[JOB]\r\nPRT PID=001\r\nPRT TYP=STD\r\nPRT QTY=001\r\nIMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n"
      "[JOB]\r\nPRT PID=002\r\nPRT TYP=IDX\r\nPRT QTY=001>\r\nIMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n"
      "[JOB]\r\nPRT PID=003\r\nPRT TYP=SIZ -05\r\nPRT QTY=001\r\nIMG FMT=EXIF2 -J\r\n"
      "<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n",
      card_.ReadFile("MISC/AUTPRINT.MRK"));
}

TEST_F(SavedPrintOrder, APictureBehindTheFileCountIsNotReached) {
  card_.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 100, "JPG");
  ASSERT_EQ(100, With({}));
  Mark("DCIM/100PHOTO/QVX_0050.JPG", kCopiesByte, 3);
  for (const int files : {1, 2, 10, 49}) {
    EXPECT_EQ(kHeaderAlone, SavedOf(files)) << files;
    EXPECT_EQ(files, Reached()) << "the cursor stays where the walk ended";
  }
  EXPECT_EQ(kHeaderAlone + StandardJob(1, 3, "DCIM/100PHOTO/QVX_0050.JPG"), SavedOf(50));
  Mark("DCIM/100PHOTO/QVX_0001.JPG", kCopiesByte, 2);
  EXPECT_EQ(kHeaderAlone + StandardJob(1, 2, "DCIM/100PHOTO/QVX_0001.JPG"), SavedOf(1));
  EXPECT_EQ(kHeaderAlone + StandardJob(1, 2, "DCIM/100PHOTO/QVX_0001.JPG"), SavedOf(49));
}

TEST_F(SavedPrintOrder, AWalkThatEndsEarlyEndsTheBlock) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  Mark("DCIM/100PHOTO/ABCD0001.JPG", kCopiesByte, 1);
  const std::string exact = Saved();
  EXPECT_EQ(0, dpof_.SaveDPOFInfo(OrderPath().c_str(), &catalogue_, "CAM", 2000000000));
  EXPECT_EQ(exact, card_.ReadFile("MISC/AUTPRINT.MRK"));
}

TEST_F(SavedPrintOrder, AFileCountBelowZeroWritesTheHeaderAlone) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  Mark("DCIM/100PHOTO/ABCD0001.JPG", kCopiesByte, 1);
  EXPECT_EQ(0, dpof_.SaveDPOFInfo(OrderPath().c_str(), &catalogue_, "CAM", -1));
  EXPECT_EQ("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n",
            card_.ReadFile("MISC/AUTPRINT.MRK"));
}

// A folder of the tree is formed with at most 98 characters.
TEST_F(SavedPrintOrder, ALongRootIsLeftOutOfTheSources) {
  const std::string deep = card_.Root() + "/" + std::string(83 - card_.Root().size() - 1, 'r');
  card_.MakeFile(deep.substr(card_.Root().size() + 1) + "/DCIM/100PHOTO/ABCD0001.JPG");
  catalogue_.Create();
  catalogue_.SetMode(4);
  ASSERT_EQ(0, catalogue_.SetBaseURI(deep.c_str()));
  ASSERT_EQ(0, catalogue_.Listup(0, true));
  catalogue_.SetCustomInfoAll(kCopiesByte, 1);
  const std::string order = card_.Path("order.txt");
  EXPECT_EQ(0, dpof_.SaveDPOFInfo(order.c_str(), &catalogue_, "CAM", catalogue_.GetCount()));
  const std::string text = card_.ReadFile("order.txt");
  EXPECT_EQ(1, catalogue_.GetCount());
  EXPECT_NE(std::string::npos, text.find("<IMG SRC=\"../DCIM/100PHOTO/ABCD0001.JPG\">\r\n"));
}

TEST_F(SavedPrintOrder, AFileThatCannotBeMadeIsReported) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  const std::string folder = card_.Path("MISC");
  const std::string nowhere = card_.Path("none/AUTPRINT.MRK");
  EXPECT_EQ(-1, dpof_.SaveDPOFInfo(folder.c_str(), &catalogue_, "CAM", 1));
  EXPECT_EQ(-1, dpof_.SaveDPOFInfo(nowhere.c_str(), &catalogue_, "CAM", 1));
  EXPECT_EQ(-1, dpof_.SaveDPOFInfo("", &catalogue_, "CAM", 1));
}

TEST_F(SavedPrintOrder, ACardThatFillsUpIsReportedByTheClosing) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  flm::Os().Fclose = [](FILE* file) {
    fclose(file);
    return -1;
  };
  EXPECT_EQ(-1, Save("CAM"));
}

TEST_F(SavedPrintOrder, BlocksThatCannotBeWrittenAreNotReported) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  flm::Os().Fwrite = [](const void*, size_t, size_t, FILE*) -> size_t { return 0; };
  EXPECT_EQ(0, Save("CAM"));
  EXPECT_EQ("", card_.ReadFile("MISC/AUTPRINT.MRK"));
}

TEST_F(SavedPrintOrder, EachBlockIsOneWrite) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  catalogue_.SetCustomInfoAll(kCopiesByte, 1);
  catalogue_.SetCustomInfoAll(kIndexByte, 1);
  catalogue_.SetCustomInfoAll(kSizeByte, 3);
  static std::vector<std::string> starts;
  starts.clear();
  flm::Os().Fwrite = [](const void* data, size_t size, size_t count, FILE*) -> size_t {
    starts.push_back(std::string(static_cast<const char*>(data), size * count).substr(0, 5));
    return count;
  };
  EXPECT_EQ(0, Save("CAM"));
  EXPECT_EQ((std::vector<std::string>{"[HDR]", "[JOB]", "[JOB]", "<IMG ", "[JOB]"}), starts);
}

TEST_F(SavedPrintOrder, NoDescriptorIsLost) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  const int before = flm_test::FdCount();
  Save("CAM");
  dpof_.SaveDPOFInfo(card_.Path("MISC").c_str(), &catalogue_, "CAM", 1);
  flm::Os().Fdopen = [](int, const char*) -> FILE* { return nullptr; };
  EXPECT_EQ(-1, Save("CAM"));
  EXPECT_EQ(before, flm_test::FdCount());
}

TEST_F(SavedPrintOrder, AnOrderOfManyJobsIsWhole) {
  constexpr int kPictures = 1200;
  card_.MakeFiles("DCIM/100PHOTO", "ABCD", 1, kPictures, "JPG");
  ASSERT_EQ(kPictures, With({}));
  catalogue_.SetCustomInfoAll(kCopiesByte, 1);
  std::string expected = "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n";
  for (int number = 1; number <= kPictures; ++number) {
    const std::string digits = std::to_string(number);
    const std::string job =
        digits.size() < 3 ? std::string(3 - digits.size(), '0') + digits : digits;
    const std::string file = std::string(4 - digits.size(), '0') + digits;
    expected += "[JOB]\r\nPRT PID=" + job +
                "\r\nPRT TYP=STD\r\nPRT QTY=001\r\nIMG FMT=EXIF2 -J\r\n"
                "<IMG SRC=\"../DCIM/100PHOTO/ABCD" +
                file + ".JPG\">\r\n";
  }
  EXPECT_EQ(expected, Saved());
}

TEST_F(SavedPrintOrder, NullArgumentsAreRefused) {
  ASSERT_EQ(1, With({"DCIM/100PHOTO/ABCD0001.JPG"}));
  EXPECT_EQ(-1, dpof_.SaveDPOFInfo(nullptr, &catalogue_, "CAM", 1));
  EXPECT_EQ(-1, dpof_.SaveDPOFInfo(OrderPath().c_str(), nullptr, "CAM", 1));
  EXPECT_EQ(-1, dpof_.MakeHeader(nullptr, "CAM", 1));
  EXPECT_EQ(-1, dpof_.MakeStandard(nullptr, &catalogue_, 1));
  EXPECT_EQ(-1, dpof_.MakeIndex(nullptr, &catalogue_, 1));
  EXPECT_EQ(-1, dpof_.MakeSize(nullptr, &catalogue_, 1));
  EXPECT_FALSE(card_.Exists("MISC/AUTPRINT.MRK"));
}

TEST_F(SavedPrintOrder, MoviesOfTheOtherTreeHaveNoJobs) {
  ASSERT_EQ(1, With({"VIDEO/100VIDEO/QVX_0001.MP4"}, 2));
  catalogue_.SetCustomInfoAll(kCopiesByte, 1);
  catalogue_.SetCustomInfoAll(kIndexByte, 1);
  EXPECT_EQ("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n", Saved());
}

}  // namespace
