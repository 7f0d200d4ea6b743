#include "companion/produce/dependency_looks.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

void addGiven(const char *name, const QString &value, Attributes *attributes)
{
    if (!value.isEmpty())
        attributes->text(name, value);
}

void addWidth(int width, Attributes *attributes)
{
    if (width > 0)
        attributes->number("penwidth", width);
}

} // namespace

void addFacts(const QList<AuthorFact> &facts, Attributes *attributes)
{
    for (const AuthorFact &fact : facts)
        attributes->fact(fact.name, fact.value);
}

void addLook(const ThingLook &look, Attributes *attributes)
{
    if (look.hasPaint())
        attributes->text("fillcolor", look.fill.isEmpty() ? u"#FFFFFF"_s : look.fill);
    addGiven("color", look.line, attributes);
    addGiven("fontcolor", look.letters, attributes);
    addGiven("shape", look.shape, attributes);
    addGiven("style", look.style, attributes);
    addWidth(look.width, attributes);
    if (look.twoLines)
        attributes->text("peripheries", u"2");
    addGiven("fontname", look.family, attributes);
}

void addLook(const LinkLook &look, Attributes *attributes)
{
    if (!look.label.isEmpty())
        attributes->label(look.label);
    addGiven("color", look.color, attributes);
    addGiven("style", look.style, attributes);
    addWidth(look.width, attributes);
    if (look.hasArrow)
        attributes->text("arrowhead", u"normal");
    addFacts(look.facts, attributes);
}

} // namespace ORR::Companion
