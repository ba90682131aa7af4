// The table of system calls and the two helpers beside it.
#include "fsio/os_calls.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Card;

TEST(OsCalls, AReplacedCallIsGivenBack) {
  const auto before = flm::Os().Mkdir;
  flm::Os().Mkdir = [](const char*, mode_t) { return -42; };
  EXPECT_EQ(-42, flm::Os().Mkdir("/any", 0));
  flm::ResetOsCalls();
  EXPECT_EQ(before, flm::Os().Mkdir);
}

TEST(OsCalls, EveryPlaceOfTheTableIsFilled) {
  const flm::OsCalls& os = flm::Os();
  EXPECT_TRUE(os.Stat && os.Fstat && os.Chmod && os.Umask && os.Mkdir && os.Unlink && os.Remove);
  EXPECT_TRUE(os.Sync && os.Opendir && os.Readdir && os.Closedir);
  EXPECT_TRUE(os.Open && os.Close && os.Read && os.Fdopen && os.Setvbuf && os.Fwrite && os.Fclose);
  EXPECT_TRUE(os.Time && os.Localtime && os.StartThread);
}

TEST(OpenRegularFile, OpensAFileAndTellsItsSize) {
  Card card;
  card.MakeFile("f", "12345");
  off_t size = -1;
  const int descriptor = flm::OpenRegularFile(Arg(card.Path("f")), O_RDONLY, &size);
  ASSERT_LE(0, descriptor);
  EXPECT_EQ(5, size);
  char byte = 0;
  EXPECT_EQ(1, read(descriptor, &byte, 1));
  EXPECT_EQ('1', byte);
  EXPECT_NE(0, fcntl(descriptor, F_GETFD) & FD_CLOEXEC);
  close(descriptor);
}

TEST(OpenRegularFile, ANullSizeIsNotWanted) {
  Card card;
  card.MakeFile("f");
  const int descriptor = flm::OpenRegularFile(Arg(card.Path("f")), O_RDONLY, nullptr);
  EXPECT_LE(0, descriptor);
  close(descriptor);
}

TEST(OpenRegularFile, RefusesAnythingElseAndLosesNoDescriptor) {
  Card card;
  card.MakeDir("d");
  ASSERT_EQ(0, mkfifo(card.Path("pipe").c_str(), 0666));
  const int before = flm_test::FdCount();
  off_t size = -1;
  for (const char* name : {"d", "pipe", "missing"}) {
    EXPECT_EQ(-1, flm::OpenRegularFile(Arg(card.Path(name)), O_RDONLY, &size)) << name;
  }
  EXPECT_EQ(-1, flm::OpenRegularFile("/dev/null", O_RDONLY, &size));
  EXPECT_EQ(-1, size);
  EXPECT_EQ(before, flm_test::FdCount());
}

TEST(OpenRegularFile, AFileWithoutAStatusIsRefusedAndClosed) {
  Card card;
  card.MakeFile("f");
  const int before = flm_test::FdCount();
  flm::Os().Fstat = [](int, struct stat*) { return -1; };
  off_t size = -1;
  EXPECT_EQ(-1, flm::OpenRegularFile(Arg(card.Path("f")), O_RDONLY, &size));
  flm::ResetOsCalls();
  EXPECT_EQ(-1, size);
  EXPECT_EQ(before, flm_test::FdCount());
}

TEST(CurrentTime, IsTheClockCutTo32Bits) {
  flm::Os().Time = [](time_t*) -> time_t { return 0x100000007LL; };
  const unsigned int now = flm::CurrentTime();
  flm::ResetOsCalls();
  EXPECT_EQ(7U, now);
}

}  // namespace
