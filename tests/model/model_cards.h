// Random cards on the disk: small ones mostly, with every kind of name that a card may hold.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_CARDS_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_CARDS_H

#include <string>

#include "tests/model/model_choice.h"

namespace flm_model {

void MakeCard(Choice& choice, const std::string& root);

// A file of random content, time and permission; now and then a folder. An existing one stays.
void MakeEntry(Choice& choice, const std::string& path);

// One change behind the library's back: a file added, removed, protected or written.
std::string DisturbCard(Choice& choice, const std::string& root);

// The text of a print order that names files of the card, as this or another maker writes it.
std::string RandomPrintOrder(Choice& choice, const std::string& root);

}  // namespace flm_model

#endif
