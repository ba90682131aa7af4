// A card that somebody prepared: pipes, links and devices in the places of files, print orders that
// point elsewhere, names that end lines. Nothing waits, nothing outside the card is touched, and
// nothing that is open survives exec.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/filelist/core_fixture.h"

namespace flm_test {
namespace {

const std::vector<std::string> kNone;

constexpr char kOrder[] = "MISC/AUTPRINT.MRK";
constexpr unsigned int kPatience = 60;  // seconds; then the process is ended, as one that waits

// Watches what the library asks of the system.
struct Watched {
  std::string root;
  flm::OsCalls system;
  std::vector<std::string> outside;   // paths that do not lie on the card
  std::vector<std::string> survives;  // opened so that exec keeps them
  std::vector<std::string> paths;     // all
  int opens = 0;
};

Watched watched;

void Note(const char* path) {
  const std::string text = path;
  watched.paths.push_back(text);
  const bool below = text == watched.root || text.rfind(watched.root + "/", 0) == 0;
  if (!below || text.find("/../") != std::string::npos) watched.outside.push_back(text);
}

int NoteOpen(int descriptor, const char* path) {
  ++watched.opens;
  if (descriptor >= 0 && (fcntl(descriptor, F_GETFD) & FD_CLOEXEC) == 0) {
    watched.survives.emplace_back(path);
  }
  return descriptor;
}

void Watch(const std::string& root) {
  watched = Watched();
  watched.root = root;
  watched.system = flm::Os();
  flm::OsCalls& os = flm::Os();
  os.Stat = [](const char* path, struct stat* status) {
    Note(path);
    return watched.system.Stat(path, status);
  };
  os.Chmod = [](const char* path, mode_t mode) {
    Note(path);
    return watched.system.Chmod(path, mode);
  };
  os.Mkdir = [](const char* path, mode_t mode) {
    Note(path);
    return watched.system.Mkdir(path, mode);
  };
  os.Unlink = [](const char* path) {
    Note(path);
    return watched.system.Unlink(path);
  };
  os.Remove = [](const char* path) {
    Note(path);
    return watched.system.Remove(path);
  };
  os.Opendir = [](const char* path) {
    Note(path);
    DIR* const dir = watched.system.Opendir(path);
    if (dir != nullptr) NoteOpen(dirfd(dir), path);
    return dir;
  };
  os.Open = [](const char* path, int flags, mode_t mode) {
    Note(path);
    return NoteOpen(watched.system.Open(path, flags, mode), path);
  };
}

class HostileCard : public FileListTest {
 protected:
  HostileCard() { alarm(kPatience); }
  ~HostileCard() override { alarm(0); }

  void Pipe(const std::string& relative) { ASSERT_EQ(0, mkfifo(On(relative).c_str(), 0666)); }
  void Link(const std::string& target, const std::string& relative) {
    ASSERT_EQ(0, symlink(target.c_str(), On(relative).c_str()));
  }
  CQFileListItem At(int index) {
    CQFileListItem item;
    EXPECT_EQ(0, list.GetAt(index, &item, true)) << index;
    return item;
  }
  // Every kind of work on the list once.
  void Work() {
    EXPECT_LT(0, Scan());
    CQFileListItem item;
    for (int step = list.GetFirst(&item, true); step >= 0; step = list.GetNext(&item, true)) {
      list.SetDPOF(&item, 2);
      list.SetSel(&item, true);
    }
    list.SetDPOFIndex(true);
    list.SaveDPOFInfo(nullptr, Arg("CAM"));
    list.LoadDPOFInfo(nullptr);
    list.SetProtectAll(true, nullptr);
    list.SetProtectAll(false, nullptr);
    char name[396] = {};
    list.GetNewFileName(name, 0);
    item = At(0);
    list.Delete(&item, true, true);
    list.DeleteSel(true, nullptr);
    list.DeleteAll(true, nullptr);
  }
};

TEST_F(HostileCard, PipesInThePlacesOfPicturesAndCompanionsAreNotWaitedFor) {
  MakeFivePictures();
  Pipe("DCIM/100PHOTO/QVX_0003.JPG");
  Pipe("DCIM/100PHOTO/QVX_0001.SRW");
  Pipe("DCIM/100PHOTO/QVX_0001.WAV");
  Pipe("DCIM/100PHOTO/QVX_0004.WAV");
  card.MakeFile("DCIM/CAMERA/a picture of mine.JPG");
  Pipe("DCIM/CAMERA/a pipe of some name.JPG");
  Work();
  EXPECT_EQ(0, list.GetCount());
  // Marked files go without their companions, which are then files of their own.
  EXPECT_EQ(2, Scan());
  EXPECT_LE(0, list.DeleteAll(true, nullptr));
  EXPECT_EQ(0, Scan());
}

TEST_F(HostileCard, PipesInThePlacesOfFoldersAreEmptyFolders) {
  MakeFivePictures();
  Pipe("DCIM/104PHOTO");
  EXPECT_EQ(5, Scan());
}

TEST_F(HostileCard, APipeInThePlaceOfTheTreeIsNoCard) {
  Pipe("DCIM");
  EXPECT_GT(0, Scan());
}

TEST_F(HostileCard, APipeInThePlaceOfThePrintOrderIsNeitherReadNorWritten) {
  MakeFivePictures();
  card.MakeDir("MISC");
  Pipe(kOrder);
  EXPECT_EQ(5, Scan());
  EXPECT_EQ(-1, list.LoadDPOFInfo(nullptr));
  EXPECT_EQ(-1, list.SaveDPOFInfo(nullptr, Arg("CAM")));
  EXPECT_EQ(-1000, list.DeleteAll(true, nullptr));
}

TEST_F(HostileCard, AFolderInThePlaceOfThePrintOrderIsNeitherReadNorWritten) {
  MakeFivePictures();
  card.MakeDir(kOrder);
  EXPECT_EQ(5, Scan());
  EXPECT_EQ(-1, list.LoadDPOFInfo(nullptr));
  EXPECT_EQ(-1, list.SaveDPOFInfo(nullptr, Arg("CAM")));
  EXPECT_TRUE(card.Exists(kOrder));
}

TEST_F(HostileCard, APrintOrderThatLeadsToADeviceIsNeitherReadNorWritten) {
  MakeFivePictures();
  card.MakeDir("MISC");
  for (const char* const device : {"/dev/zero", "/dev/null", "/dev/full"}) {
    Link(device, kOrder);
    EXPECT_EQ(5, Scan());
    EXPECT_EQ(-1, list.LoadDPOFInfo(nullptr)) << device;
    EXPECT_EQ(-1, list.SaveDPOFInfo(nullptr, Arg("CAM"))) << device;
    card.Remove(kOrder);
  }
}

TEST_F(HostileCard, APrintOrderThatIsALinkIsNotWrittenThrough) {
  const Card other;
  MakeFivePictures();
  card.MakeDir("MISC");
  Link(other.Path("victim"), kOrder);
  EXPECT_EQ(5, Scan());
  EXPECT_EQ(-1, list.SaveDPOFInfo(nullptr, Arg("CAM")));
  EXPECT_EQ(-1000, list.DeleteAll(true, nullptr));
  EXPECT_EQ(kNone, other.Tree());
}

TEST_F(HostileCard, ALinkedPictureGoesAsALinkAndItsTargetStays) {
  Card other;
  other.MakeFile("target.jpg", "content");
  MakeFivePictures();
  Link(other.Path("target.jpg"), "DCIM/103PHOTO/QVX_0009.JPG");
  Link(other.Path("target.jpg"), "DCIM/103PHOTO/QVX_0009.SRW");
  ASSERT_EQ(6, Scan());
  CQFileListItem item = At(5);
  EXPECT_EQ(On("DCIM/103PHOTO/QVX_0009.JPG"), item.filePath);
  EXPECT_LT(0, list.Delete(&item, true, false));
  EXPECT_FALSE(card.Exists("DCIM/103PHOTO/QVX_0009.JPG"));
  EXPECT_FALSE(card.Exists("DCIM/103PHOTO/QVX_0009.SRW"));
  EXPECT_EQ("content", other.ReadFile("target.jpg"));
}

TEST_F(HostileCard, SourcesThatClimbReachNoFileOutside) {
  Card other;
  other.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  MakeFivePictures();
  ASSERT_EQ(5, Scan());
  std::string order = "[HDR]\nPRT TYP=STD\nPRT QTY=7\n";
  const std::string places[] = {"../../../..", "../../../../../..", "..", "../" + other.Root(),
                                "../../../../../../../.." + other.Root()};
  for (const std::string& place : places) {
    order += "IMG SRC=\"" + place + "/DCIM/101PHOTO/QVX_0099.JPG\"\n";
    order += "IMG SRC=\"" + place + "/etc/passwd\"\n";
    order += "IMG SRC=\"" + place + "\"\n";
  }
  card.WriteFile(kOrder, order);
  Watch(card.Root());
  EXPECT_EQ(0, list.LoadDPOFInfo(nullptr));
  EXPECT_EQ(std::vector<std::string>{On(kOrder)}, watched.paths);
  for (int i = 0; i < 5; ++i) {
    CQFileListItem item = At(i);
    EXPECT_EQ(0, list.GetDPOFNumOfCopy(&item)) << item.filePath;
  }
}

TEST_F(HostileCard, NothingOutsideTheCardIsAskedForOrTouched) {
  MakeFivePictures();
  card.MakeFile("DCIM/100PHOTO/QVX_0001.SRW");
  card.MakeFile("DCIM/CAMERA/..\\..\\..\\etc\\passwd.JPG");
  card.MakeFile(kOrder, "[HDR]\nPRT TYP=IDX\nIMG SRC=\"../../../../../../etc/passwd\"\n");
  Watch(card.Root());
  Work();
  EXPECT_LT(20U, watched.paths.size());
  EXPECT_EQ(kNone, watched.outside);
}

TEST_F(HostileCard, NothingThatIsOpenSurvivesExec) {
  MakeFivePictures();
  card.MakeFile(kOrder, "[HDR]\n");
  Watch(card.Root());
  Work();
  EXPECT_LT(5, watched.opens);
  EXPECT_EQ(kNone, watched.survives);
}

// Descriptors of the process that exec would hand on, the standard ones left out.
int Inherited() {
  int count = 0;
  for (int descriptor = 3; descriptor < 256; ++descriptor) {
    const int flags = fcntl(descriptor, F_GETFD);
    if (flags >= 0 && (flags & FD_CLOEXEC) == 0) ++count;
  }
  return count;
}

TEST_F(HostileCard, AProgramStartedFromAProgressReportInheritsNothing) {
  static int before;
  static int calls;
  static int most;
  calls = most = 0;
  MakeFivePictures();
  ASSERT_EQ(5, Scan());
  before = Inherited();
  EXPECT_EQ(0, list.SetProtectAll(false, [](int, int, int*, bool*) {
    ++calls;
    most = std::max(most, Inherited());
  }));
  EXPECT_LE(0, list.DeleteAll(true, [](int, int, int*, bool*) {
    ++calls;
    most = std::max(most, Inherited());
  }));
  EXPECT_EQ(10, calls);
  EXPECT_EQ(before, most);
}

// The listing takes such names, and a source line holds a path as it is: applications that order
// prints of files with foreign names look at them first, as the tool does.
TEST_F(HostileCard, ANameWithALineEndIsListedAndWrittenAsItIs) {
  card.MakeFile("DCIM/CAMERA/a\nPRT QTY=099\nb.JPG");
  ASSERT_EQ(1, Scan());
  CQFileListItem item = At(0);
  EXPECT_EQ(0, list.SetDPOF(&item, 1));
  EXPECT_EQ(0, list.SaveDPOFInfo(nullptr, Arg("CAM")));
  const std::string line = "<IMG SRC=\"../DCIM/CAMERA/a\nPRT QTY=099\nb.JPG\">";
  EXPECT_NE(std::string::npos, card.ReadFile(kOrder).find(line));
}

TEST_F(HostileCard, ALineEndInThePlaceOfThePointIsAPointInEveryPath) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001\nJPG");
  ASSERT_EQ(1, Scan());
  EXPECT_EQ(On("DCIM/100PHOTO/QVX_0001.JPG"), PathAt(0));
}

}  // namespace
}  // namespace flm_test
