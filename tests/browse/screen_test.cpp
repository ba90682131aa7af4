// The whole screen on a terminal of the test's own, for what the command line does not reach.
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <exception>
#include <string>

#include "browse_options.h"
#include "tests/browse/sample_pictures.h"
#include "tests/support/card.h"

using flm::tool::BrowseOptions;
using flm::tool::Graphics;

namespace {

constexpr char kPicture[] = "DCIM/100PHOTO/QVX_0001.JPG";

class BrowseScreen : public testing::Test {
 protected:
  BrowseScreen() {
    card_.MakeDir("MISC");
    card_.MakeFile(kPicture, flm_test::SampleJpegFile({}));
    options_.card.root = card_.Root();
  }

  ~BrowseScreen() override {
    if (terminal_ >= 0) close(terminal_);
  }

  void Open() {
    winsize size = {24, 80, 800, 480};
    child_ = forkpty(&terminal_, nullptr, nullptr, &size);
    if (child_ != 0) return;
    setenv("TERM", "xterm-256color", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    int status = 99;
    try {
      status = flm::tool::RunBrowse(options_);
    } catch (const std::exception&) {
      status = 98;
    }
    _exit(status);
  }

  void Press(const std::string& keys) {
    ASSERT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }

  // Reads until the screen was sent this text; all that was sent since the last call.
  std::string Until(const std::string& text) {
    std::string sent;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (sent.find(text) == std::string::npos && std::chrono::steady_clock::now() < end) {
      pollfd ready = {terminal_, POLLIN, 0};
      char bytes[4096];
      if (poll(&ready, 1, 100) <= 0) continue;
      const ssize_t count = read(terminal_, bytes, sizeof(bytes));
      if (count <= 0) break;
      sent.append(bytes, static_cast<size_t>(count));
    }
    EXPECT_NE(sent.find(text), std::string::npos) << "no " << text << " in " << sent;
    return sent;
  }

  int Leave() {
    Press("q");
    Until("\033[?1049l");
    int status = 0;
    EXPECT_EQ(waitpid(child_, &status, 0), child_);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  flm_test::Card card_;
  BrowseOptions options_;
  int terminal_ = -1;
  pid_t child_ = -1;
};

TEST_F(BrowseScreen, CardThatIsOnlyLookedAtRefusesEveryKeyThatChangesIt) {
  options_.readOnly = true;
  Open();
  Until(" 1/1  page 1/1");
  for (const char* const key : {"p", "d", "o", "O", "s"}) {
    Press(key);
    Until("open for looking only");
    Press("?");
    Until("any key goes back");
    Press("x");
    Until("q quit");
  }
  Press(" ");
  Until("1 selected");
  EXPECT_EQ(Leave(), 0);
  EXPECT_FALSE(card_.IsReadOnly(kPicture));
  EXPECT_FALSE(card_.Exists("MISC/AUTPRINT.MRK"));
}

TEST_F(BrowseScreen, CardThatIsOnlyLookedAtGetsNoFolder) {
  options_.readOnly = true;
  card_.Remove("MISC");
  const auto before = card_.Tree();
  Open();
  Until(" 1/1  page 1/1");
  EXPECT_EQ(Leave(), 0);
  EXPECT_EQ(card_.Tree(), before);
}

TEST_F(BrowseScreen, PicturesAreDrawnInTheWayThatIsAskedFor) {
  const struct {
    Graphics graphics;
    const char* start;
  } ways[] = {
      {Graphics::kSixel, "\033P"}, {Graphics::kKitty, "\033_Ga=T"}, {Graphics::kBlocks, "▄"}};
  for (const auto& way : ways) {
    options_.graphics = way.graphics;
    Open();
    Until(way.start);
    EXPECT_EQ(Leave(), 0);
    close(terminal_);
    terminal_ = -1;
  }
}

TEST_F(BrowseScreen, LastSizeOfTheWindowCountsHoweverFastItChanges) {
  Open();
  Until(" 1/1  page 1/1");
  // Nobody reads meanwhile, so that changes also come while the screen is written.
  for (int i = 0; i < 200; ++i) {
    const winsize size = {static_cast<unsigned short>(i % 2 == 0 ? 24 : 40), 200, 0, 0};
    ASSERT_EQ(ioctl(terminal_, TIOCSWINSZ, &size), 0);
    usleep(500);
  }
  const winsize last = {45, 80, 0, 0};
  ASSERT_EQ(ioctl(terminal_, TIOCSWINSZ, &last), 0);
  Until("\033[45;1H");
  EXPECT_EQ(Leave(), 0);
}

TEST_F(BrowseScreen, TerminalThatGoesAwayEndsTheProgram) {
  Open();
  Until(" 1/1  page 1/1");
  close(terminal_);
  terminal_ = -1;
  int status = 0;
  ASSERT_EQ(waitpid(child_, &status, 0), child_);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 130);
}

}  // namespace
