#include "series_store.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "dcf/dcf_name.h"
#include "failure.h"
#include "output.h"
#include "platform/preference.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr int kSeriesCategory = 1;
constexpr int kSeriesKey = 856;

// The very last number is not stored: numbering starts over behind it.
constexpr long kHighestStored = 99909998;
constexpr long kStartOver = 10000000;

std::string Variable(const char* name) {
  const char* const value = secure_getenv(name);
  return value == nullptr ? "" : value;
}

// The file that the store uses, for messages: the store itself does not tell its name.
std::string StoreFile() {
  std::string named = Variable("FLM_PREFERENCE_FILE");
  if (!named.empty()) return named;
  const std::string state = Variable("XDG_STATE_HOME");
  const std::string folder = StartsWith(state, "/") ? state : Variable("HOME") + "/.local/state";
  return folder + "/filelistmanagement/preferences";
}

// Why a folder is not there: the store tries to make it and goes on to miss its file in it.
int ErrorOfFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  return error ? error.value() : ENOENT;
}

}  // namespace

FileNumber StoredNumber() {
  const long stored = pref_get_long(kSeriesCategory, kSeriesKey);
  const long largest = ToFileIndex({kLastDirNumber, kLastFileNumber});
  if (stored <= 0 || stored > largest) return {};
  return FromFileIndex(stored);
}

void StoreNumber(const FileNumber& number) {
  errno = 0;
  if (pref_set_long(kSeriesCategory, kSeriesKey, ToFileIndex(number)) == 0) return;
  const std::string what = "cannot write the preference store " + Printable(StoreFile());
  const int error = errno == ENOENT ? ErrorOfFolder(FolderOf(StoreFile())) : errno;
  throw Failure(error == 0 ? what : WithReason(what, error));
}

// Storing once more tells the reason, and is harmless where it works.
void RequireStored(const FileNumber& number) {
  const long index = ToFileIndex(number);
  const long wanted = index > kHighestStored ? kStartOver : index;
  if (ToFileIndex(StoredNumber()) != wanted) StoreNumber(FromFileIndex(wanted));
}

void WarnUnlessStored(const FileNumber& number) {
  static bool warned = false;
  if (warned) return;
  try {
    RequireStored(number);
  } catch (const Failure& failure) {
    warned = true;
    Complain(std::string("numbers given out are not kept for --series: ") + failure.what());
  }
}

}  // namespace flm::tool
