#include "tests/model/model_guard.h"

#include <cerrno>

#include "fsio/os_calls.h"
#include "platform/preference.h"
#include "tests/model/model_world.h"

extern "C" long pref_get_long(int category, int key) {
  return category == 1 && key == 856 ? flm_model::Guard::preference : -1;
}

extern "C" int pref_set_long(int category, int key, long value) {
  if (category == 1 && key == 856) flm_model::Guard::preference = value;
  return 0;
}

namespace flm_model {
namespace {

std::string guarded;
flm::OsCalls real;

int Refuse() {
  errno = EPERM;
  return -1;
}

bool May(const char* path) { return ResolvePlace(guarded, path).allowed; }
bool MayChange(const char* path) {
  return May(path) && ResolvePlace(guarded, path).path != guarded;
}

int Stat(const char* path, struct stat* status) {
  return May(path) ? real.Stat(path, status) : Refuse();
}
int Chmod(const char* path, mode_t mode) { return May(path) ? real.Chmod(path, mode) : Refuse(); }
int Mkdir(const char* path, mode_t mode) {
  return MayChange(path) ? real.Mkdir(path, mode) : Refuse();
}
int Unlink(const char* path) { return MayChange(path) ? real.Unlink(path) : Refuse(); }
int Remove(const char* path) { return MayChange(path) ? real.Remove(path) : Refuse(); }
DIR* Opendir(const char* path) {
  if (May(path)) return real.Opendir(path);
  Refuse();
  return nullptr;
}
int Open(const char* path, int flags, mode_t mode) {
  return May(path) ? real.Open(path, flags, mode) : Refuse();
}
void Sync() { ++Guard::syncs; }
time_t Time(time_t* out) {
  if (out != nullptr) *out = Guard::now;
  return Guard::now;
}
int StartThread(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) {
  ++Guard::flushes;
  return 0;
}

}  // namespace

int Guard::syncs = 0;
int Guard::flushes = 0;
time_t Guard::now = 0;
long Guard::preference = -1;

Guard::Guard(const std::string& base) {
  flm::ResetOsCalls();
  guarded = base;
  flm::OsCalls& os = flm::Os();
  real = os;
  os.Stat = Stat;
  os.Chmod = Chmod;
  os.Mkdir = Mkdir;
  os.Unlink = Unlink;
  os.Remove = Remove;
  os.Opendir = Opendir;
  os.Open = Open;
  os.Sync = Sync;
  os.Time = Time;
  os.StartThread = StartThread;
}

Guard::~Guard() { flm::ResetOsCalls(); }

}  // namespace flm_model
