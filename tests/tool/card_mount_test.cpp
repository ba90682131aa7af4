// What the lines of /proc/self/mountinfo say about protection on a card.
#include "tools/flm/card_mount.h"

#include <gtest/gtest.h>
#include <sys/sysmacros.h>

#include <sstream>

namespace {

using flm::tool::CardMount;
using flm::tool::FindMount;
using flm::tool::ProtectionTrouble;

constexpr char kMounts[] =
    "22 1 8:1 / / rw,relatime - ext4 /dev/sda1 rw\n"
    "40 22 8:17 / /media/my\\040card rw,nosuid shared:5 master:2 - vfat /dev/sdb1 "
    "rw,uid=1000,fmask=0022,dmask=0022,codepage=437\n"
    "41 22 8:33 / /media/b rw - vfat /dev/sdc1 rw,fmask=0000,dmask=0000\n"
    "42 22 8:49 / /media/c rw - exfat /dev/sdd1 rw,fmask=0002,dmask=0002\n"
    "43 22 8:65 / /media/d rw - msdos /dev/sde1 rw,fmask=0133,dmask=0022\n"
    "44 22 8:81 / /media/e rw - vfat /dev/sdf1 rw,fmask=0222\n"
    "45 22 8:97 / /media/f rw - ntfs3 /dev/sdg1 rw,fmask=0000\n";

CardMount MountOf(unsigned int minor, const std::string& text = kMounts) {
  std::istringstream mounts(text);
  return FindMount(mounts, makedev(8, minor));
}

std::string TroubleOf(unsigned int minor) { return ProtectionTrouble(MountOf(minor)); }

TEST(CardMount, IsFoundByItsDevice) {
  const CardMount mount = MountOf(17);
  EXPECT_EQ("vfat", mount.type);
  EXPECT_TRUE(mount.hasMask);
  EXPECT_EQ(0022U, mount.fileMask);
}

TEST(CardMount, OfAnotherDeviceIsNotKnown) {
  EXPECT_EQ("", MountOf(7).type);
  EXPECT_EQ("", TroubleOf(7));
}

TEST(CardMount, WithoutAMaskHasNone) {
  EXPECT_EQ("ext4", MountOf(1).type);
  EXPECT_FALSE(MountOf(1).hasMask);
}

TEST(CardMount, InLinesThatAreCutOrStrangeIsNotKnown) {
  for (const char* const text :
       {"", "\n", "40", "40 22 8:17", "40 22 8:17 / /m rw vfat x fmask=0000",
        "40 22 8:17 / /m rw -", "40 22 8:17 / /m rw - vfat", "40 22 8:17 / /m rw - vfat /dev/x"}) {
    EXPECT_EQ("", MountOf(17, text).type) << text;
  }
  for (const char* const options : {"fmask=", "fmask=abc", "fmask=0022x", "xfmask=0000", ","}) {
    const std::string line = "40 22 8:17 / /m rw - vfat /dev/x ";
    EXPECT_FALSE(MountOf(17, line + options).hasMask) << options;
  }
}

TEST(ProtectionTrouble, IsNoneWhereTheOwnerAloneMayWrite) {
  EXPECT_EQ("", TroubleOf(17));
  EXPECT_EQ("", TroubleOf(65));
}

TEST(ProtectionTrouble, IsToldWhereOthersMayWriteOrNobody) {
  EXPECT_EQ(
      "the card is mounted so that its files can be neither protected nor unprotected (vfat with "
      "fmask=0000; fmask=0022 lets them be)",
      TroubleOf(33));
  EXPECT_NE(std::string::npos, TroubleOf(49).find("exfat with fmask=0002;"));
  EXPECT_NE(std::string::npos, TroubleOf(81).find("vfat with fmask=0222;"));
}

TEST(ProtectionTrouble, IsNoneOnOtherFileSystems) {
  EXPECT_EQ("", TroubleOf(1));
  EXPECT_EQ("", TroubleOf(97));
}

TEST(ProtectionTrouble, AtAPlaceThatIsNotThereIsNone) {
  EXPECT_EQ("", flm::tool::ProtectionTroubleAt("/nowhere/at/all"));
}

}  // namespace
