// What the card says about a file: size, times, protection, existence; and the clock.
#include <ctime>

#include "base/file_list_item.h"
#include "base/wrapping.h"
#include "fsio/PCQDCFFSIO.h"
#include "fsio/os_calls.h"

namespace {

constexpr mode_t kOwnerWrite = 0200;   // clear means protected
constexpr mode_t kModeBits = 07777;    // what chmod takes
constexpr int kYearBase = 1900;        // of struct tm
constexpr int kEntriesOfEmptyDir = 2;  // "." and ".."

// 0, or the negative result of the call; a null path has no status.
int StatusOf(const char* path, struct stat* status) {
  return path == nullptr ? -1 : flm::Os().Stat(path, status);
}

bool IsProtectedMode(mode_t mode) { return (mode & kOwnerWrite) == 0; }

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
  struct stat status;
  const int result = StatusOf(path, &status);
  if (result < 0) return result;
  return static_cast<int32_t>(static_cast<uint32_t>(status.st_size));
}

int PCQDCFFSIO::GetFileCreateTime(CQFileListItem* item) {
  if (item == nullptr) return -1;
  struct stat status;
  const int result = StatusOf(item->filePath, &status);
  return result < 0 ? result : FillTime(item, status.st_mtime);
}

unsigned int PCQDCFFSIO::GetFileCreateTime(const char* path) {
  struct stat status;
  return StatusOf(path, &status) < 0 ? 0U : static_cast<unsigned int>(status.st_mtime);
}

int PCQDCFFSIO::GetFileStatInfo(CQFileListItem* item) {
  if (item == nullptr) return -1;
  struct stat status;
  int result = StatusOf(item->filePath, &status);
  if (result < 0) return result;
  result = FillTime(item, status.st_mtime);
  if (result == 0) item->isProtected = IsProtectedMode(status.st_mode) ? 1 : 0;
  return result;
}

int PCQDCFFSIO::IsExist(const char* path) {
  struct stat status;
  return StatusOf(path, &status) == 0 ? 1 : 0;
}

int PCQDCFFSIO::IsProtect(const char* path) {
  struct stat status;
  return StatusOf(path, &status) == 0 && IsProtectedMode(status.st_mode) ? 1 : 0;
}

int PCQDCFFSIO::SetProtect(const char* path, bool protect) {
  struct stat status;
  if (StatusOf(path, &status) < 0) return -1;
  const mode_t mode = status.st_mode & kModeBits;
  const int result = flm::Os().Chmod(path, protect ? mode & ~kOwnerWrite : mode | kOwnerWrite);
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
