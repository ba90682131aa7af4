// What the card says about a file: size, times, protection, existence; and the clock.
#include <ctime>

#include "base/file_list_item.h"
#include "base/wrapping.h"
#include "fsio/PCQDCFFSIO.h"
#include "fsio/file_status.h"
#include "fsio/os_calls.h"

namespace {

constexpr mode_t kModeBits = 07777;    // what chmod takes
constexpr int kYearBase = 1900;        // of struct tm
constexpr int kEntriesOfEmptyDir = 2;  // "." and ".."

// Writes the time fields, all of them or none.
int FillTime(CQFileListItem* item, time_t modified) {
  tm local;
  if (flm::Os().Localtime(&modified, &local) == nullptr) return -1;
  item->year = flm::WrappingSum(local.tm_year, kYearBase);
  item->month = local.tm_mon + 1;
  item->day = local.tm_mday;
  item->hour = local.tm_hour;
  item->minute = local.tm_min;
  item->second = local.tm_sec;
  item->modTime = static_cast<int32_t>(static_cast<uint32_t>(modified));
  return 0;
}

}  // namespace

int PCQDCFFSIO::GetFileSize(const char* path) {
  flm::FileStatus status(path);
  const int result = status.Result();
  if (result < 0) return result;
  return static_cast<int32_t>(static_cast<uint32_t>(status.Value().st_size));
}

int PCQDCFFSIO::GetFileCreateTime(CQFileListItem* item) {
  if (item == nullptr) return -1;
  flm::FileStatus status(item->filePath);
  const int result = status.Result();
  return result < 0 ? result : FillTime(item, status.Value().st_mtime);
}

unsigned int PCQDCFFSIO::GetFileCreateTime(const char* path) {
  return flm::FileStatus(path).ModifiedTime();
}

int PCQDCFFSIO::GetFileStatInfo(CQFileListItem* item) {
  if (item == nullptr) return -1;
  flm::FileStatus status(item->filePath);
  return TakeStatInfo(item, status);
}

int PCQDCFFSIO::TakeStatInfo(CQFileListItem* item, flm::FileStatus& status) {
  int result = status.Result();
  if (result < 0) return result;
  result = FillTime(item, status.Value().st_mtime);
  if (result == 0) item->isProtected = status.IsProtected() ? 1 : 0;
  return result;
}

int PCQDCFFSIO::IsExist(const char* path) { return flm::FileStatus(path).Result() == 0 ? 1 : 0; }

int PCQDCFFSIO::IsProtect(const char* path) { return flm::FileStatus(path).IsProtected() ? 1 : 0; }

int PCQDCFFSIO::SetProtect(const char* path, bool protect) {
  flm::FileStatus status(path);
  if (status.Result() < 0) return -1;
  const mode_t mode = status.Value().st_mode & kModeBits;
  const int result =
      flm::Os().Chmod(path, protect ? mode & ~flm::kOwnerWrite : mode | flm::kOwnerWrite);
  flm::Os().Sync();
  return result;
}

int PCQDCFFSIO::IsDirEmpty(const char* path) {
  DIR* const dir = path == nullptr ? nullptr : flm::Os().Opendir(path);
  if (dir == nullptr) return 1;
  int entries = 0;
  while (entries <= kEntriesOfEmptyDir && flm::Os().Readdir(dir) != nullptr) ++entries;
  flm::Os().Closedir(dir);
  return entries <= kEntriesOfEmptyDir ? 1 : 0;
}

void PCQDCFFSIO::GetSystemTime(tTimeStamp& ts) {
  const time_t now = flm::Os().Time(nullptr);
  tm local;
  if (flm::Os().Localtime(&now, &local) == nullptr) {
    // Callers make names from month and day, so every field must be a legal one.
    ts = {kYearBase, 1, 1, 1, 1, 1};
    return;
  }
  ts.year = static_cast<uint16_t>(flm::WrappingSum(local.tm_year, kYearBase));
  ts.month = static_cast<uint16_t>(local.tm_mon + 1);
  ts.day = static_cast<uint16_t>(local.tm_mday);
  ts.hour = static_cast<uint16_t>(local.tm_hour);
  ts.minute = static_cast<uint16_t>(local.tm_min);
  ts.second = static_cast<uint16_t>(local.tm_sec);
}
