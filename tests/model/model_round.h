// One round: a random card, or two, and a random sequence of operations on them, each made on the
// model and on the library.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_ROUND_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_ROUND_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/model/model_call.h"
#include "tests/model/model_guard.h"

namespace flm_model {

enum class CardSize { kSmall, kLarge };

class Round {
 public:
  Round(uint64_t seed, int cards, CardSize size, const std::string& folder);
  ~Round();
  Round(const Round&) = delete;
  Round& operator=(const Round&) = delete;

  // Up to `steps` operations; the number made. Failure() tells whether they agreed.
  int Run(int steps);
  const std::string& Failure() const { return failure_; }

 private:
  struct Card {
    std::string root;
    std::unique_ptr<ModelList> model;
    std::unique_ptr<CQFileList> library;
  };

  void Prepare(Card& card);
  void ScanWithoutRoot(Card& card);
  void RunOperation(Card& card, const Operation& operation);
  void Disturb(Card& card);
  void Prefer(Card& card);
  const Operation& Pick(const Card& card);
  const Operation& PickAny();
  bool IsWornOut();
  void CheckState(Card& card, bool whole);
  void Fail(const std::string& what);

  uint64_t seed_;
  Choice choice_;
  bool large_;
  std::string folder_;
  World world_;
  std::unique_ptr<Guard> guard_;
  std::vector<Card> cards_;
  std::vector<Operation> table_;
  int weights_ = 0;
  int barren_ = 0;  // operations in a row on a list without files
  std::vector<std::string> stale_;
  std::string last_;
  std::vector<std::string> history_;
  std::string failure_;
};

}  // namespace flm_model

#endif
