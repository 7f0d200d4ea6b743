#include "docs/doc_samples.h"

#include "support/golden.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString fence = u"```"_s;

// The file of the picture that a line shows.
QString pictureOf(const QString &line, const QString &page)
{
    static const QRegularExpression shown(u"^!\\[[^\\]]+\\]\\(([^)]+\\.png)\\)$"_s);
    const QRegularExpressionMatch match = shown.match(line);
    if (!match.hasMatch())
        return {};
    return QDir::cleanPath(QFileInfo(page).path() + u'/' + match.captured(1));
}

// The sections of a page, each with its heading. A line of a block is no heading.
QList<QStringList> sectionsOf(const QString &page)
{
    QList<QStringList> sections = {{}};
    bool isCode = false;
    const QString text = projectText(page);
    for (const QString &line : text.split(u'\n')) {
        isCode = isCode != line.startsWith(fence);
        if (!isCode && line.startsWith(u'#'))
            sections.append(QStringList());
        sections.last().append(line);
    }
    return sections;
}

QList<DocBlock> blocksOf(const QStringList &section, const QString &page)
{
    QList<DocBlock> blocks;
    bool isCode = false;
    for (qsizetype i = 0; i < section.size(); ++i) {
        const QString &line = section[i];
        if (!line.startsWith(fence)) {
            if (isCode)
                blocks.last().text += line + u'\n';
            continue;
        }
        isCode = !isCode;
        if (isCode)
            blocks.append({line.sliced(fence.size()), {}, section.join(u'\n'), {}});
        else
            blocks.last().picture = pictureOf(section.value(i + 2), page);
    }
    return blocks;
}

} // namespace

QString projectPath(const QString &name)
{
    return QStringLiteral(ORR_PROJECT_FOLDER "/") + name;
}

QString projectText(const QString &name)
{
    return QString::fromUtf8(readTestFile(projectPath(name)));
}

QStringList docPages()
{
    QStringList pages = {u"README.md"_s};
    QDirIterator files(projectPath(u"docs"_s), {u"*.md"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        pages += QDir(projectPath(u"."_s)).relativeFilePath(files.next());
    pages.sort();
    return pages;
}

QList<DocBlock> docBlocks(const QString &page)
{
    QList<DocBlock> blocks;
    for (const QStringList &section : sectionsOf(page))
        blocks += blocksOf(section, page);
    return blocks;
}

QString sampleEngine(const QString &page, const DocBlock &block, const QStringList &engines)
{
    const QString name = QFileInfo(page).baseName();
    if (engines.contains(name))
        return name;
    static const QRegularExpression option(u"-K (\\w+)"_s);
    for (const QRegularExpressionMatch &match : option.globalMatch(block.section)) {
        if (engines.contains(match.captured(1)))
            return match.captured(1);
    }
    return u"gftree"_s;
}
