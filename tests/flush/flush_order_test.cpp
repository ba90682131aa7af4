// The order in which a file of the preference store and an imported file reach the card, and that
// no descriptor opened on the way survives exec. The calls get their watcher from the linker.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdarg>
#include <map>
#include <string>
#include <vector>

#include "platform/preference.h"
#include "tests/support/card.h"
#include "tools/flm/copy_file.h"

namespace {

struct Watch {
  std::map<int, std::string> paths;  // of open descriptors, under their present names
  std::vector<std::string> events;   // what happened, by the last part of each path
  std::vector<std::string> leaks;    // opened so that they survive exec
  int opens = 0;
};

Watch* watch = nullptr;  // null while nobody looks

std::string Name(const std::string& path) {
  const std::string name = path.substr(path.rfind('/') + 1);
  return name.compare(0, 5, ".flm-") == 0 ? "temporary" : name;
}

int NoteOpen(int descriptor, const std::string& path, int flags) {
  if (watch == nullptr || descriptor < 0) return descriptor;
  ++watch->opens;
  watch->paths[descriptor] = path;
  if ((flags & O_CLOEXEC) == 0) watch->leaks.push_back(path);
  return descriptor;
}

void NoteFlush(int descriptor) {
  if (watch != nullptr) watch->events.push_back("flush " + Name(watch->paths[descriptor]));
}

int NoteRename(int result, const std::string& from, const std::string& to) {
  if (watch == nullptr || result != 0) return result;
  for (auto& open : watch->paths) {
    if (open.second == from) open.second = to;
  }
  watch->events.push_back("rename to " + Name(to));
  return result;
}

mode_t ModeOf(int flags, va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) == 0 ? 0 : static_cast<mode_t>(va_arg(arguments, int));
}

}  // namespace

extern "C" {

int __real_open(const char* path, int flags, ...);
int __real_open64(const char* path, int flags, ...);
int __real_mkostemp(char* path, int flags);
int __real_mkostemp64(char* path, int flags);
int __real_fsync(int descriptor);
int __real_rename(const char* from, const char* to);
int __real_renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                     unsigned int flags);

int __wrap_open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return NoteOpen(__real_open(path, flags, mode), path, flags);
}

int __wrap_open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return NoteOpen(__real_open64(path, flags, mode), path, flags);
}

int __wrap_mkostemp(char* path, int flags) {
  const int descriptor = __real_mkostemp(path, flags);
  return NoteOpen(descriptor, path, flags);
}

int __wrap_mkostemp64(char* path, int flags) {
  const int descriptor = __real_mkostemp64(path, flags);
  return NoteOpen(descriptor, path, flags);
}

int __wrap_fsync(int descriptor) {
  NoteFlush(descriptor);
  return __real_fsync(descriptor);
}

int __wrap_rename(const char* from, const char* to) {
  return NoteRename(__real_rename(from, to), from, to);
}

int __wrap_renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                     unsigned int flags) {
  return NoteRename(__real_renameat2(fromFolder, from, toFolder, to, flags), from, to);
}
}

namespace {

using Events = std::vector<std::string>;

class FlushOrder : public testing::Test {
 protected:
  FlushOrder() { watch = &watch_; }
  ~FlushOrder() override { watch = nullptr; }

  flm_test::Card card_;
  Watch watch_;
};

TEST_F(FlushOrder, AStoredValueIsFlushedBeforeAndAfterItGetsItsName) {
  card_.MakeDir("state");
  const flm_test::ScopedVariable file("FLM_PREFERENCE_FILE", card_.Path("state/store").c_str());
  ASSERT_EQ(0, pref_set_long(1, 856, 10000012));
  EXPECT_EQ((Events{"flush store.new", "rename to store", "flush store", "flush state"}),
            watch_.events);
}

TEST_F(FlushOrder, FoldersMadeForTheFirstValueAreFlushedToo) {
  const flm_test::ScopedVariable file("FLM_PREFERENCE_FILE", card_.Path("a/b/store").c_str());
  ASSERT_EQ(0, pref_set_long(1, 856, 10000012));
  ASSERT_EQ(6U, watch_.events.size());
  EXPECT_EQ("flush " + Name(card_.Root()), watch_.events[0]);
  EXPECT_EQ("flush a", watch_.events[1]);
  EXPECT_EQ("flush b", watch_.events[5]);
}

TEST_F(FlushOrder, AnImportedFileIsFlushedBeforeAndAfterItGetsItsName) {
  card_.MakeFile("source", "picture");
  card_.MakeDir("100PHOTO");
  const flm::tool::SourceFile source(card_.Path("source"), "source");
  flm::tool::CopyInto(source, card_.Path("100PHOTO/QVX_0001.JPG"), "QVX_0001.JPG");
  EXPECT_EQ("picture", card_.ReadFile("100PHOTO/QVX_0001.JPG"));
  EXPECT_EQ(
      (Events{"flush temporary", "rename to QVX_0001.JPG", "flush QVX_0001.JPG", "flush 100PHOTO"}),
      watch_.events);
}

TEST_F(FlushOrder, NoDescriptorOnTheWaySurvivesExec) {
  card_.MakeFile("source", "picture");
  const flm_test::ScopedVariable file("FLM_PREFERENCE_FILE", card_.Path("a/store").c_str());
  watch_ = Watch();
  ASSERT_EQ(0, pref_set_long(1, 856, 10000012));
  EXPECT_EQ(10000012, pref_get_long(1, 856));
  const flm::tool::SourceFile source(card_.Path("source"), "source");
  flm::tool::CopyInto(source, card_.Path("QVX_0001.JPG"), "QVX_0001.JPG");
  EXPECT_LE(7, watch_.opens);
  EXPECT_EQ(Events{}, watch_.leaks);
}

}  // namespace
