// Scans, held against reading the same folders.
#include "bench/card.h"
#include "bench/floors.h"
#include "bench/lists.h"
#include "bench/measure.h"
#include "bench/operations.h"
#include "bench/rows.h"

namespace flm::bench {
namespace {

constexpr int kDotEntries = 2;

Measured FullScan(const Setting& setting) {
  const SampleCard card(NewRoot(setting.folder), EvenLayout(setting.files));
  const std::vector<std::string> folders = card.Folders();
  const int files = card.Pictures();
  const int entries = files + card.Layout().folders * kDotEntries;
  Lists lists(card);
  Scan(lists.Files(), files);
  CheckPaths(lists.Files(), card.Paths());
  const Times times =
      MeasureInTurn({[&] { Scan(lists.Files(), files); },
                     [&] { Require(ScandirEach(folders) == entries, "scandir missed an entry"); }});
  return {files, times.operation, times.floor};
}

Measured ScanWithCompanions(const Setting& setting) {
  constexpr int kPictures = 9999;
  const SampleCard card(NewRoot(setting.folder), {1, kPictures, true});
  const std::vector<std::string> folders = card.Folders();
  Lists lists(card);
  const Times times = MeasureInTurn({[&] { Scan(lists.Files(), kPictures); },
                                     [&] {
                                       Require(ScandirEach(folders) == 2 * kPictures + kDotEntries,
                                               "scandir missed an entry");
                                     }});
  return {2 * kPictures, times.operation, times.floor};
}

Measured NewestScan(const Setting& setting) {
  const SampleCard card(NewRoot(setting.folder), EvenLayout(setting.files));
  const std::string newest = card.Folders().back();
  const int files = card.Layout().picturesPerFolder;
  Lists lists(card);
  const Times times = MeasureInTurn(
      {[&] { ScanNewest(lists.Files(), files); },
       [&] { Require(ReadAndSort(newest) == files + kDotEntries, "readdir missed an entry"); }});
  return {card.Pictures(), times.operation, times.floor};
}

}  // namespace

std::vector<Row> ScanRows() {
  return {
      {"G1", "full scan / scandir", GoalKind::kRatio, 0.80, FullScan},
      {"G2", "full scan with raw companions / scandir", GoalKind::kRatio, 0.90, ScanWithCompanions},
      {"G3", "scan to the newest folder / readdir and sort of it", GoalKind::kRatio, 1.20,
       NewestScan},
  };
}

}  // namespace flm::bench
