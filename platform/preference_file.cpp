// The preference store in one small text file:
//
//   filelistmanagement preferences 1
//   1 856 10000012                      category, key, value
//   end 1                               number of values
//
// A file without its last line was torn, one without its first line is somebody else's: both read
// as if nothing had been stored. The file is replaced as a whole. On a FAT file system renaming is
// not safe by itself, so the renamed file is flushed once more, and then its folder. Proven by
// preference_test.
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/bounded_text.h"
#include "platform/preference.h"

namespace {

constexpr char kFirstLine[] = "filelistmanagement preferences 1\n";
constexpr char kEndFormat[] = "end %d\n";
constexpr char kValueFormat[] = "%d %d %ld\n";
constexpr int kMaxValues = 64;
constexpr int kTextSize = 4096;
constexpr int kPathSize = PATH_MAX;
constexpr long kNeverStored = -1;
constexpr mode_t kFileMode = 0600;
constexpr mode_t kFolderMode = 0700;

struct Value {
  int category;
  int key;
  long value;
};

struct Values {
  Value entries[kMaxValues];
  int count = 0;

  Value* Find(int category, int key) {
    for (int i = 0; i < count; ++i) {
      if (entries[i].category == category && entries[i].key == key) return &entries[i];
    }
    return nullptr;
  }
};

bool IsSet(const char* text) { return text != nullptr && text[0] != '\0'; }

// The home of the user the process runs as, when its environment is not to be trusted.
bool AppendHome(flm::BoundedText& path) {
  const char* const home = secure_getenv("HOME");
  if (IsSet(home)) return !path.Text(home).Cut();
  char buffer[kTextSize];
  passwd entry;
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &entry, buffer, sizeof(buffer), &found) != 0 || found == nullptr)
    return false;
  return !path.Text(found->pw_dir).Cut();
}

// The file's path; false when there is none or it does not fit.
bool StorePath(char* out) {
  flm::BoundedText path(out, kPathSize);
  const char* const named = secure_getenv("FLM_PREFERENCE_FILE");
  if (IsSet(named)) return !path.Text(named).Cut();
  const char* const state = secure_getenv("XDG_STATE_HOME");
  if (IsSet(state) && state[0] == '/') {
    path.Text(state);
  } else {
    if (!AppendHome(path)) return false;
    path.Text("/.local/state");
  }
  return !path.Text("/filelistmanagement/preferences").Cut();
}

bool ReadAll(int descriptor, char* text) {
  size_t length = 0;
  while (length < kTextSize - 1) {
    const ssize_t got = read(descriptor, text + length, kTextSize - 1 - length);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return false;
    if (got == 0) break;
    length += static_cast<size_t>(got);
  }
  text[length] = '\0';
  return std::strlen(text) == length;
}

bool ReadText(const char* path, char* text) {
  const int descriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return false;
  struct stat status;
  const bool regular = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
  const bool whole = regular && ReadAll(descriptor, text);
  close(descriptor);
  return whole;
}

// Takes a number and what must follow it; false when it is none or out of range.
bool TakeNumber(const char** at, char follower, long* number) {
  char* end = nullptr;
  errno = 0;
  *number = std::strtol(*at, &end, 10);
  if (end == *at || *end != follower || errno != 0) return false;
  *at = end + 1;
  return true;
}

bool TakeValue(const char** at, Value* value) {
  long category = 0;
  long key = 0;
  if (!TakeNumber(at, ' ', &category) || !TakeNumber(at, ' ', &key)) return false;
  if (category < INT_MIN || category > INT_MAX || key < INT_MIN || key > INT_MAX) return false;
  value->category = static_cast<int>(category);
  value->key = static_cast<int>(key);
  return TakeNumber(at, '\n', &value->value);
}

bool Parse(const char* text, Values* values) {
  if (std::strncmp(text, kFirstLine, sizeof(kFirstLine) - 1) != 0) return false;
  const char* at = text + sizeof(kFirstLine) - 1;
  while (values->count < kMaxValues && std::strncmp(at, "end ", 4) != 0) {
    if (!TakeValue(&at, &values->entries[values->count])) return false;
    ++values->count;
  }
  char end[32];
  std::snprintf(end, sizeof(end), kEndFormat, values->count);
  return std::strcmp(at, end) == 0;
}

// False when there may be a store that the system does not let us read; a foreign file is no store.
bool Load(const char* path, Values* values) {
  char text[kTextSize];
  errno = 0;
  if (!ReadText(path, text)) {
    values->count = 0;
    return errno == 0 || errno == ENOENT || errno == ENOTDIR;
  }
  if (!Parse(text, values)) values->count = 0;
  return true;
}

bool WriteText(int descriptor, const char* text) {
  size_t rest = std::strlen(text);
  while (rest > 0) {
    const ssize_t put = write(descriptor, text, rest);
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) return false;
    text += put;
    rest -= static_cast<size_t>(put);
  }
  return true;
}

// Opens, flushes and closes a file or folder.
bool Flush(const char* path) {
  const int descriptor = open(path, O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return false;
  const bool flushed = fsync(descriptor) == 0;
  return close(descriptor) == 0 && flushed;
}

bool FlushFolderOf(const char* file) {
  char path[kPathSize];
  flm::CopyText(path, kPathSize, file);
  char* const slash = std::strrchr(path, '/');
  if (slash == nullptr) return Flush(".");
  slash[slash == path ? 1 : 0] = '\0';
  return Flush(path);
}

// Makes the folders above the file that are missing.
void MakeFolders(const char* file) {
  char path[kPathSize];
  flm::CopyText(path, kPathSize, file);
  for (char* slash = std::strchr(path + 1, '/'); slash != nullptr;
       slash = std::strchr(slash + 1, '/')) {
    *slash = '\0';
    if (mkdir(path, kFolderMode) == 0) FlushFolderOf(path);
    *slash = '/';
  }
}

bool WriteNew(const char* path, const char* text) {
  // Whatever an earlier, interrupted replacement left there goes first.
  unlink(path);
  const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  const int descriptor = open(path, flags, kFileMode);
  if (descriptor < 0) return false;
  const bool written = WriteText(descriptor, text) && fsync(descriptor) == 0;
  if (close(descriptor) == 0 && written) return true;
  unlink(path);
  return false;
}

bool Replace(const char* path, const char* text) {
  char fresh[kPathSize];
  flm::BoundedText name(fresh, kPathSize);
  if (name.Text(path).Text(".new").Cut()) return false;
  if (!WriteNew(fresh, text)) return false;
  if (rename(fresh, path) != 0) {
    unlink(fresh);
    return false;
  }
  return Flush(path) && FlushFolderOf(path);
}

bool Format(const Values& values, char* text) {
  flm::BoundedText out(text, kTextSize);
  out.Text(kFirstLine);
  char line[96];
  for (int i = 0; i < values.count; ++i) {
    const Value& value = values.entries[i];
    std::snprintf(line, sizeof(line), kValueFormat, value.category, value.key, value.value);
    out.Text(line);
  }
  std::snprintf(line, sizeof(line), kEndFormat, values.count);
  return !out.Text(line).Cut();
}

}  // namespace

long pref_get_long(int category, int key) {
  char path[kPathSize];
  if (!StorePath(path)) return kNeverStored;
  Values values;
  Load(path, &values);
  const Value* const found = values.Find(category, key);
  return found == nullptr ? kNeverStored : found->value;
}

int pref_set_long(int category, int key, long value) {
  char path[kPathSize];
  char text[kTextSize];
  if (!StorePath(path)) return -1;
  Values values;
  if (!Load(path, &values)) return -1;
  Value* entry = values.Find(category, key);
  if (entry == nullptr) {
    if (values.count == kMaxValues) return -1;
    entry = &values.entries[values.count++];
  }
  *entry = {category, key, value};
  if (!Format(values, text)) return -1;
  MakeFolders(path);
  return Replace(path, text) ? 0 : -1;
}
