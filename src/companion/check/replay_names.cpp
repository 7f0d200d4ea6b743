#include "companion/check/replay_names.h"

#include "companion/check/ordered_findings.h"
#include "companion/check/rules.h"
#include "companion/findings/nearest_word.h"
#include "companion/findings/quoted_text.h"
#include "graph/dot_tokenizer.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

const QStringList &namesOfOps()
{
    static const QStringList names{u"_draw_"_s,  u"_ldraw_"_s,  u"_hdraw_"_s,
                                   u"_tdraw_"_s, u"_hldraw_"_s, u"_tldraw_"_s};
    return names;
}

bool isLikeThatOfOps(const QString &name)
{
    return name.size() > 2 && name.startsWith(u'_') && name.endsWith(u'_');
}

} // namespace

void checkReplayedNames(const CheckedText &text, const QByteArray &bytes, FindingList *findings)
{
    OrderedFindings unknownNames(Rules::unknownAttribute, findings);
    for (const CheckedAttribute &attribute : text.attributes()) {
        const QString &name = attribute.name.text();
        if (!isLikeThatOfOps(name) || namesOfOps().contains(name))
            continue;
        const qsizetype place = attribute.nameOffset;
        unknownNames.add(place, [&] {
            return Finding{&Rules::unknownAttribute,
                           "unknown attribute %1: nothing of it is drawn"_L1.arg(quotedText(name)),
                           didYouMean(name, namesOfOps()), place,
                           Graph::identifierEnd(bytes, place)};
        });
    }
}

} // namespace ORR::Companion
