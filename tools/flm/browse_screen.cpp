// The contact sheet as the user meets it: keys in, changes to the sheet, paintings out. Pictures
// come one by one while no key waits, so that turning pages never has to wait for them.
#include <chrono>
#include <memory>
#include <utility>

#include "browse_canvas.h"
#include "browse_options.h"
#include "browse_paint.h"
#include "browse_sheet.h"
#include "browse_terminal.h"
#include "browse_thumbnails.h"
#include "failure.h"
#include "marks_text.h"
#include "output.h"
#include "text.h"

namespace flm::tool {
namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t kThumbnailsKept = 200;
constexpr auto kBetweenProgress = std::chrono::milliseconds(50);
constexpr char kCtrlC = '\x03';
constexpr char kCtrlL = '\x0C';
constexpr char kCtrlZ = '\x1A';
constexpr char kHint[] = "Space select   p protect   d delete   o print   ? help   q quit";

class Screen {
 public:
  Screen(Terminal& terminal, Sheet& sheet, const BrowseOptions& options)
      : terminal_(terminal),
        sheet_(sheet),
        readOnly_(options.readOnly),
        unicode_(IsUnicodeTerminal()),
        canvas_(options.graphics, unicode_),
        thumbnails_(kThumbnailsKept),
        style_{Layout(Terminal::Size()), unicode_} {}

  // Until the user leaves; the status of the process.
  int Run() {
    LayOut();
    while (!left_ && !stopped_) {
      const Key key = NextKey();
      if (stopped_) break;
      message_.clear();
      Try([&] { Handle(key); });
      if (!left_ && !stopped_) Paint();
    }
    return stopped_ ? kStatusInterrupted : kStatusDone;
  }

 private:
  // --- Painting ---------------------------------------------------------------------------------
  void LayOut() {
    style_.layout = Layout(Terminal::Size());
    const Box box = style_.layout.Picture(0);
    const ScreenSize& size = style_.layout.Size();
    if (style_.layout.Fits()) {
      thumbnails_.SetSize(Canvas::PixelsAcross(box, size), Canvas::PixelsDown(box, size));
    }
    sheet_.SetPageSize(style_.layout.PerPage());
    PaintAnew();
  }

  void PaintAnew() {
    drawn_.clear();
    terminal_.Write(canvas_.Forget() + ClearedScreen());
    Paint();
  }

  // What changed and what is cheap; pictures that are no longer those of the page go first.
  void Paint() {
    if (help_) {
      terminal_.Write(HelpPage(style_));
      return;
    }
    if (!style_.layout.Fits()) {
      terminal_.Write(ClearedScreen() + MessageLine("too small", style_));
      return;
    }
    std::string text;
    if (IsOtherPage()) {
      drawn_.clear();
      text += canvas_.Forget() + ClearedScreen();
    }
    text += TitleLine(sheet_, style_);
    if (sheet_.IsEmpty()) text += EmptySheet(style_);
    for (int i = 0; i < static_cast<int>(sheet_.Page().size()); ++i) {
      text += TileLabels(sheet_.Page()[static_cast<size_t>(i)], i, i == sheet_.Position(), style_);
    }
    terminal_.Write(text + MessageLine(message_.empty() ? kHint : message_, style_));
  }

  bool IsOtherPage() const {
    if (drawn_.size() > sheet_.Page().size()) return true;
    for (size_t i = 0; i < drawn_.size(); ++i) {
      if (drawn_[i] != sheet_.Page()[i].Path()) return true;
    }
    return false;
  }

  bool IsPictureMissing() const {
    return !help_ && style_.layout.Fits() && drawn_.size() < sheet_.Page().size();
  }

  void DrawNextPicture() {
    const int position = static_cast<int>(drawn_.size());
    const Entry& entry = sheet_.Page()[drawn_.size()];
    const Thumbnail& thumbnail = thumbnails_.Get({entry.Path(), entry.size, entry.time});
    terminal_.Write(
        thumbnail.content == Content::kPicture
            ? canvas_.Draw(thumbnail.picture, style_.layout.Picture(position), style_.layout.Size())
            : Placeholder(thumbnail.content, position, style_));
    drawn_.push_back(entry.Path());
  }

  void Say(const std::string& message) {
    message_ = message;
    terminal_.Write(MessageLine(message, style_));
  }

  // --- Input ------------------------------------------------------------------------------------
  // The next key. Meanwhile pictures are drawn and the screen follows the size of the window. After
  // a signal to end there are no more keys.
  Key NextKey() {
    while (!stopped_) {
      const Input input = terminal_.Wait(IsPictureMissing() ? 0 : Terminal::kForEver);
      switch (input.kind) {
        case InputKind::kKey:
          if (input.key.character != kCtrlC) return input.key;
          stopped_ = true;
          break;
        case InputKind::kResize:
          LayOut();
          break;
        case InputKind::kStop:
          stopped_ = true;
          break;
        case InputKind::kNothing:
          if (IsPictureMissing()) DrawNextPicture();
          break;
      }
    }
    return {};
  }

  bool Ask(const std::string& question) {
    Say(question + " y/n");
    while (!stopped_) {
      const Key key = NextKey();
      if (key.kind == KeyKind::kEscape) break;
      if (key.kind != KeyKind::kCharacter) continue;
      if (key.character == 'y' || key.character == 'Y') return true;
      if (key.character == 'n' || key.character == 'N') break;
    }
    message_.clear();
    return false;
  }

  // Reports a long operation, and stops it by Esc or a signal to end.
  SheetProgress Progress(const std::string& act) {
    auto last = std::make_shared<Clock::time_point>();
    return [this, act, last](int done, int total) {
      if (Clock::now() - *last >= kBetweenProgress) {
        *last = Clock::now();
        terminal_.Write(MessageLine(ProgressText(act, done, total), style_));
      }
      return !IsCancelled();
    };
  }

  bool IsCancelled() {
    const Input input = terminal_.Wait(0);
    if (input.kind == InputKind::kResize) sizeChanged_ = true;
    const bool interrupt = input.kind == InputKind::kKey && input.key.character == kCtrlC;
    if (input.kind == InputKind::kStop || interrupt) stopped_ = true;
    return stopped_ || (input.kind == InputKind::kKey && input.key.kind == KeyKind::kEscape);
  }

  // --- Keys -------------------------------------------------------------------------------------
  // What went wrong with one key is said; the sheet goes on.
  template <typename Act>
  void Try(const Act& act) {
    try {
      act();
    } catch (const Failure& failure) {
      message_ = failure.what();
    }
  }

  void Handle(const Key& key) {
    if (help_) {
      help_ = false;
      PaintAnew();
      return;
    }
    switch (key.kind) {
      case KeyKind::kUp:
        sheet_.StepRow(-style_.layout.Across());
        break;
      case KeyKind::kDown:
        sheet_.StepRow(style_.layout.Across());
        break;
      case KeyKind::kLeft:
        sheet_.Step(-1);
        break;
      case KeyKind::kRight:
        sheet_.Step(1);
        break;
      case KeyKind::kPageUp:
        sheet_.PreviousPage();
        break;
      case KeyKind::kPageDown:
        sheet_.NextPage();
        break;
      case KeyKind::kHome:
        sheet_.GoTo(0);
        break;
      case KeyKind::kEnd:
        sheet_.GoTo(sheet_.Count() - 1);
        break;
      case KeyKind::kHelp:
        help_ = true;
        break;
      case KeyKind::kCharacter:
        HandleCharacter(key.character);
        break;
      default:
        break;
    }
  }

  void HandleCharacter(char character) {
    switch (character) {
      case ' ':
        sheet_.ToggleSelected();
        break;
      case 'a':
        sheet_.ToggleSelectedAll();
        break;
      case 'p':
        Protect();
        break;
      case 'd':
        Delete();
        break;
      case 'o':
      case '+':
        Order(1);
        break;
      case 'O':
      case '-':
        Order(-1);
        break;
      case 's':
        Save();
        break;
      case '?':
        help_ = true;
        break;
      case kCtrlL:
        PaintAnew();
        break;
      case kCtrlZ:
        terminal_.Suspend();
        break;
      case 'q':
        Leave();
        break;
      default:
        break;
    }
  }

  void RequireChange() const {
    if (readOnly_) throw Failure("the card is open for looking only (--read-only)");
  }

  void Protect() {
    RequireChange();
    const std::vector<Entry> targets = sheet_.Targets();
    if (targets.empty()) return;
    bool on = false;
    for (const Entry& target : targets) on = on || target.item.isProtected == 0;
    const std::string verb = on ? "protect" : "unprotect";
    const auto files = static_cast<int64_t>(targets.size());
    if (files > 1 && !Ask(verb + " " + Counted(files, "selected file") + "?")) return;
    message_ = OutcomeText(verb + "ed", sheet_.Protect(targets, on, Progress(verb + "ing")));
    FollowSize();
  }

  void Delete() {
    RequireChange();
    const std::vector<Entry> targets = sheet_.Targets();
    if (targets.empty()) return;
    if (targets.size() == 1 && targets.front().item.isProtected != 0) {
      throw Failure(Printable(BaseName(targets.front().Path())) + " is protected");
    }
    if (!Ask(DeleteQuestion(targets))) return;
    message_ = OutcomeText("deleted", sheet_.Delete(targets, Progress("deleting")));
    FollowSize();
  }

  std::string DeleteQuestion(const std::vector<Entry>& targets) {
    std::string text = "delete ";
    if (targets.size() > 1) {
      text += Counted(static_cast<int64_t>(targets.size()), "selected file") + "?";
    } else {
      text += Printable(BaseName(targets.front().Path()));
      const std::string companions = LongCompanions(targets.front());
      text += (companions == "-" ? "" : " with " + companions) + "?";
    }
    return text + DroppedText();
  }

  // The card's order may have lines of another maker, which the next saving loses.
  std::string DroppedText() {
    const int lines = sheet_.LinesToDrop();
    if (lines == 0) return "";
    return " (" + Counted(lines, "line") + " of the print order not understood will be dropped)";
  }

  void Order(int more) {
    RequireChange();
    if (sheet_.IsEmpty()) return;
    const bool first = !sheet_.IsOrderChanged();
    sheet_.Order(more);
    message_ = Counted(sheet_.Current().item.dpofCopies, "print") + " of " +
               Printable(BaseName(sheet_.Current().Path()));
    if (first && sheet_.IsOrderChanged()) message_ += DroppedText();
  }

  void Save() {
    RequireChange();
    const bool changed = sheet_.IsOrderChanged();
    sheet_.SaveOrder();
    message_ = changed ? "the print order is saved" : "the print order did not change";
  }

  void Leave() {
    left_ = true;
    try {
      sheet_.SaveOrder();
    } catch (const Failure& failure) {
      left_ = Ask(failure.what() + std::string("; leave without it?"));
    }
  }

  // The window may have changed while the sheet was busy.
  void FollowSize() {
    if (!std::exchange(sizeChanged_, false)) return;
    LayOut();
  }

  Terminal& terminal_;
  Sheet& sheet_;
  bool readOnly_;
  bool unicode_;
  Canvas canvas_;
  Thumbnails thumbnails_;
  Style style_;
  std::vector<std::string> drawn_;  // paths of the pictures that stand on the screen
  std::string message_;
  bool help_ = false;
  bool left_ = false;
  bool stopped_ = false;
  bool sizeChanged_ = false;
};

int RunScreen(Card& card, const BrowseOptions& options) {
  Sheet sheet(card);
  int status = kStatusDone;
  {
    Terminal terminal;
    status = Screen(terminal, sheet, options).Run();
  }
  if (status != kStatusDone && sheet.IsOrderChanged()) Complain("the print order was not saved");
  return status;
}

}  // namespace

int RunBrowse(const BrowseOptions& options) {
  RequireTerminal();
  Card card(options.card, options.readOnly ? Access::kLook : Access::kChange);
  const int status = RunScreen(card, options);
  if (!options.readOnly) card.RemoveNewEmptyFolders();
  return status;
}

}  // namespace flm::tool
