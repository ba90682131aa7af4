// What changes the card: protection, removal, folders, writing a file; and which of it is flushed.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "fsio/PCQDCFFSIO.h"
#include "tests/fsio/scoped_os_calls.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Card;
using flm_test::ScopedOsCalls;

unsigned int ModeOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(0, stat(path.c_str(), &status)) << path;
  return status.st_mode & 07777;
}

// A card on which flushes are counted.
class Changing : public testing::Test {
 protected:
  char* At(const std::string& relative) {
    path_ = card_.Path(relative);
    return path_.data();
  }
  ScopedOsCalls os_;
  Card card_;

 private:
  std::string path_;
};

class Protecting : public Changing {};

TEST_F(Protecting, ClearsTheOwnerWritePermissionAndNothingElse) {
  card_.MakeFile("f");
  struct {
    unsigned int before;
    unsigned int after;
  } const modes[] = {{0644, 0444}, {0666, 0466}, {0777, 0577}, {0444, 0444}, {06755, 06555}};
  for (const auto& mode : modes) {
    card_.SetMode("f", mode.before);
    EXPECT_EQ(0, PCQDCFFSIO::SetProtect(At("f"), true));
    EXPECT_EQ(mode.after, ModeOf(At("f"))) << std::oct << mode.before;
  }
}

TEST_F(Protecting, TakenBackSetsTheOwnerWritePermissionAndNothingElse) {
  card_.MakeFile("f");
  struct {
    unsigned int before;
    unsigned int after;
  } const modes[] = {{0444, 0644}, {0400, 0600}, {0000, 0200}, {0644, 0644}, {06555, 06755}};
  for (const auto& mode : modes) {
    card_.SetMode("f", mode.before);
    EXPECT_EQ(0, PCQDCFFSIO::SetProtect(At("f"), false));
    EXPECT_EQ(mode.after, ModeOf(At("f"))) << std::oct << mode.before;
  }
}

TEST_F(Protecting, IsFlushedOnce) {
  card_.MakeFile("f");
  PCQDCFFSIO::SetProtect(At("f"), true);
  EXPECT_EQ(1, ScopedOsCalls::syncs);
  PCQDCFFSIO::SetProtect(At("f"), false);
  EXPECT_EQ(2, ScopedOsCalls::syncs);
}

TEST_F(Protecting, AMissingFileIsRefusedWithoutAFlush) {
  EXPECT_EQ(-1, PCQDCFFSIO::SetProtect(At("missing"), true));
  EXPECT_EQ(-1, PCQDCFFSIO::SetProtect(At("missing"), false));
  EXPECT_EQ(-1, PCQDCFFSIO::SetProtect(Arg(""), true));
  EXPECT_EQ(-1, PCQDCFFSIO::SetProtect(nullptr, true));
  EXPECT_EQ(0, ScopedOsCalls::syncs);
}

TEST_F(Protecting, AnyFailureOfTheStatusIsMinusOne) {
  flm::Os().Stat = [](const char*, struct stat*) { return -5; };
  EXPECT_EQ(-1, PCQDCFFSIO::SetProtect(Arg("/any"), true));
}

TEST_F(Protecting, GivesTheResultOfTheChangeAndFlushesWhateverItWas) {
  card_.MakeFile("f");
  flm::Os().Chmod = [](const char*, mode_t) { return -3; };
  EXPECT_EQ(-3, PCQDCFFSIO::SetProtect(At("f"), true));
  EXPECT_EQ(1, ScopedOsCalls::syncs);
  EXPECT_EQ(0644U, ModeOf(At("f")));
}

TEST_F(Protecting, ALinkProtectsItsTarget) {
  card_.MakeFile("f");
  ASSERT_EQ(0, symlink("f", At("link")));
  EXPECT_EQ(0, PCQDCFFSIO::SetProtect(At("link"), true));
  EXPECT_TRUE(card_.IsReadOnly("f"));
}

class Removing : public Changing {};

TEST_F(Removing, TakesAFileAway) {
  card_.MakeFile("f");
  card_.MakeFile("g");
  EXPECT_EQ(0, PCQDCFFSIO::RemoveFile(At("f"), false));
  EXPECT_FALSE(card_.Exists("f"));
  EXPECT_TRUE(card_.Exists("g"));
}

TEST_F(Removing, TakesAnEmptyFolderAway) {
  card_.MakeDir("d");
  EXPECT_EQ(0, PCQDCFFSIO::RemoveFile(At("d"), false));
  EXPECT_FALSE(card_.Exists("d"));
}

TEST_F(Removing, AFolderWithContentIsRefused) {
  card_.MakeFile("d/f");
  EXPECT_EQ(-1, PCQDCFFSIO::RemoveFile(At("d"), false));
  EXPECT_TRUE(card_.Exists("d/f"));
}

TEST_F(Removing, WhatIsMissingIsRefused) {
  EXPECT_EQ(-1, PCQDCFFSIO::RemoveFile(At("missing"), false));
  EXPECT_EQ(-1, PCQDCFFSIO::RemoveFile(Arg(""), false));
  EXPECT_EQ(-1, PCQDCFFSIO::RemoveFile(nullptr, false));
}

TEST_F(Removing, TakesALinkAwayAndLeavesItsTarget) {
  card_.MakeFile("f");
  ASSERT_EQ(0, symlink("f", At("link")));
  EXPECT_EQ(0, PCQDCFFSIO::RemoveFile(At("link"), false));
  EXPECT_FALSE(card_.Exists("link"));
  EXPECT_TRUE(card_.Exists("f"));
}

TEST_F(Removing, TriesTheSecondCallOnlyAfterTheFirst) {
  static int removes;
  removes = 0;
  flm::Os().Remove = [](const char*) {
    ++removes;
    return -4;
  };
  card_.MakeFile("f");
  EXPECT_EQ(0, PCQDCFFSIO::RemoveFile(At("f"), false));
  EXPECT_EQ(0, removes);
  EXPECT_EQ(-4, PCQDCFFSIO::RemoveFile(At("f"), false));
  EXPECT_EQ(1, removes);
}

TEST_F(Removing, FlushesOnlyWhenAsked) {
  card_.MakeFile("f");
  card_.MakeFile("g");
  PCQDCFFSIO::RemoveFile(At("f"), false);
  EXPECT_EQ(0, ScopedOsCalls::threads);
  PCQDCFFSIO::RemoveFile(At("g"), true);
  EXPECT_EQ(1, ScopedOsCalls::threads);
}

TEST_F(Removing, FlushesAfterAFailureToo) {
  EXPECT_EQ(-1, PCQDCFFSIO::RemoveFile(At("missing"), true));
  EXPECT_EQ(1, ScopedOsCalls::threads);
}

TEST_F(Removing, TheCallerDoesNotFlush) {
  card_.MakeFile("f");
  PCQDCFFSIO::RemoveFile(At("f"), true);
  EXPECT_EQ(0, ScopedOsCalls::syncs);
}

TEST_F(Removing, TheFlushThreadIsDetached) {
  card_.MakeFile("f");
  PCQDCFFSIO::RemoveFile(At("f"), true);
  EXPECT_EQ(PTHREAD_CREATE_DETACHED, ScopedOsCalls::detachState);
}

TEST_F(Removing, TheFlushThreadFlushesOnceAndEndsWithZero) {
  card_.MakeFile("f");
  PCQDCFFSIO::RemoveFile(At("f"), true);
  ASSERT_NE(nullptr, ScopedOsCalls::body);
  EXPECT_EQ(nullptr, ScopedOsCalls::body(ScopedOsCalls::argument));
  EXPECT_EQ(1, ScopedOsCalls::syncs);
}

TEST_F(Removing, AThreadThatCannotBeStartedIsIgnored) {
  flm::Os().StartThread = [](pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) {
    return 11;
  };
  card_.MakeFile("f");
  EXPECT_EQ(0, PCQDCFFSIO::RemoveFile(At("f"), true));
  EXPECT_FALSE(card_.Exists("f"));
}

// Restores the mask of the process, which a failing test must not leave behind.
class ScopedUmask {
 public:
  explicit ScopedUmask(mode_t mask) : before_(umask(mask)) {}
  ~ScopedUmask() { umask(before_); }

 private:
  mode_t before_;
};

class MakingAFolder : public Changing {};

TEST_F(MakingAFolder, GivesItMode0775WhateverTheMask) {
  for (const mode_t mask : {0000U, 0022U, 0077U, 0777U}) {
    const ScopedUmask scoped(mask);
    const std::string name = "d" + std::to_string(mask);
    EXPECT_EQ(0, PCQDCFFSIO::MakeDirectory(At(name)));
    EXPECT_EQ(0775U, ModeOf(At(name))) << std::oct << mask;
  }
}

TEST_F(MakingAFolder, LeavesTheMaskAsItWas) {
  const ScopedUmask scoped(0027);
  EXPECT_EQ(0, PCQDCFFSIO::MakeDirectory(At("d")));
  EXPECT_EQ(0027U, umask(0027));
  EXPECT_EQ(-1, PCQDCFFSIO::MakeDirectory(At("d")));
  EXPECT_EQ(0027U, umask(0027));
}

TEST_F(MakingAFolder, IsFlushedWhenItWorked) {
  EXPECT_EQ(0, PCQDCFFSIO::MakeDirectory(At("d")));
  EXPECT_EQ(1, ScopedOsCalls::syncs);
}

TEST_F(MakingAFolder, ThatIsThereOrHasNoParentFailsWithoutAFlush) {
  card_.MakeFile("f");
  card_.MakeDir("d");
  EXPECT_EQ(-1, PCQDCFFSIO::MakeDirectory(At("d")));
  EXPECT_EQ(-1, PCQDCFFSIO::MakeDirectory(At("f")));
  EXPECT_EQ(-1, PCQDCFFSIO::MakeDirectory(At("missing/d")));
  EXPECT_EQ(-1, PCQDCFFSIO::MakeDirectory(Arg("")));
  EXPECT_EQ(-1, PCQDCFFSIO::MakeDirectory(nullptr));
  EXPECT_EQ(0, ScopedOsCalls::syncs);
}

class WritingAFile : public Changing {
 protected:
  int Write(void* file, const std::string& text) {
    int length = static_cast<int>(text.size());
    EXPECT_EQ(length, PCQDCFFSIO::Write(file, Arg(text), &length));
    return length;
  }
};

TEST_F(WritingAFile, MakesItWithWhatIsWritten) {
  void* const file = PCQDCFFSIO::CreateFileIO(At("f"));
  ASSERT_NE(nullptr, file);
  EXPECT_EQ(3, Write(file, "one"));
  EXPECT_EQ(4, Write(file, " two"));
  EXPECT_EQ(0, PCQDCFFSIO::DestroyFileIO(file));
  EXPECT_EQ("one two", card_.ReadFile("f"));
}

TEST_F(WritingAFile, IsNotGatheredWithoutAFileOrRoom) {
  char room[16] = {};
  PCQDCFFSIO::GatherIn(nullptr, room, sizeof(room));
  void* const file = PCQDCFFSIO::CreateFileIO(At("f"));
  ASSERT_NE(nullptr, file);
  PCQDCFFSIO::GatherIn(file, nullptr, sizeof(room));
  EXPECT_EQ(3, Write(file, "one"));
  EXPECT_EQ(0, PCQDCFFSIO::DestroyFileIO(file));
  EXPECT_EQ("one", card_.ReadFile("f"));
}

TEST_F(WritingAFile, EmptiesAnEarlierOne) {
  card_.MakeFile("f", "a long earlier content");
  void* const file = PCQDCFFSIO::CreateFileIO(At("f"));
  ASSERT_NE(nullptr, file);
  Write(file, "new");
  PCQDCFFSIO::DestroyFileIO(file);
  EXPECT_EQ("new", card_.ReadFile("f"));
}

TEST_F(WritingAFile, KeepsEveryByte) {
  const std::string bytes("a\0b\r\n\xff", 6);
  void* const file = PCQDCFFSIO::CreateFileIO(At("f"));
  ASSERT_NE(nullptr, file);
  int length = 6;
  EXPECT_EQ(6, PCQDCFFSIO::Write(file, Arg(bytes), &length));
  PCQDCFFSIO::DestroyFileIO(file);
  EXPECT_EQ(bytes, card_.ReadFile("f"));
}

TEST_F(WritingAFile, NothingIsFlushed) {
  void* const file = PCQDCFFSIO::CreateFileIO(At("f"));
  ASSERT_NE(nullptr, file);
  Write(file, "x");
  PCQDCFFSIO::DestroyFileIO(file);
  EXPECT_EQ(0, ScopedOsCalls::syncs);
  EXPECT_EQ(0, ScopedOsCalls::threads);
}

TEST_F(WritingAFile, NothingIsMadeWhereThereIsNoFolder) {
  card_.MakeDir("d");
  EXPECT_EQ(nullptr, PCQDCFFSIO::CreateFileIO(At("missing/f")));
  EXPECT_EQ(nullptr, PCQDCFFSIO::CreateFileIO(At("d")));
  EXPECT_EQ(nullptr, PCQDCFFSIO::CreateFileIO(Arg("")));
  EXPECT_EQ(nullptr, PCQDCFFSIO::CreateFileIO(nullptr));
  EXPECT_FALSE(card_.Exists("missing"));
}

TEST_F(WritingAFile, StoresTheNumberThatWasWritten) {
  void* const file = PCQDCFFSIO::CreateFileIO(At("f"));
  ASSERT_NE(nullptr, file);
  flm::Os().Fwrite = [](const void*, size_t, size_t, FILE*) -> size_t { return 2; };
  int length = 5;
  EXPECT_EQ(2, PCQDCFFSIO::Write(file, Arg("12345"), &length));
  EXPECT_EQ(2, length);
  EXPECT_EQ(0, PCQDCFFSIO::DestroyFileIO(file));
}

TEST_F(WritingAFile, OfNoBytesWritesNone) {
  void* const file = PCQDCFFSIO::CreateFileIO(At("f"));
  ASSERT_NE(nullptr, file);
  int length = 0;
  EXPECT_EQ(0, PCQDCFFSIO::Write(file, Arg("12345"), &length));
  EXPECT_EQ(0, length);
  PCQDCFFSIO::DestroyFileIO(file);
  EXPECT_EQ("", card_.ReadFile("f"));
}

TEST_F(WritingAFile, BadArgumentsAreRefusedAndWriteNothing) {
  void* const file = PCQDCFFSIO::CreateFileIO(At("f"));
  ASSERT_NE(nullptr, file);
  int length = 3;
  int negative = -1;
  EXPECT_EQ(-1, PCQDCFFSIO::Write(nullptr, Arg("abc"), &length));
  EXPECT_EQ(-1, PCQDCFFSIO::Write(file, nullptr, &length));
  EXPECT_EQ(-1, PCQDCFFSIO::Write(file, Arg("abc"), nullptr));
  EXPECT_EQ(-1, PCQDCFFSIO::Write(file, Arg("abc"), &negative));
  EXPECT_EQ(3, length);
  PCQDCFFSIO::DestroyFileIO(file);
  EXPECT_EQ("", card_.ReadFile("f"));
}

TEST_F(WritingAFile, ClosingGivesTheResultOfClosing) {
  void* const file = PCQDCFFSIO::CreateFileIO(At("f"));
  ASSERT_NE(nullptr, file);
  flm::Os().Fclose = [](FILE* stream) { return fclose(stream) - 6; };
  EXPECT_EQ(-6, PCQDCFFSIO::DestroyFileIO(file));
  EXPECT_EQ(-1, PCQDCFFSIO::DestroyFileIO(nullptr));
}

TEST_F(WritingAFile, APipeIsRefusedWithoutWaiting) {
  ASSERT_EQ(0, mkfifo(At("pipe"), 0666));
  EXPECT_EQ(nullptr, PCQDCFFSIO::CreateFileIO(At("pipe")));
}

TEST_F(WritingAFile, ALinkIsRefusedAndItsTargetStays) {
  card_.MakeFile("f", "content");
  ASSERT_EQ(0, symlink("f", At("link")));
  ASSERT_EQ(0, symlink("missing", At("dead")));
  EXPECT_EQ(nullptr, PCQDCFFSIO::CreateFileIO(At("link")));
  EXPECT_EQ(nullptr, PCQDCFFSIO::CreateFileIO(At("dead")));
  EXPECT_EQ("content", card_.ReadFile("f"));
  EXPECT_FALSE(card_.Exists("missing"));
}

TEST_F(WritingAFile, AFailureLosesNoDescriptor) {
  const int before = flm_test::FdCount();
  flm::Os().Fdopen = [](int, const char*) -> FILE* { return nullptr; };
  EXPECT_EQ(nullptr, PCQDCFFSIO::CreateFileIO(At("f")));
  EXPECT_EQ(before, flm_test::FdCount());
}

}  // namespace
