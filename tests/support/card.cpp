#include "tests/support/card.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace flm_test {
namespace {

namespace fs = std::filesystem;

void Fail(const Where& where, const std::string& step, const std::string& path,
          const std::string& reason) {
  ADD_FAILURE_AT(where.file, where.line) << step << " " << path << ": " << reason;
}

void FailSystem(const Where& where, const std::string& step, const std::string& path) {
  Fail(where, step, path, std::strerror(errno));
}

std::string NewFolder() {
  char path[] = "/tmp/fXXXXXX";
  if (mkdtemp(path) == nullptr) throw std::runtime_error("no temporary folder can be made");
  return path;
}

// A test may have taken permissions away; a folder needs all of them to be emptied.
void RemoveWithContent(const fs::path& path) {
  std::error_code ignored;
  if (fs::is_directory(fs::symlink_status(path, ignored))) {
    fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, ignored);
    for (const fs::directory_entry& entry : fs::directory_iterator(path, ignored)) {
      RemoveWithContent(entry.path());
    }
  }
  fs::remove(path, ignored);
}

}  // namespace

Card::Card() : root_(NewFolder()), temporary_(true) {}

Card::Card(const std::string& root) : root_(root), temporary_(false) {
  if (std::getenv("FLM_PRIVATE_CARDS") == nullptr) {
    throw std::runtime_error(root + " belongs to the machine: run below tests/support/with-cards");
  }
  fs::create_directories(root_);
  Empty();
}

Card::~Card() {
  if (temporary_) {
    RemoveWithContent(root_);
  } else {
    Empty();
  }
}

void Card::Empty() {
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(root_, ignored)) {
    RemoveWithContent(entry.path());
  }
}

void Card::MakeDir(const std::string& relative, Where where) {
  std::error_code error;
  fs::create_directories(Path(relative), error);
  if (error) Fail(where, "MakeDir", Path(relative), error.message());
}

void Card::MakeFile(const std::string& relative, const std::string& content, time_t mtime,
                    Where where) {
  const size_t slash = relative.rfind('/');
  if (slash != std::string::npos) MakeDir(relative.substr(0, slash), where);
  WriteFile(relative, content, where);
  if (mtime != 0) SetTime(relative, mtime, where);
}

void Card::MakeFiles(const std::string& dir, const std::string& prefix, int first, int count,
                     const std::string& ext, Where where) {
  for (int number = first; number < first + count; ++number) {
    char digits[16];
    std::snprintf(digits, sizeof(digits), "%04d", number);
    MakeFile(dir + "/" + prefix + digits + "." + ext, "x", 0, where);
  }
}

void Card::WriteFile(const std::string& relative, const std::string& content, Where where) {
  std::ofstream file(Path(relative), std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  if (!file) FailSystem(where, "WriteFile", Path(relative));
}

void Card::SetReadOnly(const std::string& relative, bool readOnly, Where where) {
  struct stat status;
  if (stat(Path(relative).c_str(), &status) != 0) {
    FailSystem(where, "SetReadOnly", Path(relative));
    return;
  }
  const mode_t others = status.st_mode & 07777 & ~static_cast<mode_t>(S_IWUSR);
  SetMode(relative, readOnly ? others : others | S_IWUSR, where);
}

void Card::SetMode(const std::string& relative, unsigned int mode, Where where) {
  if (chmod(Path(relative).c_str(), mode) != 0) FailSystem(where, "SetMode", Path(relative));
}

void Card::SetTime(const std::string& relative, time_t mtime, Where where) {
  timespec times[2] = {};
  times[0].tv_sec = mtime;
  times[1].tv_sec = mtime;
  if (utimensat(AT_FDCWD, Path(relative).c_str(), times, 0) != 0) {
    FailSystem(where, "SetTime", Path(relative));
  }
}

void Card::Remove(const std::string& relative, Where where) {
  if (!Exists(relative)) Fail(where, "Remove", Path(relative), "it is not there");
  RemoveWithContent(Path(relative));
  if (Exists(relative)) Fail(where, "Remove", Path(relative), "it is still there");
}

bool Card::Exists(const std::string& relative) const {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(Path(relative), ignored));
}

bool Card::IsReadOnly(const std::string& relative) const {
  struct stat status;
  return stat(Path(relative).c_str(), &status) == 0 && (status.st_mode & S_IWUSR) == 0;
}

std::string Card::ReadFile(const std::string& relative, Where where) const {
  std::ifstream file(Path(relative), std::ios::binary);
  if (!file) FailSystem(where, "ReadFile", Path(relative));
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::vector<std::string> Card::Tree() const {
  std::vector<std::string> paths;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root_, ignored)) {
    const bool folder = fs::is_directory(entry.symlink_status());
    paths.push_back(entry.path().string().substr(root_.size() + 1) + (folder ? "/" : ""));
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

namespace {

constexpr char kPreferenceVariable[] = "FLM_PREFERENCE_FILE";

}  // namespace

ScopedPreference::ScopedPreference() {
  const char* const named = std::getenv(kPreferenceVariable);
  if (named != nullptr) before_ = named;
  setenv(kPreferenceVariable, File().c_str(), 1);
}

ScopedPreference::~ScopedPreference() { setenv(kPreferenceVariable, before_.c_str(), 1); }

ScopedVariable::ScopedVariable(const char* name, const char* value) : name_(name) {
  const char* const now = std::getenv(name);
  wasSet_ = now != nullptr;
  if (wasSet_) before_ = now;
  if (value != nullptr) {
    setenv(name, value, 1);
  } else {
    unsetenv(name);
  }
}

ScopedVariable::~ScopedVariable() {
  if (wasSet_) {
    setenv(name_.c_str(), before_.c_str(), 1);
  } else {
    unsetenv(name_.c_str());
  }
}

OrdinaryUser::OrdinaryUser() {
  constexpr uid_t kNobody = 65534;
  if (geteuid() != 0) return;
  changed_ = seteuid(kNobody) == 0;
  held_ = changed_;
}

OrdinaryUser::~OrdinaryUser() {
  if (changed_ && seteuid(0) != 0) std::abort();
}

int FdCount() {
  int count = 0;
  for (int descriptor = 0; descriptor < 1024; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) >= 0) ++count;
  }
  return count;
}

}  // namespace flm_test
