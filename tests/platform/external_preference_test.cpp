// A program that has a preference store of its own links with the archive: its two functions are
// the ones that the library calls, and the archive's file-backed store is not linked at all.
#include <gtest/gtest.h>

#include "api/CBIFileListManager.h"
#include "filelist/IQFileList.h"
#include "platform/preference.h"
#include "tests/support/card.h"

namespace {

constexpr long kNewest = 10200345;  // directory 102, file 345
long g_value = kNewest;
int g_reads = 0;
int g_writes = 0;

}  // namespace

long pref_get_long(int category, int key) {
  if (category == 1 && key == 856) ++g_reads;
  return g_value;
}

int pref_set_long(int, int, long value) {
  ++g_writes;
  g_value = value;
  return 0;
}

namespace {

TEST(ExternalPreferenceTest, TheProgramsOwnStoreIsUsed) {
  const flm_test::Card card;
  flm_test::Text root(card.Root());
  CBIFileListManager::Create(1);
  CBIFileListManager::SetURIToFileList(0, root, 4, false);
  IQFileList* const list = CBIFileListManager::GetFileList(root, 4);
  list->SetFilePrefix(flm_test::Arg("QVX_"));
  ASSERT_EQ(list->Listup(0), 0);
  list->SetSeriesMode(true);

  char name[396] = "";
  EXPECT_EQ(list->GetNewFileName(name, 0), 0);
  EXPECT_EQ(name, card.Path("DCIM/102PHOTO/QVX_0346.JPG"));
  EXPECT_EQ(g_value, kNewest + 1);
  EXPECT_GE(g_reads, 1);
  EXPECT_GE(g_writes, 1);
  CBIFileListManager::Destroy();
}

}  // namespace
