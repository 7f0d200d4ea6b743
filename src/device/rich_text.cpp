#include "device/rich_text.h"

#include "device/markup_reader.h"
#include "device/point_resolution.h"
#include "device/rich_text_images.h"
#include "device/rich_text_price.h"
#include "graph/limits.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>
#include <QUrl>

#include <algorithm>
#include <array>
#include <utility>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// A document without resources, whose layout, whenever it is made, knows no pictures but those of
// the text.
class FencedDocument : public QTextDocument
{
public:
    FencedDocument()
    {
        setUndoRedoEnabled(false);
        // The signal comes before the new layout is asked for anything.
        connect(this, &QTextDocument::documentLayoutChanged, this, [this] {
            QAbstractTextDocumentLayout *layout = documentLayout();
            layout->registerHandler(QTextFormat::ImageObject, new RichTextImages(layout));
        });
    }

protected:
    QVariant loadResource(int, const QUrl &) override { return {}; }
};

// Escaped the way addresses are, the percent sign included, so that it can be undone.
QString fencedFamily(const QString &family)
{
    const auto needsEscaping = [](QChar c) {
        return c == u'&' || c == u'<' || c == u'>' || c == u'"' || c == u'%' || c < u' ';
    };
    if (std::none_of(family.cbegin(), family.cend(), needsEscaping))
        return family;
    QString fenced;
    for (const QChar c : family) {
        if (needsEscaping(c))
            fenced += u'%' + QString::number(c.unicode(), 16).rightJustified(2, u'0');
        else
            fenced += c;
    }
    // A font of the machine may bear such a name.
    QFont::insertSubstitution(fenced, family);
    return fenced;
}

QStringList fencedFamilies(const QStringList &families)
{
    QStringList fenced;
    for (const QString &family : families)
        fenced.append(fencedFamily(family));
    return fenced;
}

QFont fencedFont(QFont font)
{
    const QStringList families = font.families();
    const QStringList fenced = fencedFamilies(families);
    if (fenced != families)
        font.setFamilies(fenced);
    return font;
}

// Fences the families of a format; false if there was nothing to do.
bool fenceFamilies(QTextCharFormat *format)
{
    const QStringList families = format->fontFamilies().toStringList();
    const QStringList fenced = fencedFamilies(families);
    if (fenced == families)
        return false;
    format->setFontFamilies(fenced);
    return true;
}

void fenceFamilies(QTextDocument *document)
{
    struct Change
    {
        int start;
        int length; // 0 for the format of a block itself
        QTextCharFormat format;
    };
    QList<Change> changes;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        QTextCharFormat format = block.charFormat();
        if (fenceFamilies(&format))
            changes.append({block.position(), 0, format});
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            format = fragment.charFormat();
            if (fenceFamilies(&format))
                changes.append({fragment.position(), fragment.length(), format});
        }
    }
    QTextCursor cursor(document);
    for (const Change &change : std::as_const(changes)) {
        cursor.setPosition(change.start);
        cursor.setPosition(change.start + change.length, QTextCursor::KeepAnchor);
        if (change.length == 0)
            cursor.setBlockCharFormat(change.format);
        else
            cursor.setCharFormat(change.format);
    }
}

// The places in the grids of all tables, each as many times as it is laid out.
qint64 gridPlacesOf(const QTextDocument &document)
{
    qint64 places = 0;
    QList<std::pair<const QTextFrame *, qsizetype>> frames{{document.rootFrame(), 0}};
    while (!frames.isEmpty()) {
        const auto [frame, tablesAround] = frames.takeLast();
        const auto *table = qobject_cast<const QTextTable *>(frame);
        if (table)
            places += (qint64(table->rows()) * table->columns())
                << std::min(tablesAround, Limits::mostDoublings);
        for (const QTextFrame *child : frame->childFrames())
            frames.append({child, tablesAround + (table ? 1 : 0)});
    }
    return places;
}

// Tables that do not hold what belongs into tables end up within one another in ways that only the
// toolkit knows. A text is not what it seemed if it has far more to lay out than it was priced for.
bool isAsPriced(const QTextDocument &document, const RichTextPrice &price)
{
    return gridPlacesOf(document) <= price.gridPlaces + Limits::mostUnpricedPlaces;
}

bool startsLine(const QString &element)
{
    static constexpr std::array names{
        "blockquote"_L1, "br"_L1, "caption"_L1, "center"_L1, "dd"_L1,    "div"_L1, "dl"_L1, "dt"_L1,
        "h1"_L1,         "h2"_L1, "h3"_L1,      "h4"_L1,     "h5"_L1,    "h6"_L1,  "hr"_L1, "li"_L1,
        "ol"_L1,         "p"_L1,  "pre"_L1,     "table"_L1,  "title"_L1, "tr"_L1,  "ul"_L1,
    };
    return std::find(names.begin(), names.end(), element) != names.end();
}

} // namespace

std::unique_ptr<QTextDocument> richTextDocument(const QString &html, const QFont &font)
{
    const RichTextPrice price = richTextPrice(html);
    if (!price.isAffordable)
        return nullptr;
    auto document = std::make_unique<FencedDocument>();
    document->setDocumentMargin(0.0);
    document->setDefaultFont(fencedFont(font));
    // Reading takes little; it is the layout that takes its time, and there is none yet.
    document->setHtml(html);
    if (!isAsPriced(*document, price))
        return nullptr;
    fenceFamilies(document.get());
    document->documentLayout()->setPaintDevice(pointDevice());
    return document;
}

QString plainTextOf(const QString &html)
{
    FencedDocument document;
    document.setHtml(html);
    return document.toPlainText();
}

QString withoutMarkup(const QString &html)
{
    QString text;
    MarkupReader reader(html);
    bool isShown = true;
    while (reader.next()) {
        const MarkupPiece &piece = reader.piece();
        if (piece.kind == MarkupPiece::Text && isShown)
            text += withResolvedEntities(piece.text).replace(u'\n', u' ');
        else if (startsLine(piece.name))
            text += u'\n';
        else if (piece.name == "td"_L1 || piece.name == "th"_L1)
            text += u' ';
        if (piece.kind == MarkupPiece::Open || piece.kind == MarkupPiece::Close)
            isShown = piece.kind == MarkupPiece::Close
                || (piece.name != "style"_L1 && piece.name != "script"_L1);
    }
    QStringList lines;
    for (const QStringView line : QStringView(text).split(u'\n')) {
        const QString simple = line.toString().simplified();
        if (!simple.isEmpty())
            lines.append(simple);
    }
    return lines.join(u'\n');
}

bool RichTextBudget::take(const QString &html)
{
    const RichTextPrice price = richTextPrice(html);
    if (!price.isAffordable)
        return false;
    // Pictures are never free: a few characters may hold many pixels.
    const qint64 free = (html.size() - price.pictureCharacters) * Limits::freeStepsPerCharacter;
    const qint64 dear =
        std::max<qint64>(0, price.steps - price.pictureSteps - free) + price.pictureSteps;
    if (spent + dear > Limits::dearestRichTexts)
        return false;
    spent += dear;
    return true;
}

QString familyFromFenced(const QString &family)
{
    return QUrl::fromPercentEncoding(family.toUtf8());
}

} // namespace ORR::Graph
