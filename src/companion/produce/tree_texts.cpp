#include "companion/produce/tree_texts.h"

#include "companion/produce/number_words.h"
#include "graph/attribute_name.h"

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

// A name that no engine has a meaning for.
QString factName(const QString &name, const QString &otherwise)
{
    const QString word = name.isEmpty() ? otherwise : name;
    return Graph::AttributeName(word).isKnown() ? word + u'_' : word;
}

} // namespace

QString titleOf(const TreeJob &job, const ShownTree &tree)
{
    return job.request.title.isEmpty() ? tree.root().name : job.request.title;
}

QString titleWithWeight(const TreeJob &job, const ShownTree &tree)
{
    const QString title = titleOf(job, tree);
    const QString weight = weightWithName(tree.root().weight, job.meaning);
    return title.isEmpty() ? weight : title + u" \u2013 "_s + weight;
}

QString meaningWords(const TreeJob &job, const QString &size)
{
    QString words;
    if (!job.meaning.weight.isEmpty())
        words = size + u": "_s + job.meaning.weight;
    if (!job.meaning.color.isEmpty())
        words += (words.isEmpty() ? u"colour: "_s : u"\ncolour: "_s) + job.meaning.color;
    return words;
}

void addFacts(Attributes *attributes, const TreeJob &job, const ShownTree &tree, int thing)
{
    const ShownThing &shown = tree[thing];
    if (const QString path = tree.path(thing); !path.isEmpty())
        attributes->fact(u"path", path);
    attributes->fact(factName(job.meaning.weight, u"weight"_s),
                     weightWords(shown.weight, job.meaning.unit) + u" ("_s
                         + percentWords(shown.weight / tree.root().weight) + u')');
    if (shown.whole > 0 && !job.meaning.share.isEmpty()) {
        const double share = shown.part / shown.whole;
        attributes->fact(factName(job.meaning.share, u"share"_s),
                         job.meaning.sharesAreParts ? percentWords(share) : shortNumber(share));
    }
    // What has others in it has their kinds.
    const bool isByKind = job.meaning.coloring == TreeMeaning::Coloring::ByKind;
    if (isByKind && shown.children.isEmpty() && !shown.kinds.isEmpty()) {
        const int kind = shown.kinds.constFirst().kind;
        if (kind >= 0 && kind < job.meaning.kinds.size())
            attributes->fact(factName(job.meaning.color, u"kind"_s), job.meaning.kinds.at(kind));
    }
}

double areaOf(double weight, const ShownTree &tree)
{
    constexpr double comfortable = 1e6;
    const double whole = tree.root().weight;
    if (whole >= 1 && whole < 1e15)
        return weight;
    return whole > 0 ? weight / whole * comfortable : 0;
}

QString tooSmallPage(const PictureRequest &request, const QString &why)
{
    return u"the drawing is larger than the page of %1x%2 that was asked for: %3"_s
        .arg(request.width)
        .arg(request.height)
        .arg(why);
}

} // namespace ORR::Companion
