// Reading every file of a list, held against one status call a file, or against printing its path.
#include "bench/card.h"
#include "bench/floors.h"
#include "bench/lists.h"
#include "bench/measure.h"
#include "bench/operations.h"
#include "bench/rows.h"
#include "filelist/IQFileList.h"

namespace flm::bench {
namespace {

// A card that has been scanned, and the paths of its files.
struct Scanned {
  explicit Scanned(const Setting& setting)
      : card(NewRoot(setting.folder), EvenLayout(setting.files)),
        paths(card.Paths()),
        files(card.Pictures()),
        lists(card) {
    Scan(lists.Files(), files);
    CheckPaths(lists.Files(), paths);
  }

  void Stat() const { Require(StatEach(paths) == files, "a file has no status"); }
  void StatBackwards() const { Require(StatEachBackwards(paths) == files, "a file has no status"); }
  Measured Result(const Times& times) const { return {files, times.operation, times.floor}; }

  const SampleCard card;
  const std::vector<std::string> paths;
  const int files;
  Lists lists;
};

Measured IndexedWithoutInfo(const Setting& setting) {
  Scanned scanned(setting);
  long length = 0;
  for (const std::string& path : scanned.paths) length += static_cast<long>(path.size());
  const auto floor = [&] {
    Require(PrintEachPath(scanned.card) == length, "the floor prints other paths");
  };
  return scanned.Result(
      MeasureInTurn({[&] { GetEach(scanned.lists.Files(), scanned.files, false); }, floor}));
}

Measured IndexedWithInfo(const Setting& setting) {
  Scanned scanned(setting);
  return scanned.Result(MeasureInTurn(
      {[&] { GetEach(scanned.lists.Files(), scanned.files, true); }, [&] { scanned.Stat(); }}));
}

// A scan before each walk: the times that a walk has read are not there for the next one.
Measured ForwardWithInfo(const Setting& setting) {
  Scanned scanned(setting);
  return scanned.Result(MeasureInTurn(
      {[&] { WalkForward(scanned.lists.Files(), scanned.files, true); }, [&] { scanned.Stat(); },
       [&] { Scan(scanned.lists.Files(), scanned.files); }}));
}

Measured BackwardWithInfo(const Setting& setting) {
  Scanned scanned(setting);
  return scanned.Result(
      MeasureInTurn({[&] { WalkBackward(scanned.lists.Files(), scanned.files, true); },
                     [&] { scanned.StatBackwards(); }}));
}

Measured Pages(const Setting& setting) {
  Scanned scanned(setting);
  return scanned.Result(MeasureInTurn({[&] { ShowEachPage(scanned.lists.Pages(), scanned.files); },
                                       [&] { scanned.Stat(); },
                                       [&] { Scan(scanned.lists.Files(), scanned.files); }}));
}

}  // namespace

std::vector<Row> WalkRows() {
  constexpr double kWalkGoal = 1.15;
  return {
      {"G4", "GetAt, paths alone / snprintf of each path", GoalKind::kRatio, 2.0,
       IndexedWithoutInfo},
      {"G5a", "GetAt with information / stat each", GoalKind::kRatio, kWalkGoal, IndexedWithInfo},
      {"G5b", "GetNext with information, fresh scan / stat each", GoalKind::kRatio, kWalkGoal,
       ForwardWithInfo},
      {"G5c", "GetPrev with information / stat each", GoalKind::kRatio, kWalkGoal,
       BackwardWithInfo},
      {"G6", "pages of 20 to the end / stat each", GoalKind::kRatio, 1.20, Pages},
  };
}

}  // namespace flm::bench
