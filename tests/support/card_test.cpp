// The tests lean on the card; here it is held to its word.
#include "tests/support/card.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace flm_test {
namespace {

TEST(CardTest, TreeShowsWhatWasMade) {
  Card card;
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 9, 2, "JPG");
  card.MakeDir("MISC");
  const std::vector<std::string> made = {"DCIM/", "DCIM/100PHOTO/", "DCIM/100PHOTO/QVX_0009.JPG",
                                         "DCIM/100PHOTO/QVX_0010.JPG", "MISC/"};
  EXPECT_EQ(card.Tree(), made);
}

TEST(CardTest, NothingIsLeftOfAProtectedCard) {
  std::string root;
  {
    Card card;
    root = card.Root();
    card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
    card.SetReadOnly("DCIM/100PHOTO/QVX_0001.JPG", true);
    card.SetMode("DCIM/100PHOTO", 0);
  }
  EXPECT_FALSE(std::ifstream(root).good());
}

TEST(CardTest, ProtectionLeavesTheOtherPermissions) {
  Card card;
  card.MakeFile("A.JPG");
  card.SetMode("A.JPG", 0664);
  card.SetReadOnly("A.JPG", true);
  EXPECT_TRUE(card.IsReadOnly("A.JPG"));
  card.SetReadOnly("A.JPG", false);
  EXPECT_FALSE(card.IsReadOnly("A.JPG"));
}

TEST(CardTest, AStepThatCannotBeDoneFailsTheTest) {
  static Card* card;
  Card made;
  card = &made;
  EXPECT_NONFATAL_FAILURE(card->SetTime("missing", 1), "missing");
  EXPECT_NONFATAL_FAILURE(card->WriteFile("missing/A.JPG", "x"), "missing");
  EXPECT_NONFATAL_FAILURE(card->ReadFile("missing"), "missing");
  EXPECT_NONFATAL_FAILURE(card->Remove("missing"), "missing");
}

TEST(CardTest, AFixedRootIsRefusedOutsideThePrivateMounts) {
  const ScopedVariable outside("FLM_PRIVATE_CARDS", nullptr);
  EXPECT_THROW(Card("/mnt/mmc"), std::runtime_error);
}

TEST(CardTest, EveryTestHasAPreferenceFileOfItsOwn) {
  const std::string first = std::getenv("FLM_PREFERENCE_FILE");
  {
    const ScopedPreference preference;
    EXPECT_NE(first, std::getenv("FLM_PREFERENCE_FILE"));
  }
  EXPECT_EQ(first, std::getenv("FLM_PREFERENCE_FILE"));
}

TEST(CardTest, DescriptorsAreCounted) {
  Card card;
  card.MakeFile("A.JPG");
  const int before = FdCount();
  {
    const std::ifstream open(card.Path("A.JPG"));
    EXPECT_EQ(FdCount(), before + 1);
  }
  EXPECT_EQ(FdCount(), before);
}

TEST(CardTest, AnOrdinaryUserIsHeldBack) {
  Card card;
  card.MakeFile("A.JPG");
  card.SetMode("A.JPG", 0);
  const OrdinaryUser user;
  if (!user.Held()) GTEST_SKIP() << "the system lets the superuser be nobody else";
  EXPECT_FALSE(std::ifstream(card.Path("A.JPG")).good());
}

}  // namespace
}  // namespace flm_test
