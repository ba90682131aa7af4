#include "bench/floors.h"

#include <dirent.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench/card.h"
#include "bench/measure.h"

namespace flm::bench {
namespace {

constexpr size_t kDcfLength = 12;
constexpr size_t kFreeCharacters = 4;
constexpr size_t kPathRoom = 128;

// The order of the catalogue: two names of 12 characters by all but their free ones.
int CompareNames(const char* left, const char* right) {
  const bool dcf = std::strlen(left) == kDcfLength && std::strlen(right) == kDcfLength;
  return dcf ? std::strcmp(left + kFreeCharacters, right + kFreeCharacters)
             : std::strcmp(left, right);
}

int CompareEntries(const dirent** a, const dirent** b) {
  return CompareNames((*a)->d_name, (*b)->d_name);
}

int Scandir(const std::string& folder) {
  dirent** entries = nullptr;
  const int count = scandir(folder.c_str(), &entries, nullptr, CompareEntries);
  for (int i = 0; i < count; ++i) std::free(entries[i]);
  std::free(entries);
  return count;
}

bool HasStatus(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0;
}

void* FlushBody(void* /*unused*/) {
  sync();
  return nullptr;
}

void StartFlush() {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
  pthread_t thread;
  pthread_create(&thread, &attributes, FlushBody, nullptr);
  pthread_attr_destroy(&attributes);
}

}  // namespace

int ScandirEach(const std::vector<std::string>& folders) {
  int entries = 0;
  for (const std::string& folder : folders) entries += Scandir(folder);
  return entries;
}

int ReadAndSort(const std::string& folder) {
  using Name = std::array<char, kDcfLength + 1>;
  std::vector<Name> names;
  DIR* const dir = opendir(folder.c_str());
  if (dir == nullptr) return -1;
  while (const dirent* const entry = readdir(dir)) {
    Name name = {};
    std::memcpy(name.data(), entry->d_name, strnlen(entry->d_name, kDcfLength));
    names.push_back(name);
  }
  closedir(dir);
  std::sort(names.begin(), names.end(),
            [](const Name& a, const Name& b) { return CompareNames(a.data(), b.data()) < 0; });
  return static_cast<int>(names.size());
}

long PrintEachPath(const SampleCard& card) {
  char path[kPathRoom];
  long characters = 0;
  const char* const root = card.Root().c_str();
  for (int folder = 0; folder < card.Layout().folders; ++folder) {
    char name[kPathRoom];
    std::snprintf(name, sizeof(name), "%dPHOTO", kFirstFolder + folder);
    for (int number = 1; number <= card.Layout().picturesPerFolder; ++number) {
      characters += std::snprintf(path, sizeof(path), "%s/DCIM/%s/%s%04d.%s", root, name, "QVX_",
                                  number, "JPG");
    }
  }
  return characters;
}

int StatEach(const std::vector<std::string>& paths) {
  return static_cast<int>(std::count_if(paths.begin(), paths.end(), HasStatus));
}

int StatEachBackwards(const std::vector<std::string>& paths) {
  return static_cast<int>(std::count_if(paths.rbegin(), paths.rend(), HasStatus));
}

int LookUpSources(const std::string& printOrder, const KnownSources& known) {
  constexpr std::string_view kSourceStart = "<IMG SRC=\"";
  FILE* const file = std::fopen(printOrder.c_str(), "r");
  if (file == nullptr) return -1;
  char* buffer = nullptr;
  size_t room = 0;
  int found = 0;
  for (ssize_t length; (length = getline(&buffer, &room, file)) > 0;) {
    std::string_view line(buffer, static_cast<size_t>(length));
    if (line.substr(0, kSourceStart.size()) != kSourceStart) continue;
    line.remove_prefix(kSourceStart.size());
    if (known.count(line.substr(0, line.find('"'))) != 0) ++found;
  }
  std::free(buffer);
  std::fclose(file);
  return found;
}

void PrintAndWriteOrder(const std::string& printOrder, const std::vector<std::string>& sources,
                        std::vector<char>& room) {
  size_t used = 0;
  const auto print = [&](const char* format, auto... values) {
    used += static_cast<size_t>(
        std::snprintf(room.data() + used, room.size() - used, format, values...));
  };
  int job = 0;
  const auto printJobs = [&](const char* type, int quantity) {
    for (const std::string& source : sources) {
      print(
          "[JOB]\r\nPRT PID=%03d\r\nPRT TYP=%s\r\nPRT QTY=%03d\r\nIMG FMT=EXIF2 -J\r\n"
          "<IMG SRC=\"%s\">\r\n",
          ++job, type, quantity, source.c_str());
    }
  };
  print("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"%s\"\r\n\r\n", kCreator);
  printJobs("STD", kCopies);
  print("[JOB]\r\nPRT PID=%03d\r\nPRT TYP=IDX\r\nPRT QTY=001>\r\nIMG FMT=EXIF2 -J\r\n", ++job);
  for (const std::string& source : sources) print("<IMG SRC=\"%s\">\r\n", source.c_str());
  printJobs("SIZ -04", 1);
  WriteText(printOrder, {room.data(), used});
}

void WriteText(const std::string& path, std::string_view text) {
  constexpr mode_t kMode = 0666;
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode);
  const ssize_t written = file < 0 ? -1 : write(file, text.data(), text.size());
  Require(written == static_cast<ssize_t>(text.size()), "the floor cannot write its file");
  close(file);
}

void StatAndUnlinkEach(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    Require(HasStatus(path) && unlink(path.c_str()) == 0, "the floor cannot delete a file");
  }
}

void StatUnlinkFlushRewrite(const std::string& path, const std::string& header) {
  Require(HasStatus(path) && unlink(path.c_str()) == 0, "the floor cannot delete a file");
  StartFlush();
  WriteText(header, "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"\"\r\n\r\n");
}

void StatProtectFlush(const std::string& path) {
  constexpr mode_t kReadOnly = 0444;
  Require(HasStatus(path) && chmod(path.c_str(), kReadOnly) == 0,
          "the floor cannot protect a file");
  sync();
}

}  // namespace flm::bench
