#include "drawing/font_answer.h"

#include <QFontInfo>
#include <QStringList>

#include <memory>

#include <fontconfig/fontconfig.h>

using namespace Qt::StringLiterals;

namespace ORR::Drawing {

namespace {

struct DestroyPattern
{
    void operator()(FcPattern *pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DestroyPattern>;

bool isKind(const QString &family)
{
    static const QStringList kinds{u"sans-serif"_s, u"serif"_s,     u"monospace"_s, u"cursive"_s,
                                   u"fantasy"_s,    u"system-ui"_s, u"sans"_s,      u"mono"_s};
    return kinds.contains(family, Qt::CaseInsensitive);
}

// The names that the configuration takes for the family. Behind them come, weakly bound, those that
// it falls back upon.
QStringList equivalents(const QString &family)
{
    const QByteArray name = family.toUtf8();
    const Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY,
                       reinterpret_cast<const FcChar8 *>(name.constData()));
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    QStringList names;
    FcValue value;
    FcValueBinding binding = FcValueBindingWeak;
    for (int i = 0;
         FcPatternGetWithBinding(pattern.get(), FC_FAMILY, i, &value, &binding) == FcResultMatch;
         ++i) {
        if (binding == FcValueBindingWeak)
            break;
        if (value.type == FcTypeString)
            names += QString::fromUtf8(reinterpret_cast<const char *>(value.u.s));
    }
    return names;
}

} // namespace

QString replacingFamily(const QString &family)
{
    const QString answer = QFontInfo(QFont(family)).family();
    if (family.isEmpty() || isKind(family) || answer.compare(family, Qt::CaseInsensitive) == 0
        || equivalents(family).contains(answer, Qt::CaseInsensitive))
        return {};
    return answer;
}

} // namespace ORR::Drawing
