// A movie of nearly 4 GiB, the most that a FAT can hold. It is made by writing its chain of
// clusters into the table, since a FAT has no files with holes and writing so much would take
// minutes.
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "fsio/PCQDCFFSIO.h"
#include "tests/fat/fat_card.h"

namespace flm_test {
namespace {

constexpr char kRoot[] = "/mnt/large";
constexpr char kFolder[] = "/mnt/large/DCIM/100PHOTO";
constexpr char kMovie[] = "/mnt/large/DCIM/100PHOTO/QVX_0001.MP4";
constexpr char kEntryName[] = "QVX_0001MP4";  // as a directory entry spells it

// The large card's device, and the numbers in its first sector that say where everything is.
class RawCard {
 public:
  explicit RawCard(const std::string& device) : descriptor_(open(device.c_str(), O_RDWR)) {
    if (descriptor_ < 0) throw std::runtime_error("no large card");
    sectorSize_ = Number(11, 2);
    clusterSize_ = sectorSize_ * Number(13, 1);
    tableAt_ = sectorSize_ * Number(14, 2);
    tables_ = Number(16, 1);
    tableSize_ = sectorSize_ * Number(36, 4);
  }
  ~RawCard() {
    fsync(descriptor_);
    close(descriptor_);
  }
  RawCard(const RawCard&) = delete;
  RawCard& operator=(const RawCard&) = delete;

  uint64_t ClusterSize() const { return clusterSize_; }

  // Gives the file of one cluster that has this name as many clusters as the size takes.
  void Lengthen(const char* name, uint32_t size) {
    const uint64_t entry = Find(name);
    const uint64_t first = Number(entry + 20, 2) << 16 | Number(entry + 26, 2);
    const uint64_t clusters = (size + clusterSize_ - 1) / clusterSize_;
    WriteChain(static_cast<uint32_t>(first), kFirstFree, static_cast<uint32_t>(clusters - 1));
    Write(entry + 28, &size, sizeof(size));
    // The counts of free clusters are not true any more.
    const uint32_t unknown[2] = {0xFFFFFFFF, 0xFFFFFFFF};
    Write(sectorSize_ * Number(48, 2) + 488, unknown, sizeof(unknown));
  }

 private:
  static constexpr uint32_t kFirstFree = 1000;  // behind the few clusters that are in use
  static constexpr uint32_t kEndOfChain = 0x0FFFFFFF;

  uint64_t Number(uint64_t at, size_t bytes) const {
    uint64_t value = 0;
    if (pread(descriptor_, &value, bytes, static_cast<off_t>(at)) < 0) std::abort();
    return value;
  }
  void Write(uint64_t at, const void* data, size_t size) {
    if (pwrite(descriptor_, data, size, static_cast<off_t>(at)) < 0) std::abort();
  }
  // Where the entry of a name stands.
  uint64_t Find(const char* name) const {
    const uint64_t data = tableAt_ + tables_ * tableSize_;
    std::string start(kFirstFree * clusterSize_ / 16, '\0');
    if (pread(descriptor_, &start[0], start.size(), static_cast<off_t>(data)) < 0) std::abort();
    const size_t found = start.find(name);
    if (found == std::string::npos) throw std::runtime_error("the movie has no entry");
    return data + found;
  }
  // Leads from one cluster through a row of others to the end.
  void WriteChain(uint32_t from, uint32_t row, uint32_t count) {
    std::vector<uint32_t> links;
    for (uint32_t i = 1; i < count; ++i) links.push_back(row + i);
    links.push_back(kEndOfChain);
    for (uint64_t table = 0; table < tables_; ++table) {
      const uint64_t at = tableAt_ + table * tableSize_;
      Write(at + from * sizeof(row), &row, sizeof(row));
      Write(at + row * sizeof(row), links.data(), links.size() * sizeof(row));
    }
  }

  int descriptor_;
  uint64_t sectorSize_;
  uint64_t clusterSize_;
  uint64_t tableAt_;
  uint64_t tables_;
  uint64_t tableSize_;
};

class FatMovie : public testing::Test {
 protected:
  ~FatMovie() override {
    list_.Destroy();
    umount(kRoot);
  }
  // A card with one movie of this size. The number of files on it.
  int With(uint32_t size) {
    Mount();
    mkdir("/mnt/large/DCIM", 0777);
    mkdir(kFolder, 0777);
    std::ofstream(kMovie) << "m";
    umount(kRoot);
    RawCard(Device()).Lengthen(kEntryName, size);
    Mount();
    list_.SetType(4);
    list_.SetBaseURI(kRoot);
    return list_.Listup(0);
  }
  uint64_t FreeBytes() const {
    struct statvfs status;
    if (statvfs(kRoot, &status) != 0) return 0;
    return uint64_t{status.f_bfree} * status.f_bsize;
  }

  CQFileList list_;

 private:
  static std::string Device() { return std::getenv("FLM_FAT_LARGE"); }
  static void Mount() {
    ASSERT_EQ(mount(Device().c_str(), kRoot, "vfat", 0, std::getenv("FLM_FAT_OPTIONS")), 0)
        << std::strerror(errno);
  }
};

TEST_F(FatMovie, OfNearly4GiBIsListedAndDeletedAndItsRoomIsFree) {
  constexpr uint32_t kSize = 0xFFFF0000;
  ASSERT_EQ(With(kSize), 1);
  CQFileListItem item;
  ASSERT_EQ(list_.GetAt(0, &item, true), 0);
  EXPECT_STREQ(item.filePath, kMovie);
  EXPECT_EQ(static_cast<uint32_t>(PCQDCFFSIO::GetFileSize(kMovie)), kSize);
  const uint64_t before = FreeBytes();
  EXPECT_GT(list_.Delete(&item, false, false), 0);
  EXPECT_EQ(list_.GetCount(), 0);
  EXPECT_EQ(FreeBytes() - before, kSize) << "a whole number of clusters";
}

// The low 32 bits of that size read as a negative number; they are no failure.
TEST_F(FatMovie, OfTheGreatestSizeIsAFileLikeAnyOther) {
  constexpr uint32_t kGreatest = 0xFFFFFFFF;
  ASSERT_EQ(With(kGreatest), 1);
  CQFileListItem item;
  ASSERT_EQ(list_.GetAt(0, &item, true), 0);
  EXPECT_EQ(static_cast<uint32_t>(PCQDCFFSIO::GetFileSize(kMovie)), kGreatest);
  EXPECT_EQ(list_.SetProtect(&item, true), 0);
  EXPECT_GT(list_.Delete(&item, true, false), 0);
  EXPECT_EQ(PCQDCFFSIO::IsExist(kMovie), 0);
}

}  // namespace
}  // namespace flm_test
