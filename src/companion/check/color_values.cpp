#include "companion/check/color_values.h"

#include "companion/check/rules.h"
#include "companion/check/value_parts.h"
#include "companion/findings/nearest_word.h"
#include "companion/findings/quoted_text.h"
#include "device/color_value.h"
#include "graph/decimal.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

using namespace Graph;

namespace {

// Only fills run through several colours.
bool mayBeGradient(const AttributeRow &row)
{
    return row.name.text() == "fillcolor"_L1;
}

QString firstBadColor(const QString &value)
{
    return firstBadPart(value, u";",
                        [](const QString &color) { return ColorValue(color).isValid(); });
}

// The six or eight digits that a colour without them may have meant.
QString digitsMeant(const QString &color)
{
    QString digits = color.startsWith(u'#') ? color.sliced(1) : color;
    if (digits.size() == 3 || digits.size() == 4) {
        QString doubled;
        for (const QChar digit : std::as_const(digits))
            doubled += QString(2, digit);
        digits = doubled;
    }
    const QString meant = u'#' + digits;
    return ColorValue(meant).isValid() ? meant : QString();
}

QString colorSuggestion(const QString &color)
{
    if (const QString digits = color.size() <= longestNumber ? digitsMeant(color) : QString();
        !digits.isEmpty())
        return u"did you mean '%1'?"_s.arg(digits);
    if (ColorValue(color.trimmed()).isValid())
        return u"did you mean '%1'?"_s.arg(color.trimmed());
    if (const QString name = didYouMean(color, colorNames()); !name.isEmpty())
        return name;
    if (color.startsWith(u'#'))
        return u"write '#rrggbb' or '#rrggbbaa'"_s;
    return "write '#rrggbb', '#rrggbbaa' or one of "_L1 + colorNames().join(", "_L1);
}

// A bad digit leaves the channels ahead of it.
QString paintedInstead(const QString &color)
{
    const QString painted = ColorValue(color).toString();
    return painted == "#000000"_L1 ? u"black"_s : quotedText(painted);
}

} // namespace

bool isColorMeant(const AttributeRow &row, const QString &value)
{
    if (value.isEmpty() || ColorValue(value).isValid())
        return true;
    return mayBeGradient(row) && firstBadColor(value).isNull();
}

Finding colorFinding(const AttributeRow &row, const QString &value)
{
    if (!mayBeGradient(row) && value.contains(u';'))
        return {&Rules::unknownColor,
                "%1 can't be a gradient: %2 becomes black"_L1.arg(quotedText(row.name.text()),
                                                                  quotedText(value)),
                u"write one colour"_s};
    return unknownColor(firstBadColor(value), " of "_L1 + quotedText(row.name.text()));
}

Finding unknownColor(const QString &color, const QString &where)
{
    return {
        &Rules::unknownColor,
        "unknown colour %1%2 becomes %3"_L1.arg(quotedText(color), where, paintedInstead(color)),
        colorSuggestion(color)};
}

} // namespace ORR::Companion
