#include "device/open_elements.h"

#include "graph/limits.h"

#include <algorithm>
#include <array>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

template <size_t count>
bool isOneOf(const std::array<QLatin1StringView, count> &names, const QString &name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isBlock(const QString &name)
{
    static constexpr std::array names{
        "blockquote"_L1, "body"_L1, "caption"_L1, "center"_L1, "dd"_L1, "div"_L1, "dl"_L1, "dt"_L1,
        "h1"_L1,         "h2"_L1,   "h3"_L1,      "h4"_L1,     "h5"_L1, "h6"_L1,  "hr"_L1, "li"_L1,
        "ol"_L1,         "p"_L1,    "pre"_L1,     "qt"_L1,     "td"_L1, "th"_L1,  "ul"_L1,
    };
    return isOneOf(names, name);
}

} // namespace

bool OpenElements::isEmptyElement(const QString &name)
{
    static constexpr std::array names{"br"_L1, "hr"_L1, "img"_L1, "meta"_L1};
    return isOneOf(names, name);
}

void OpenElements::open(const QString &name, qint64 columnSpan, qint64 rowSpan)
{
    if (name == "td"_L1 || name == "th"_L1) {
        // A cell without a row gets a table of its own; a head cell is just an element there.
        if (name == "td"_L1 && !isOpen("tr"_L1)) {
            push(u"table"_s);
            openRow();
        }
        closeUpTo({"tr"_L1});
        if (!elements.isEmpty() && !tables.isEmpty())
            openCell(columnSpan, rowSpan);
    } else if (name == "tr"_L1) {
        openRow();
        return;
    } else if (name == "thead"_L1 || name == "tbody"_L1 || name == "tfoot"_L1
               || name == "caption"_L1) {
        closeUpTo({"table"_L1});
    } else if (name == "dd"_L1 || name == "dt"_L1) {
        closeUpTo({"dl"_L1});
    } else if (name == "p"_L1) {
        closeParagraph();
    } else if (name == "li"_L1 && !elements.isEmpty() && elements.constLast() == name) {
        closeDownTo(elements.size() - 1);
    }
    push(name);
}

void OpenElements::close(const QString &name)
{
    const qsizetype at = elements.lastIndexOf(name);
    if (at >= 0)
        closeDownTo(at);
}

void OpenElements::push(const QString &name)
{
    elements.append(name);
    if (name == "table"_L1)
        tables.append(Table());
}

void OpenElements::openCell(qint64 columnSpan, qint64 rowSpan)
{
    Table &table = tables.last();
    table.columnsOfRow = std::min(table.columnsOfRow + columnSpan, Limits::mostGridPlaces);
    table.columns = std::max(table.columns, table.columnsOfRow);
    if (rowSpan > 1)
        table.overhangs.append({rowSpan, columnSpan});
}

void OpenElements::openRow()
{
    if (!isOpen("table"_L1))
        push(u"table"_s);
    closeUpTo({"table"_L1, "thead"_L1, "tbody"_L1, "tfoot"_L1});
    push(u"tr"_s);
    Table &table = tables.last();
    ++table.rows;
    table.columnsOfRow = 0;
    for (Overhang &overhang : table.overhangs) {
        if (--overhang.rows > 0)
            table.columnsOfRow =
                std::min(table.columnsOfRow + overhang.columns, Limits::mostGridPlaces);
    }
    table.overhangs.removeIf([](const Overhang &overhang) { return overhang.rows <= 0; });
    table.columns = std::max(table.columns, table.columnsOfRow);
}

qint64 OpenElements::passes() const
{
    return qint64(1) << std::clamp<qsizetype>(tables.size() - 1, 0, Limits::mostDoublings);
}

qint64 OpenElements::gridPlaces() const
{
    qint64 places = closedPlaces;
    for (qsizetype i = 0; i < tables.size(); ++i)
        places = std::min(places + placesOf(i), Limits::mostGridPlaces);
    return places;
}

qint64 OpenElements::placesOf(qsizetype table) const
{
    const double grid = double(tables.at(table).rows) * double(tables.at(table).columns);
    const double passes = double(qint64(1) << std::min(table, Limits::mostDoublings));
    return qint64(std::min(grid * passes, double(Limits::mostGridPlaces)));
}

void OpenElements::closeDownTo(qsizetype count)
{
    while (elements.size() > count) {
        if (elements.takeLast() != "table"_L1)
            continue;
        closedPlaces = std::min(closedPlaces + placesOf(tables.size() - 1), Limits::mostGridPlaces);
        tables.removeLast();
    }
}

// Without such a parent all elements are closed.
void OpenElements::closeUpTo(std::initializer_list<QLatin1StringView> parents)
{
    while (!elements.isEmpty()
           && std::find(parents.begin(), parents.end(), elements.constLast()) == parents.end())
        closeDownTo(elements.size() - 1);
}

// A paragraph closes the one that it lies in, unless a block of another kind lies between them.
void OpenElements::closeParagraph()
{
    qsizetype i = elements.size() - 1;
    while (i >= 0 && !isBlock(elements.at(i)))
        --i;
    if (i >= 0 && elements.at(i) == "p"_L1)
        closeDownTo(i);
}

bool OpenElements::isOpen(QLatin1StringView name) const
{
    return std::find(elements.cbegin(), elements.cend(), name) != elements.cend();
}

} // namespace ORR::Graph
