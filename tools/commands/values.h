#pragma once

#include "companion/command/command_description.h"

#include <QStringList>

namespace ORR::Docs {

// What a value may be, as far as a shell can help with it.
struct KnownValue
{
    enum Kind {
        Nothing, // anything, of which nothing is known
        Word, // one of the words
        WordList, // some of the words, with commas between
        File,
        Folder,
    };
    Kind kind = Nothing;
    QStringList words = {};
};

// Of an option, or of an argument: by its own words, or else by the word that stands for it.
KnownValue knownValue(const Companion::CommandDescription::Option &option);

} // namespace ORR::Docs
