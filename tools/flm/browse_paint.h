// The texts and frames of the contact sheet, as what to write to the terminal.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_PAINT_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_PAINT_H

#include <string>

#include "browse_layout.h"
#include "browse_picture.h"
#include "browse_sheet.h"

namespace flm::tool {

// Whether the terminal shows more than ASCII, by the locale that the environment names.
bool IsUnicodeTerminal();

// What the paintings below share.
struct Style {
  Layout layout;
  bool unicode;
};

std::string ClearedScreen();
std::string TitleLine(Sheet& sheet, const Style& style);
std::string MessageLine(const std::string& printable, const Style& style);

// The frame, the name and the marks; the picture inside stays as it is.
std::string TileLabels(const Entry& entry, int position, bool current, const Style& style);
// A word in the place of a picture.
std::string Placeholder(Content content, int position, const Style& style);

std::string EmptySheet(const Style& style);
std::string HelpPage(const Style& style);

// "deleting 12 of 40 [###.......]".
std::string ProgressText(const std::string& act, int done, int total);

// "deleted 3 files, kept 1 protected file". `doing` is a past tense.
std::string OutcomeText(const std::string& doing, const SheetOutcome& outcome);

}  // namespace flm::tool

#endif
