#include "tools/commands/values.h"

#include "companion/import/import_format.h"
#include "drawing/format_table.h"
#include "drawing/layout_table.h"

using namespace Qt::StringLiterals;

namespace ORR::Docs {

namespace {

QStringList importFormatNames()
{
    QStringList names;
    for (const Companion::ImportFormat &format : Companion::importFormats())
        names += QString::fromLatin1(format.name);
    return names;
}

// What the helps call their values.
KnownValue valueCalled(const QString &word)
{
    using enum KnownValue::Kind;
    if (word == u"ENGINE"_s || word == u"layout"_s)
        return {Word, Drawing::layoutNames()};
    if (word == u"FORMATS"_s)
        return {WordList, Drawing::allFormatNames()};
    if (word == u"format"_s)
        return {Word, Drawing::formatNamesForHelp()};
    if (word == u"FORMAT"_s)
        return {Word, importFormatNames()};
    if (word == u"FILE"_s || word == u"infile"_s || word == u"outfile"_s)
        return {File};
    if (word == u"DIR"_s)
        return {Folder};
    return {};
}

} // namespace

KnownValue knownValue(const Companion::CommandDescription::Option &option)
{
    return option.words.isEmpty() ? valueCalled(option.value)
                                  : KnownValue{KnownValue::Word, option.words};
}

} // namespace ORR::Docs
