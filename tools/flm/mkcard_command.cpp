// flm mkcard: a sample card for demonstrations, tests and measurements. Everything follows from the
// seed alone, through a generator of our own, so that every machine makes the same card.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>

#include "commands.h"
#include "failure.h"
#include "global_options.h"
#include "output.h"
#include "prefix_check.h"
#include "sample_files.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr int kFirstFolder = 100;
constexpr int kMaxFolderCount = 900;  // 100 to 999
constexpr int kMaxPerFolder = 9999;
constexpr int64_t kFirstTime = 1704103200;  // 2024-01-01 10:00:00 UTC
constexpr int kMaxStep = 3600;              // seconds between two files

struct MkcardOptions {
  std::string folder;
  int files = 12;
  int dirs = 1;
  bool companions = false;
  bool camera = false;
  bool jpeg = false;
  bool movies = false;
  uint64_t seed = 1;
  std::string prefix = "QVX_";
};

// SplitMix64: small, and the same everywhere.
class Random {
 public:
  explicit Random(uint64_t seed) : state_(seed) {}
  int Below(int limit) {
    state_ += 0x9E3779B97F4A7C15U;
    uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return static_cast<int>((mixed ^ (mixed >> 31)) % static_cast<uint64_t>(limit));
  }

 private:
  uint64_t state_;
};

void SetTime(const std::string& path, int64_t seconds) {
  timespec times[2] = {};
  for (timespec& time : times) time.tv_sec = static_cast<time_t>(seconds);
  if (utimensat(AT_FDCWD, path.c_str(), times, 0) != 0) {
    throw Failure(WithReason("cannot set the time of " + Printable(path), errno));
  }
}

void MakeFolder(const std::string& path) {
  if (mkdir(path.c_str(), 0775) != 0) {
    throw Failure(WithReason("cannot make " + Printable(path), errno));
  }
}

void WriteAll(int descriptor, const std::string& path, const std::string& content) {
  size_t written = 0;
  while (written < content.size()) {
    const ssize_t done = write(descriptor, content.data() + written, content.size() - written);
    if (done < 0) throw Failure(WithReason("cannot write " + Printable(path), errno));
    written += static_cast<size_t>(done);
  }
}

void WriteFile(const std::string& path, const std::string& content, int64_t time) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0664);
  if (descriptor < 0) throw Failure(WithReason("cannot make " + Printable(path), errno));
  try {
    WriteAll(descriptor, path, content);
  } catch (...) {
    close(descriptor);
    throw;
  }
  if (close(descriptor) != 0) throw Failure(WithReason("cannot write " + Printable(path), errno));
  SetTime(path, time);
}

class CardMaker {
 public:
  explicit CardMaker(const MkcardOptions& options)
      : options_(options), random_(options.seed), tree_(options.folder + "/DCIM") {}

  void Make() {
    MakeRoot();
    MakeFolder(tree_);
    for (int i = 0; i < options_.dirs; ++i) MakeNumberedFolder(i);
    if (options_.camera) MakeCameraFolder();
    MakeFolder(options_.folder + "/MISC");
    SetTime(options_.folder + "/MISC", kFirstTime);
    SetTime(tree_, time_);
  }

  std::string Summary() const {
    std::string text = Counted(options_.files, "file") + " in " + Counted(options_.dirs, "folder");
    if (options_.companions) text += ", " + Counted(companionCount_, "companion");
    if (options_.camera) text += ", " + Counted(cameraCount_, "file") + " in CAMERA";
    return text;
  }

 private:
  void MakeRoot() {
    std::error_code error;
    std::filesystem::create_directories(options_.folder, error);
    if (error) throw Failure("cannot make " + Named(options_.folder) + ": " + error.message());
    struct stat status;
    if (lstat(tree_.c_str(), &status) == 0) {
      throw Failure(Named(options_.folder) + " has a DCIM folder already");
    }
  }

  // The first folders take one file more when the files cannot be shared out evenly.
  void MakeNumberedFolder(int position) {
    const std::string folder = tree_ + "/" + Padded(kFirstFolder + position, 3) + "PHOTO";
    MakeFolder(folder);
    const int share = options_.files / options_.dirs;
    const int files = share + (position < options_.files % options_.dirs ? 1 : 0);
    for (int i = 0; i < files; ++i) MakeNumberedFile(folder);
    SetTime(folder, time_);
  }

  // Numbers run on from folder to folder, as a camera counts.
  void MakeNumberedFile(const std::string& folder) {
    const std::string stem = options_.prefix + Padded(number_, 4);
    number_ = number_ == kMaxPerFolder ? 1 : number_ + 1;
    time_ += 2 * random_.Below(kMaxStep / 2) + 2;  // even seconds: all that a FAT card keeps
    const bool movie = options_.movies && random_.Below(4) == 0;
    Write(folder, stem + (movie ? ".MP4" : ".JPG"), options_.jpeg && !movie);
    if (options_.companions && !movie) MakeCompanions(folder, stem);
  }

  // About half of the pictures get one, some two.
  void MakeCompanions(const std::string& folder, const std::string& stem) {
    constexpr const char* kExtensions[] = {".SRW", ".WAV", ".MPO"};
    for (const char* const extension : kExtensions) {
      if (random_.Below(4) != 0) continue;
      Write(folder, stem + extension, options_.jpeg && std::string(extension) == ".MPO");
      ++companionCount_;
    }
  }

  void MakeCameraFolder() {
    constexpr const char* kNames[] = {"SAMPLE01.JPG", "Harbour at night.jpg",
                                      "birthday party, third cake.jpg", "notes of the journey.txt",
                                      "a walk along the river in early fall.jpg"};
    const std::string folder = tree_ + "/CAMERA";
    MakeFolder(folder);
    for (const char* const name : kNames) {
      time_ += 2;
      Write(folder, name, options_.jpeg && EndsInJpg(name));
      ++cameraCount_;
    }
    SetTime(folder, time_);
  }

  static bool EndsInJpg(const std::string& name) {
    return Upper(name.substr(name.size() - 3)) == "JPG";
  }

  void Write(const std::string& folder, const std::string& name, bool jpeg) {
    const int length = 40 + random_.Below(400);
    std::string text = name + ", a sample of seed " + std::to_string(options_.seed) + "\n";
    while (static_cast<int>(text.size()) < length) text += "abcdefghijklmnopqrstuvwxyz\n";
    WriteFile(folder + "/" + name, jpeg ? SampleJpeg(text) : text, time_);
  }

  const MkcardOptions& options_;
  Random random_;
  std::string tree_;
  int number_ = 1;
  int64_t time_ = kFirstTime;
  int companionCount_ = 0;
  int cameraCount_ = 0;
};

int RunMkcard(const MkcardOptions& options) {
  RequireChangesAllowed();
  if (options.folder.empty()) throw Failure("the name of the folder is empty", kStatusUsage);
  if (options.files > options.dirs * kMaxPerFolder) {
    throw Failure(Counted(options.files, "file") + " do not fit into " +
                      Counted(options.dirs, "folder") + " of " + std::to_string(kMaxPerFolder),
                  kStatusUsage);
  }
  CardMaker maker(options);
  maker.Make();
  PrintLine(Named(options.folder) + ": " + maker.Summary());
  return kStatusDone;
}

}  // namespace

void AddMkcardCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<MkcardOptions>();
  CLI::App& make = *app.add_subcommand("mkcard", "Make a sample card");
  AddFooter(make,
            "The same options and seed give the same names, bytes and times on every machine.");
  make.add_option("DIR", options->folder, "The card's folder; it must not have a DCIM folder yet")
      ->required();
  make.add_option("--files", options->files, "Files in the numbered folders")
      ->capture_default_str()
      ->check(CLI::Range(0, kMaxPerFolder * kMaxFolderCount));
  make.add_option("--dirs", options->dirs, "Numbered folders, from 100PHOTO on")
      ->capture_default_str()
      ->check(CLI::Range(1, kMaxFolderCount));
  make.add_flag("--companions", options->companions, "Give some pictures SRW, WAV, MPO companions");
  make.add_flag("--camera", options->camera, "Add a CAMERA folder with five free names");
  make.add_flag("--jpeg", options->jpeg, "Write small valid pictures instead of short texts");
  make.add_flag("--movies", options->movies, "Make some of the files movies");
  make.add_option("--seed", options->seed, "What the card is made from")->capture_default_str();
  make.add_option("--prefix", options->prefix, "The four characters in front of the numbers")
      ->capture_default_str()
      ->check(PrefixError, "PREFIX");
  make.callback([options, &action] { action = [options] { return RunMkcard(*options); }; });
}

}  // namespace flm::tool
