// Turning numbers, times and names into text for people and for JSON.
#ifndef FILELISTMANAGEMENT_TOOLS_TEXT_H
#define FILELISTMANAGEMENT_TOOLS_TEXT_H

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

namespace flm::tool {

// A name as a terminal may be shown it: control characters, characters that reorder text, and bytes
// that are no UTF-8 become \xNN, so that a name on a card can neither send commands to the terminal
// nor pretend to be another name. A backslash is doubled, so that the name can be had back.
std::string Printable(std::string raw);
void MakePrintable(std::string& text);  // in place

// A word that the user gave as a message names it: printable, and in quotes where it could be
// overlooked, as nothing and blanks can.
std::string Named(const std::string& given);

// A name as JSON may hold it: bytes that are no UTF-8 become \xNN, a backslash is doubled,
// everything else stays.
std::string JsonText(const std::string& raw);
// A text of which parts may have been escaped already, as Printable would have made the rest: what
// a terminal would obey is escaped, and backslashes stay single.
std::string WithoutControls(const std::string& text);

// Columns that a printable text takes: two for the characters of East Asian scripts and pictures,
// none for marks that stand over others.
size_t DisplayWidth(std::string_view printable);
// The end of a printable text, as much of it as takes no more than `width` columns; shortened, it
// begins with an ellipsis.
std::string TailOfWidth(const std::string& printable, size_t width);

std::string HumanSize(int64_t bytes);       // "812", "3.4K", "2.1G": powers of 1024
std::string LocalTime(std::time_t time);    // "2024-03-05 09:07:00", in local time
std::string IsoTime(std::time_t time);      // "2024-03-05T09:07:00+01:00", in local time
std::string Padded(int number, int width);  // decimal with leading zeros
std::string Upper(std::string text);        // a to z become A to Z, whatever the locale
std::string Counted(int64_t count, const std::string& word);  // "1 file", "2 files"

// What follows the last '/', and what stands before it ("." when there is none).
std::string BaseName(const std::string& path);
std::string FolderOf(const std::string& path);

bool StartsWith(const std::string& text, const std::string& start);
bool IsNumber(const std::string& text);  // one or more decimal digits and nothing else

}  // namespace flm::tool

#endif
