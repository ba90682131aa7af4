// The card's print order, MISC/AUTPRINT.MRK. The scan has loaded it into the marks already.
#ifndef FILELISTMANAGEMENT_TOOLS_PRINT_ORDER_H
#define FILELISTMANAGEMENT_TOOLS_PRINT_ORDER_H

#include <string>

#include "card.h"

namespace flm::tool {

// Library paths.
std::string PrintOrderPath();
std::string NewPrintOrderPath();  // beside it, where a new one grows

// Whether the card has one with something in it, as far as can be told: one that the system keeps
// from sight counts, since it must not be taken for none.
bool HasPrintOrder();

// 0 when the order can be read to its end, else the error number. The list takes an order that
// fails in the middle for a shorter one.
int PrintOrderError();

// Whether a line of an order can hold the path of a file. A quote or a line end in it would make
// lines of its own.
bool CanBeOrdered(const std::string& path);

// Throws Failure when a file has print marks and no line can hold its path.
void RequireOrderable(Card& card);

// The name of the device that made it, at most as much of it as the list keeps; "" for none, and
// for one that cannot be written again.
std::string PrintOrderCreator();

// Says on standard error, in one line, when the card's order has lines that are not understood:
// whatever writes the order again drops them.
void WarnOfDroppedLines(Card& card);

// Takes every print mark away, in memory.
void ClearPrintMarks(Card& card);

// Writes the marks as the card's print order. They are written beside the old order, read back and
// compared before they take its place; throws Failure, and the old order stays, when that fails.
void SavePrintOrder(Card& card, std::string creator);

// Whether the name can stand in a print order: at most 30 characters, no quotes, no line ends and
// no other control characters. "" when it can, else what is wrong.
std::string CreatorError(const std::string& creator);

}  // namespace flm::tool

#endif
