// The print order, with three jobs for every file.
#include <fstream>
#include <iterator>

#include "bench/card.h"
#include "bench/floors.h"
#include "bench/lists.h"
#include "bench/measure.h"
#include "bench/operations.h"
#include "bench/rows.h"
#include "filelist/IQFileList.h"

namespace flm::bench {
namespace {

constexpr int kJobsPerFile = 3;

std::string TextOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A scanned card whose print order is written, by the library and by the floor alike.
struct Ordered {
  explicit Ordered(const Setting& setting)
      : card(NewRoot(setting.folder), EvenLayout(setting.files)),
        files(card.Pictures()),
        floorOrder(card.PrintOrder() + ".floor"),
        lists(card) {
    for (const std::string& path : card.Paths()) {
      sources.push_back(".." + path.substr(card.Root().size()));
    }
    Scan(lists.Files(), files);
    OrderEach(lists.Files());
    SaveOrder(lists.Files());
    text = TextOf(card.PrintOrder());
    room.resize(text.size() + 1);
    PrintAndWriteOrder(floorOrder, sources, room);
    Require(text == TextOf(floorOrder), "the print order is not the one that was asked for");
  }

  Measured Result(const Times& times) const { return {files, times.operation, times.floor}; }

  const SampleCard card;
  const int files;
  const std::string floorOrder;
  std::vector<std::string> sources;
  std::string text;
  std::vector<char> room;
  Lists lists;
};

// That a load gives back what is there to be loaded.
void CheckLoad(IQFileList& list, int files) {
  Require(list.SetDPOFAll(0) == 0 && list.SetDPOFIndex(false) == 0 && list.SetDPOFSizeAll(0) == 0,
          "the print marks could not be cleared");
  LoadOrder(list);
  CheckOrder(list, files);
}

Measured Load(const Setting& setting) {
  Ordered ordered(setting);
  CheckLoad(ordered.lists.Files(), ordered.files);
  KnownSources known;
  for (const std::string& source : ordered.sources) known.emplace(source, 0);
  const auto floor = [&] {
    Require(LookUpSources(ordered.card.PrintOrder(), known) == kJobsPerFile * ordered.files,
            "the floor missed a source line");
  };
  return ordered.Result(MeasureInTurn({[&] { LoadOrder(ordered.lists.Files()); }, floor}));
}

Measured Save(const Setting& setting) {
  Ordered ordered(setting);
  return ordered.Result(MeasureInTurn(
      {[&] { SaveOrder(ordered.lists.Files()); },
       [&] { PrintAndWriteOrder(ordered.floorOrder, ordered.sources, ordered.room); }}));
}

Measured SaveAgainstReadyText(const Setting& setting) {
  Ordered ordered(setting);
  return ordered.Result(MeasureInTurn({[&] { SaveOrder(ordered.lists.Files()); },
                                       [&] { WriteText(ordered.floorOrder, ordered.text); }}));
}

}  // namespace

std::vector<Row> PrintRows() {
  return {
      {"G7a", "load the print order / read lines, look sources up", GoalKind::kRatio, 1.40, Load},
      {"G7b", "save the print order / print blocks, one write", GoalKind::kRatio, 1.30, Save},
      {"G7c", "save the print order / one write of ready text", GoalKind::kNone, 0,
       SaveAgainstReadyText},
  };
}

}  // namespace flm::bench
