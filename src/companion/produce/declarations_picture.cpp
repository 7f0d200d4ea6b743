#include "companion/produce/declarations_picture.h"

#include "companion/produce/declaration_order.h"
#include "companion/produce/graph_text.h"
#include "companion/produce/page_fit.h"
#include "companion/produce/text_fit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr int declTitleSize = 14;
constexpr int declNameSize = 11;
constexpr int memberSize = 9;
constexpr int accessSize = 8;
constexpr double widestMember = 190;
// About what boxes take, by which they are dealt to columns.
constexpr double memberHeight = 14;
constexpr double headHeight = 44;
constexpr double accessHeight = 20;
constexpr double boxWidth = 230;
constexpr int fewestMembers = 6;
// No box takes less of the page.
constexpr double leastBox = 110 * 45;

struct AccessLook
{
    const char *name;
    const char *line;
    const char *fill;
};
// By their numbers. All of these fills and those of kinds are told apart as those of the palette
// are; members whose access is not said are as those that all may use.
constexpr AccessLook accessLooks[] = {
    {"public", "#7FA8CC", "#F2F8FD"},
    {"protected", "#B9A13A", "#FBF0A8"},
    {"private", "#B56A3C", "#EDB58E"},
    {"", "#9AA5B1", "#F2F8FD"},
};

QString fillOfKind(const QString &kind)
{
    if (kind == u"enum")
        return u"#CCF2D0"_s;
    if (kind == u"interface" || kind == u"trait" || kind == u"protocol")
        return u"#93B3E8"_s;
    return kind == u"file" || kind == u"elsewhere" ? u"#C8C8C8"_s : u"#C6DDF5"_s;
}

// The scope that all types are in, with what parts it from their names; maybe empty.
QString commonScope(const QList<Declarations::Declaration> &all)
{
    std::optional<QStringList> common;
    for (const Declarations::Declaration &declaration : all) {
        if (declaration.kind == u"elsewhere" || declaration.kind == u"file")
            continue;
        QStringList scope = declaration.name.split(u"::"_s);
        scope.removeLast();
        if (!common)
            common = scope;
        const auto differing =
            std::mismatch(common->cbegin(), common->cend(), scope.cbegin(), scope.cend()).first;
        common->resize(differing - common->cbegin());
    }
    return !common || common->isEmpty() ? QString() : common->join(u"::"_s) + u"::"_s;
}

class DeclarationWriter
{
public:
    DeclarationWriter(const Declarations &declarations, const PictureRequest &pageRequest, int most,
                      int mostMembers);

    QByteArray written(double columnHeight);
    double likelyHeight() const; // of columns that make up the form of the page
    double likelyArea() const;

private:
    using Declaration = Declarations::Declaration;

    double heightOf(const Declaration &declaration) const;
    QList<Declarations::Member> shownMembers(const Declaration &declaration) const;
    void writeBox(int declaration, int row, int column);
    void writeAccess(const Declaration &declaration, Declarations::Access access, int row);
    void writeLines();

    const QList<Declaration> &all;
    const PictureRequest &request;
    int memberLimit;
    QString scope;
    QList<int> chosen; // in the order of the boxes
    GraphText text;
    QList<GraphText::Id> boxes, heads;
};

DeclarationWriter::DeclarationWriter(const Declarations &declarations,
                                     const PictureRequest &pageRequest, int most, int mostMembers)
    : all(declarations.all()), request(pageRequest), memberLimit(mostMembers),
      scope(commonScope(declarations.all())), chosen(chosenDeclarations(all, most)),
      text(pageRequest.title), boxes(all.size()), heads(all.size())
{
}

QList<Declarations::Member> DeclarationWriter::shownMembers(const Declaration &declaration) const
{
    QList<Declarations::Member> members = declaration.members;
    std::stable_sort(members.begin(), members.end(), [](const auto &a, const auto &b) {
        return std::pair(a.access, a.line) < std::pair(b.access, b.line);
    });
    return members.first(std::min<qsizetype>(members.size(), memberLimit));
}

double DeclarationWriter::heightOf(const Declaration &declaration) const
{
    const qsizetype shown = std::min<qsizetype>(declaration.members.size(), memberLimit);
    return headHeight + double(shown) * memberHeight + (shown > 0 ? accessHeight * 1.5 : 0);
}

double DeclarationWriter::likelyHeight() const
{
    double sum = 0;
    double tallest = 0;
    for (const int i : chosen) {
        sum += heightOf(all[i]);
        tallest = std::max(tallest, heightOf(all[i]));
    }
    const double columns =
        std::max(1.0, std::sqrt(sum * request.width / request.height / boxWidth));
    return std::min(std::max(tallest, sum / columns), request.height);
}

double DeclarationWriter::likelyArea() const
{
    return std::accumulate(chosen.cbegin(), chosen.cend(), 0.0,
                           [this](double sum, int i) { return sum + heightOf(all[i]) * boxWidth; });
}

void DeclarationWriter::writeAccess(const Declaration &declaration, Declarations::Access access,
                                    int row)
{
    const AccessLook &look = accessLooks[access];
    text.beginGroup(Attributes()
                        .number("row", row)
                        .number("col", 0)
                        .number("nodesep", 0)
                        .text("margin", u"0.05,0.02")
                        .text("color", QString::fromLatin1(look.line))
                        .text("fillcolor", QString::fromLatin1(look.fill))
                        .text("penwidth", u"1")
                        .text("style", u"filled"));
    if (access != Declarations::Unsaid)
        text.node(Attributes()
                      .label(QString::fromLatin1(look.name))
                      .number("fontsize", accessSize)
                      .text("fontcolor", u"#5A6672"));
    text.beginGroup(
        Attributes().number("row", 0).number("col", 0).text("margin", u"0").text("color", u"none"));
    for (const Declarations::Member &member : shownMembers(declaration)) {
        if (member.access == access)
            text.node(Attributes().label(
                elidedLine(member.text, memberSize, widestMember, Qt::ElideRight)));
    }
    text.endGroup();
    text.endGroup();
}

void DeclarationWriter::writeBox(int declaration, int row, int column)
{
    const Declaration &shown = all[declaration];
    boxes[declaration] = text.beginGroup(Attributes()
                                             .number("row", row)
                                             .number("col", column)
                                             .number("nodesep", 0)
                                             .text("margin", u"0.01,0.02")
                                             .text("color", u"#5A7FA5")
                                             .text("fillcolor", fillOfKind(shown.kind))
                                             .text("style", u"filled,rounded")
                                             .fact(u"name", shown.name));
    const QString name =
        shown.name.startsWith(scope) ? shown.name.sliced(scope.size()) : shown.name;
    heads[declaration] = text.node(Attributes()
                                       .label(elidedLine(name, declNameSize, widestMember))
                                       .number("fontsize", declNameSize));
    const QList<Declarations::Member> members = shownMembers(shown);
    const qsizetype left = shown.members.size() - members.size();
    text.node(
        Attributes()
            .label(shown.kind
                   + (left == 0
                          ? QString()
                          : u"; %1 of %2 members"_s.arg(members.size()).arg(shown.members.size())))
            .number("fontsize", accessSize)
            .text("fontcolor", u"#5A6672"));
    int accessRow = 0;
    for (const Declarations::Access access : {Declarations::Public, Declarations::Protected,
                                              Declarations::Private, Declarations::Unsaid}) {
        const bool isThere = std::any_of(members.cbegin(), members.cend(), [=](const auto &member) {
            return member.access == access;
        });
        if (isThere)
            writeAccess(shown, access, accessRow++);
    }
    // What holds another graph is as wide as its column, so that lines run beside it.
    if (accessRow == 0) {
        text.beginGroup(Attributes().number("row", 0).number("col", 0).text("color", u"none"));
        text.endGroup();
    }
    text.endGroup();
}

void DeclarationWriter::writeLines()
{
    for (const int i : std::as_const(chosen)) {
        for (const int base : all[i].bases) {
            if (!boxes[base].isEmpty())
                text.edge(heads[i], heads[base],
                          Attributes()
                              .text("ltail", QString::fromLatin1(boxes[i]))
                              .text("lhead", QString::fromLatin1(boxes[base])));
        }
    }
}

QByteArray DeclarationWriter::written(double columnHeight)
{
    text.graph(Attributes().text("grid", u"col").number("nodesep", 0.07).number("pad", 0.3));
    text.nodeDefaults(Attributes()
                          .text("shape", u"none")
                          .text("margin", u"0.04,0.015")
                          .text("fontname", QString::fromLatin1(drawnFont))
                          .number("fontsize", memberSize));
    text.edgeDefaults(Attributes().text("color", u"#5A7FA5"));
    text.node(Attributes()
                  .label(elidedLine(request.title, declTitleSize, 0.7 * request.width))
                  .number("fontsize", declTitleSize));
    const bool hasBases = std::any_of(chosen.cbegin(), chosen.cend(),
                                      [this](int i) { return !all[i].bases.isEmpty(); });
    if (hasBases)
        text.node(Attributes().label(
            u"lines join what inherits, on the right or below, and what is inherited"_s));
    int row = 0;
    int column = 0;
    double used = 0;
    for (const int i : std::as_const(chosen)) {
        if (row > 0 && used + heightOf(all[i]) > columnHeight) {
            row = 0;
            ++column;
            used = 0;
        }
        used += heightOf(all[i]);
        writeBox(i, row++, column);
    }
    writeLines();
    return text.finished();
}

} // namespace

WrittenGraph DeclarationsPicture::write(const PictureRequest &asked) const
{
    PictureRequest request = asked;
    if (request.title.isEmpty())
        request.title = u"%1 declarations"_s.arg(all.all().size());
    const double page = request.width * request.height;
    const double room = std::clamp(page / leastBox, 1.0, double(std::max(1, request.most)));
    int count = int(std::min(double(all.all().size()), room));
    // Each try is a drawing: those that come out far too large are spared.
    const auto isHopeless = [&](int members) {
        return DeclarationWriter(all, request, count, members).likelyArea() > 2 * page;
    };
    // Columns as high as it suits the form of the page, then as high as it.
    const auto fitted = [&](int members, double scale, int tries) {
        return fitToPage(
            request, count,
            [&](int most) {
                DeclarationWriter writer(all, request, most, members);
                return writer.written(scale == 0 ? writer.likelyHeight() : scale * request.height);
            },
            tries);
    };
    PageFit fit;
    for (const int members : {std::numeric_limits<int>::max(), 24, 16, 12, 9, fewestMembers}) {
        for (const double scale : {0.0, 0.95, 0.8}) {
            if (!fit.fits && !isHopeless(members)) {
                fit = fitted(members, scale, 1);
            }
        }
    }
    while (count > 1 && isHopeless(fewestMembers))
        count = 3 * count / 4;
    if (!fit.fits)
        fit = fitted(fewestMembers, 0.8, 12);
    QStringList notes = pageNotes(fit, request, u"one declaration has no less"_s);
    if (fit.most < all.all().size())
        notes.append(u"%1 of %2 declarations have no room and are left out."_s
                         .arg(all.all().size() - fit.most)
                         .arg(all.all().size()));
    return {fit.text, notes};
}

} // namespace ORR::Companion
