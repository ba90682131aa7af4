// Movies beyond 2 and 4 GiB and files dated after 2038 are files like any other, also where numbers
// of the machine have 32 bits.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <ctime>

#include "fsio/PCQDCFFSIO.h"
#include "tests/filelist/marks_fixture.h"

namespace flm_test {
namespace {

constexpr int64_t kGiB = int64_t{1} << 30;
constexpr char kMovie[] = "DCIM/100PHOTO/QVX_0001.MP4";
constexpr char kPicture[] = "DCIM/100PHOTO/QVX_0002.JPG";

static_assert(sizeof(off_t) == 8, "sizes have 64 bits");
static_assert(sizeof(time_t) == 8, "times have 64 bits");

TEST(MachineNumbers, OfSizesAndTimesHave64Bits) {
  EXPECT_EQ(sizeof(decltype(stat::st_size)), 8U);
  EXPECT_EQ(sizeof(decltype(stat::st_mtime)), 8U);
}

class LargeMovie : public testing::TestWithParam<int64_t> {
 protected:
  LargeMovie() {
    at_.card.MakeFile(kMovie);
    at_.card.MakeFile(kPicture);
    if (truncate(at_.card.Path(kMovie).c_str(), GetParam()) != 0) {
      ADD_FAILURE() << std::strerror(errno);
    }
  }
  ListedCard at_;
};

TEST_P(LargeMovie, IsListedWithItsTime) {
  constexpr time_t kTime = 1000000000;
  at_.card.SetTime(kMovie, kTime);
  ASSERT_EQ(at_.Scan(), 2);
  CQFileListItem item;
  ASSERT_EQ(at_.list.GetAt(0, &item, true), 0);
  EXPECT_EQ(at_.NameOf(item), kMovie);
  EXPECT_EQ(item.modTime, kTime);
  EXPECT_EQ(item.isProtected, 0);
}

TEST_P(LargeMovie, HasTheLow32BitsOfItsSize) {
  const Text path = at_.card.Path(kMovie);
  Text lent = path;
  EXPECT_EQ(static_cast<uint32_t>(PCQDCFFSIO::GetFileSize(lent)),
            static_cast<uint32_t>(GetParam() % (int64_t{1} << 32)));
}

TEST_P(LargeMovie, IsProtectedAndDeleted) {
  ASSERT_EQ(at_.Scan(), 2);
  CQFileListItem item = at_.At(0);
  EXPECT_EQ(at_.list.SetProtect(&item, true), 0);
  EXPECT_TRUE(at_.card.IsReadOnly(kMovie));
  EXPECT_EQ(at_.list.Delete(&item, false, false), -100);
  EXPECT_EQ(at_.list.Delete(&item, true, false), 10000002);
  EXPECT_FALSE(at_.card.Exists(kMovie));
  EXPECT_EQ(at_.Files(), std::vector<std::string>{kPicture});
}

TEST_P(LargeMovie, GoesWithAllFiles) {
  ASSERT_EQ(at_.Scan(), 2);
  at_.card.MakeDir("MISC");
  EXPECT_EQ(at_.list.DeleteAll(false, nullptr), 10000000);
  EXPECT_FALSE(at_.card.Exists(kMovie));
}

INSTANTIATE_TEST_SUITE_P(Sizes, LargeMovie,
                         testing::Values(2 * kGiB - 1, 2 * kGiB, 4 * kGiB - 1, 4 * kGiB, 5 * kGiB));

// A moment in the tests' zone, which lies 5 h 30 min east of UTC.
struct Moment {
  int year, month, day, hour, minute, second;
};

// Days from 1970-01-01 to a day, by the rules of the calendar.
constexpr int64_t DaysTo(int year, int month, int day) {
  constexpr int kMonthDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  int64_t days = day - 1;
  for (int y = 1970; y <= year; ++y) {
    const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    if (y < year) days += leap ? 366 : 365;
    if (y == year && leap && month > 2) ++days;
  }
  for (int m = 1; m < month; ++m) days += kMonthDays[m - 1];
  return days;
}

constexpr int64_t Seconds(const Moment& m) {
  constexpr int64_t kEastOfUtc = 5 * 3600 + 30 * 60;
  return DaysTo(m.year, m.month, m.day) * 86400 + m.hour * 3600 + m.minute * 60 + m.second -
         kEastOfUtc;
}

constexpr Moment kFirstOfFat = {1980, 1, 1, 0, 0, 0};
constexpr Moment kLastOf31Bits = {2038, 1, 19, 8, 44, 7};
constexpr Moment kFirstBeyond31Bits = {2038, 1, 19, 8, 44, 8};
constexpr Moment kLeapDayOf2040 = {2040, 2, 29, 12, 0, 0};
constexpr Moment kFirstBeyond32Bits = {2106, 2, 7, 11, 58, 16};
constexpr Moment kLastOfFat = {2107, 12, 31, 23, 59, 58};

static_assert(Seconds(kFirstBeyond31Bits) == int64_t{1} << 31, "2038-01-19 03:14:08 UTC");
static_assert(Seconds(kFirstBeyond32Bits) == int64_t{1} << 32, "2106-02-07 06:28:16 UTC");

class DatedFile : public testing::TestWithParam<Moment> {
 protected:
  DatedFile() : low_(static_cast<uint32_t>(Seconds(GetParam()))) {
    at_.card.MakeFile(kMovie);
    at_.card.MakeFile(kPicture);
    for (const char* name : {kMovie, kPicture}) at_.card.SetTime(name, Seconds(GetParam()));
    EXPECT_EQ(at_.Scan(), 2);
  }
  void ExpectMoment(const CQFileListItem& item) {
    const Moment& want = GetParam();
    EXPECT_EQ(item.year, want.year);
    EXPECT_EQ(item.month, want.month);
    EXPECT_EQ(item.day, want.day);
    EXPECT_EQ(item.hour, want.hour);
    EXPECT_EQ(item.minute, want.minute);
    EXPECT_EQ(item.second, want.second);
    EXPECT_EQ(static_cast<uint32_t>(item.modTime), low_);
  }
  ListedCard at_;
  uint32_t low_;  // what the 32 bits of a record hold
};

TEST_P(DatedFile, IsListedWithItsLocalTime) {
  CQFileListItem item;
  ASSERT_EQ(at_.list.GetAt(1, &item, true), 0);
  ExpectMoment(item);
}

TEST_P(DatedFile, HasItsLocalTimeInEveryInformation) {
  CQFileListItem item;
  ASSERT_EQ(at_.list.GetInfo(Arg(at_.card.Path(kPicture)), &item), 0);
  ExpectMoment(item);
  CQFileListItem timed = at_.Item(kPicture);
  ASSERT_EQ(at_.list.GetFileCreateTime(&timed), 0);
  ExpectMoment(timed);
}

TEST_P(DatedFile, KeepsTheLow32BitsInEveryWalk) {
  CQFileListItem item;
  ASSERT_EQ(at_.list.GetFirst(&item, false), 0);
  EXPECT_EQ(static_cast<uint32_t>(item.modTime), low_);
  CQFileListItem next;
  ASSERT_EQ(at_.list.GetNext(&next, false), 0);
  EXPECT_EQ(at_.NameOf(next), kPicture);
  EXPECT_EQ(static_cast<uint32_t>(next.modTime), low_);
}

TEST_P(DatedFile, KeepsItsTimeWhenItIsProtected) {
  CQFileListItem item = at_.At(1);
  EXPECT_EQ(at_.list.SetProtect(&item, true), 0);
  CQFileListItem after;
  ASSERT_EQ(at_.list.GetAt(1, &after, true), 0);
  EXPECT_EQ(after.isProtected, 1);
  ExpectMoment(after);
}

TEST_P(DatedFile, IsDeleted) {
  CQFileListItem item = at_.At(1);
  EXPECT_EQ(at_.list.Delete(&item, false, false), 10000001);
  EXPECT_FALSE(at_.card.Exists(kPicture));
}

INSTANTIATE_TEST_SUITE_P(Dates, DatedFile,
                         testing::Values(kFirstOfFat, kLastOf31Bits, kFirstBeyond31Bits,
                                         kLeapDayOf2040, kFirstBeyond32Bits, kLastOfFat));

}  // namespace
}  // namespace flm_test
