#include "tools/manual/roff_page.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Docs {

namespace {

constexpr qsizetype longestLine = 78;

// What stands for itself, in text that is read.
QString escaped(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (c == u'\\')
            result += "\\(rs"_L1;
        else if (c == u'`')
            result += "\\(ga"_L1;
        else if (c == u'^')
            result += "\\(ha"_L1;
        else if (c == u'~')
            result += "\\(ti"_L1;
        else
            result += c;
    }
    return result;
}

// In text that is copied: a formatter would make a minus sign a hyphen and quotes round ones.
QString escapedCode(const QString &text)
{
    return escaped(text).replace(u'-', "\\-"_L1).replace(u'\'', "\\(aq"_L1);
}

} // namespace

QString plain(const QString &text)
{
    return escaped(text);
}

QString bold(const QString &text)
{
    return "\\fB"_L1 + escapedCode(text) + "\\fR"_L1;
}

QString italic(const QString &text)
{
    return "\\fI"_L1 + escapedCode(text) + "\\fR"_L1;
}

QString marked(const QString &text)
{
    QString result;
    qsizetype done = 0;
    for (;;) {
        qsizetype start = done;
        while (start < text.size() && text[start] != u'`' && text[start] != u'*')
            ++start;
        const qsizetype end = start < text.size() ? text.indexOf(text[start], start + 1) : -1;
        if (end < 0)
            return result + plain(text.sliced(done));
        const QString inner = text.sliced(start + 1, end - start - 1);
        result += plain(text.sliced(done, start - done));
        result += text[start] == u'`' ? bold(inner) : italic(inner);
        done = end + 1;
    }
}

RoffPage::RoffPage(const PageTitle &title)
{
    written = ".TH %1 %2 %3 \"%4\" \"User Commands\"\n"_L1.arg(
        title.name.toUpper().replace(u'-', "\\-"_L1), QString::number(title.section), title.date,
        title.source);
    if (title.section == 7)
        written.replace("User Commands"_L1, "Miscellaneous"_L1);
}

void RoffPage::line(const QString &text)
{
    written += text + u'\n';
}

// Behind a heading there is one already.
void RoffPage::beginParagraph()
{
    const QStringView last = QStringView(written).sliced(written.lastIndexOf(u'\n', -2) + 1);
    if (!last.startsWith(".SH "_L1) && !last.startsWith(".SS "_L1))
        line(u".PP"_s);
}

// At blanks, which a formatter takes for those between words. What begins a line is no request.
void RoffPage::wrapped(const QString &text)
{
    QString row;
    const auto end = [&] {
        if (row.startsWith(u'.') || row.startsWith(u'\''))
            row.prepend("\\&"_L1);
        line(std::exchange(row, {}));
    };
    for (const QString &word : text.split(u' ', Qt::SkipEmptyParts)) {
        if (!row.isEmpty() && row.size() + 1 + word.size() > longestLine)
            end();
        row += (row.isEmpty() ? ""_L1 : " "_L1) + word;
    }
    if (!row.isEmpty())
        end();
}

void RoffPage::heading(const QString &text)
{
    line(".SH "_L1 + escapedCode(text));
}

void RoffPage::subheading(const QString &text)
{
    line(".SS "_L1 + escapedCode(text));
}

void RoffPage::summary(const QString &name, const QString &text)
{
    line(escapedCode(name) + " \\- "_L1 + plain(text));
}

void RoffPage::paragraph(const QString &text)
{
    beginParagraph();
    wrapped(text);
}

void RoffPage::term(const QString &head, const QString &text)
{
    line(u".TP"_s);
    line(head);
    wrapped(text);
}

void RoffPage::further(const QString &text)
{
    line(u".br"_s);
    wrapped(text);
}

void RoffPage::bullet(const QString &text)
{
    line(u".IP \\(bu 2"_s);
    wrapped(text);
}

void RoffPage::beginList()
{
    line(u".RS"_s);
}

void RoffPage::endList()
{
    line(u".RE"_s);
}

void RoffPage::example(const QStringList &lines)
{
    beginParagraph();
    line(u".RS 4"_s);
    line(u".nf"_s);
    for (const QString &one : lines) {
        const QString text = escapedCode(one);
        line((text.startsWith(u'.') || text.startsWith("\\(aq"_L1) ? "\\&"_L1 : ""_L1) + text);
    }
    line(u".fi"_s);
    line(u".RE"_s);
}

void RoffPage::synopsis(const QString &name, const QStringList &parts)
{
    line(".SY \""_L1 + escapedCode(name) + u'"');
    for (const QString &part : parts)
        line(part);
    line(u".YS"_s);
}

void RoffPage::prose(const QList<ProseBlock> &blocks)
{
    for (const ProseBlock &block : blocks) {
        switch (block.kind) {
        case ProseBlock::Paragraph:
            paragraph(marked(block.text));
            break;
        case ProseBlock::Bullet:
            bullet(marked(block.text));
            break;
        case ProseBlock::Term:
            term(bold(block.term), marked(block.text));
            break;
        case ProseBlock::Code:
            example(block.code);
            break;
        }
    }
}

} // namespace ORR::Docs
