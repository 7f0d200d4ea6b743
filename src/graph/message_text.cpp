#include "graph/message_text.h"

namespace ORR::Graph {

namespace {

// C0, the delete character and C1.
bool isControl(QChar c)
{
    const char16_t u = c.unicode();
    return u < 0x20 || (u >= 0x7F && u < 0xA0);
}

QString withoutControls(const QString &text, bool keepsLines)
{
    QString shown;
    shown.reserve(text.size());
    for (const QChar c : text) {
        if (!isControl(c) || (keepsLines && c == u'\n'))
            shown += c;
        else
            shown +=
                QStringLiteral("\\x") + QString::number(c.unicode(), 16).rightJustified(2, u'0');
    }
    return shown;
}

} // namespace

QString messageText(const QString &text)
{
    return withoutControls(text, false);
}

QString printableMessage(const QString &message)
{
    return withoutControls(message, true);
}

} // namespace ORR::Graph
