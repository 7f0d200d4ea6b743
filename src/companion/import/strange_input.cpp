#include "companion/import/strange_input.h"

#include "companion/import/reading/text_kind.h"

namespace ORR::Companion {

namespace {

// Any text may be a table: so much has to speak for the other format, and less than that for the
// one that was asked for.
constexpr int withoutDoubt = 100;
constexpr int surelyAlike = 80;
constexpr int maybeAlike = 60;

bool isRatherThan(int asked, int other)
{
    return other == withoutDoubt ? asked < surelyAlike : other >= surelyAlike && asked < maybeAlike;
}

// Empty if it looks like what was asked for, or like nothing that is known.
StrangeInput strangeness(const std::string &source, QByteArrayView beginning,
                         const ImportFormat &format)
{
    const ImportFormat *const likely = likelyFormat(beginning);
    if (likely == &format)
        return {};
    const int asked = format.likeness(beginning);
    if (likely) {
        const bool isSure = isRatherThan(asked, likely->likeness(beginning));
        return asked == 0 || isSure
            ? StrangeInput{.source = source, .likely = likely, .isSure = isSure}
            : StrangeInput();
    }
    if (asked > 0)
        return {};
    if (const QString binary = binaryKind(beginning); !binary.isEmpty())
        return {.source = source, .kind = binary, .isSure = true};
    const QString kind = structuredKind(beginning);
    return kind.isEmpty() ? StrangeInput() : StrangeInput{.source = source, .kind = kind};
}

} // namespace

QList<StrangeInput> strangeInputs(std::vector<ImportSource> &sources, const ImportFormat &format)
{
    QList<StrangeInput> strange;
    for (ImportSource &source : sources) {
        if (source.isFolder())
            continue; // some formats look for their files in it
        StrangeInput one = strangeness(source.name(), source.beginning(), format);
        if (!one.source.empty())
            strange.append(std::move(one));
    }
    return strange;
}

} // namespace ORR::Companion
