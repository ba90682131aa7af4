// Deletion and protection of every file. A pair uses up two equal cards, and what the flushing
// threads still do is waited for before the other half of the pair begins.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

#include "bench/card.h"
#include "bench/floors.h"
#include "bench/lists.h"
#include "bench/measure.h"
#include "bench/operations.h"
#include "bench/rows.h"
#include "filelist/IQFileList.h"
#include "filelist/IQSelectedFileList.h"
#include "filelist/filelist_types.h"

namespace flm::bench {
namespace {

using Clock = std::chrono::steady_clock;

int Threads() {
  const std::filesystem::directory_iterator tasks("/proc/self/task");
  return static_cast<int>(std::distance(begin(tasks), end(tasks)));
}

// Waits for the flushing threads, and lets nothing of the cards' making be written meanwhile.
void WaitForFlush(const std::string& folder) {
  while (Threads() > 1) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  Require(descriptor >= 0 && syncfs(descriptor) == 0, "the cards cannot be flushed");
  close(descriptor);
}

// Two fresh cards, one for the list and one for the floor.
class CardPair {
 public:
  explicit CardPair(const Setting& setting) : setting_(setting) {}

  void Renew() {
    lists_.reset();
    card_ = NewCard();
    floorCard_ = NewCard();
    floorPaths_ = floorCard_->Paths();
    lists_ = std::make_unique<Lists>(*card_);
    Scan(lists_->Files(), card_->Pictures());
  }

  const SampleCard& Card() const { return *card_; }
  const SampleCard& FloorCard() const { return *floorCard_; }
  const std::vector<std::string>& FloorPaths() const { return floorPaths_; }
  void Settle() const { WaitForFlush(setting_.folder); }
  IQFileList& Files() { return lists_->Files(); }
  IQSelectedFileList& Selected() { return lists_->Selected(); }

 private:
  std::unique_ptr<SampleCard> NewCard() const {
    return std::make_unique<SampleCard>(NewRoot(setting_.folder), EvenLayout(setting_.files));
  }

  const Setting& setting_;
  std::unique_ptr<SampleCard> card_;
  std::unique_ptr<SampleCard> floorCard_;
  std::vector<std::string> floorPaths_;
  std::unique_ptr<Lists> lists_;
};

// Flushing takes as long as other programs' writing makes it take, which changes within a second.
// Therefore the slow operations take turns with their floor at every file, from the callback; it is
// a plain function and finds the turns here.
struct Turns {
  std::function<void(const std::string& path)> floor;
  std::vector<std::string>::const_reverse_iterator next;  // the operations go backwards too
  Clock::time_point start;
  Clock::duration inFloor;
};
Turns* turns = nullptr;

void TakeTurn(int /*index*/, int /*total*/, int* /*status*/, bool* /*cancel*/) {
  const Clock::time_point start = Clock::now();
  turns->floor(*turns->next++);
  turns->inFloor += Clock::now() - start;
}

double Milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

// `run` starts the operation with the callback given. Settled once more at the end: a thread must
// not outlive the card that it flushes.
Times MeasureFileByFile(CardPair& cards, std::function<void(const std::string& path)> floor,
                        const std::function<void(ProgressCallback)>& run) {
  cards.Settle();
  Turns taken = {std::move(floor), cards.FloorPaths().rbegin(), Clock::now(), {}};
  turns = &taken;
  run(TakeTurn);
  const Clock::duration both = Clock::now() - taken.start;
  turns = nullptr;
  cards.Settle();
  Require(taken.next == cards.FloorPaths().rend(), "a file was not handled");
  return {Milliseconds(both - taken.inFloor), Milliseconds(taken.inFloor)};
}

void CheckEmpty(CardPair& cards) {
  Require(cards.Files().GetCount() == 0 && cards.Card().CountFiles() == 0, "files are left");
}

Measured DeleteEverything(const Setting& setting) {
  CardPair cards(setting);
  bool used = false;
  const auto prepare = [&] {
    if (used) CheckEmpty(cards);
    used = true;
    cards.Renew();
  };
  const Times times = MeasureInTurn(
      {[&] { Require(cards.Files().DeleteAll(true, nullptr) >= 0, "DeleteAll"); },
       [&] { StatAndUnlinkEach(cards.FloorPaths()); }, prepare, [&] { cards.Settle(); }},
      Rounds::kFew);
  cards.Settle();
  CheckEmpty(cards);
  return {cards.Card().Pictures(), times.operation, times.floor};
}

Measured DeleteSelected(const Setting& setting) {
  CardPair cards(setting);
  cards.Renew();
  Require(cards.Files().SetSelAll(true) == 0, "the files could not be selected");
  const Times times = MeasureFileByFile(
      cards,
      [&](const std::string& path) {
        StatUnlinkFlushRewrite(path, cards.FloorCard().PrintOrder());
      },
      [&](ProgressCallback callback) {
        Require(cards.Selected().DeleteSel(true, callback) == 0, "DeleteSel failed");
      });
  CheckEmpty(cards);
  return {cards.Card().Pictures(), times.operation, times.floor};
}

bool IsWritable(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) != 0 || (status.st_mode & S_IWUSR) != 0;
}

Measured ProtectEverything(const Setting& setting) {
  CardPair cards(setting);
  cards.Renew();
  const Times times = MeasureFileByFile(cards, StatProtectFlush, [&](ProgressCallback callback) {
    Require(cards.Files().SetProtectAll(true, callback) == 0, "SetProtectAll failed");
  });
  const std::vector<std::string> paths = cards.Card().Paths();
  Require(std::none_of(paths.begin(), paths.end(), IsWritable), "a file is not protected");
  return {cards.Card().Pictures(), times.operation, times.floor};
}

}  // namespace

std::vector<Row> ChangeRows() {
  return {
      {"G9", "DeleteAll / stat and unlink each", GoalKind::kRatio, 1.15, DeleteEverything},
      {"G10", "DeleteSel of all / stat, unlink, flush, rewrite header", GoalKind::kRatio, 1.30,
       DeleteSelected},
      {"G11", "SetProtectAll / stat, chmod, sync each", GoalKind::kRatio, 1.15, ProtectEverything},
  };
}

}  // namespace flm::bench
