#include "drawing/debug_flag.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace ORR::Drawing {

bool debugFlag(const QString &group, const QString &keyword)
{
    const QByteArray name = u"DEBUG_%1_%2"_s.arg(group, keyword).toUpper().toLocal8Bit();
    if (!qEnvironmentVariableIsSet(name.constData()))
        return false;
    const QStringList wordsForNo{u"FALSE"_s, u"OFF"_s, u"NONE"_s};
    return !wordsForNo.contains(qEnvironmentVariable(name.constData()), Qt::CaseInsensitive);
}

} // namespace ORR::Drawing
