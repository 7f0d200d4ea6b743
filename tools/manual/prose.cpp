#include "tools/manual/prose.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Docs {

namespace {

constexpr QLatin1StringView fence = "```"_L1;

ProseBlock itemOf(const QString &text)
{
    const qsizetype termEnd = text.indexOf("`: "_L1);
    if (!text.startsWith(u'`') || termEnd < 0)
        return {ProseBlock::Bullet, text};
    return {ProseBlock::Term, text.sliced(termEnd + 3), text.sliced(1, termEnd - 1)};
}

class ProseReader
{
public:
    QList<ProseSection> read(const QString &text);

private:
    void readLine(const QString &line);
    void end();

    QList<ProseSection> sections{{}};
    QString open; // a paragraph or an item, up to here
    bool isItem = false;
    bool isCode = false;
};

void ProseReader::end()
{
    const QString text = std::exchange(open, {});
    if (!text.isEmpty())
        sections.last().blocks += isItem ? itemOf(text) : ProseBlock{ProseBlock::Paragraph, text};
    isItem = false;
}

void ProseReader::readLine(const QString &line)
{
    QList<ProseBlock> &blocks = sections.last().blocks;
    if (line.startsWith(fence)) {
        end();
        isCode = !isCode;
        if (isCode)
            blocks += ProseBlock{ProseBlock::Code, {}};
    } else if (isCode) {
        blocks.last().code += line;
    } else if (line.isEmpty()) {
        end();
    } else if (line.startsWith("# "_L1)) {
        end();
        sections += ProseSection{line.sliced(2), {}};
    } else if (line.startsWith("- "_L1)) {
        end();
        isItem = true;
        open = line.sliced(2);
    } else {
        open += (open.isEmpty() ? ""_L1 : " "_L1) + line.trimmed();
    }
}

QList<ProseSection> ProseReader::read(const QString &text)
{
    for (const QString &line : text.split(u'\n'))
        readLine(line);
    end();
    return sections;
}

} // namespace

QList<ProseSection> readProse(const QString &text)
{
    return ProseReader().read(text);
}

} // namespace ORR::Docs
