#include "companion/doc_page.h"

#include "support/golden.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString docPage(const QString &file)
{
    return QString::fromUtf8(readTestFile(QStringLiteral(ORR_PROJECT_FOLDER "/docs/") + file));
}

QString checkPage()
{
    return docPage(u"check.md"_s);
}

QString sectionOf(const QString &page, const QString &heading)
{
    const qsizetype start = page.indexOf(heading + u'\n');
    if (start < 0)
        return {};
    const qsizetype level = heading.indexOf(u' ');
    const QRegularExpression next(u"^#{1,%1} "_s.arg(level), QRegularExpression::MultilineOption);
    const qsizetype body = start + heading.size() + 1;
    return page.sliced(
        body, page.indexOf(next, body) < 0 ? page.size() - body : page.indexOf(next, body) - body);
}

QStringList codeBlocks(const QString &text, const QString &language)
{
    static const QRegularExpression block(u"^```(\\w*)\\n(.*?)^```$"_s,
                                          QRegularExpression::MultilineOption
                                              | QRegularExpression::DotMatchesEverythingOption);
    QStringList blocks;
    for (const QRegularExpressionMatch &match : block.globalMatch(text)) {
        if (match.captured(1) == language)
            blocks += match.captured(2);
    }
    return blocks;
}
