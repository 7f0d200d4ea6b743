#include "graph/limits.h"
#include "output/visio/visio_geometry.h"
#include "output/visio/visio_subpath_index.h"
#include "support/golden.h"

#include <QStringList>

#include <random>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

using Rows = QList<VisioRow>;

// Rows at the letters' places: a kind and a letter each, as in "0a 1b 3c".
Rows rows(const QString &text)
{
    Rows list;
    for (const QString &word : text.split(u' ')) {
        const double place = word.at(1).unicode() - u'a';
        list.append(VisioRow::of({place, place * place}, VisioRow::Kind(word.at(0).digitValue())));
    }
    return list;
}

QString show(const QList<Rows> &subpaths)
{
    QStringList list;
    for (const Rows &subpath : subpaths) {
        QStringList words;
        for (const VisioRow &row : subpath)
            words += u"%1%2"_s.arg(row.kind).arg(QChar(u'a' + int(row.x)));
        list += words.join(u' ');
    }
    return list.join(u" | ");
}

// Adds the subpaths in order.
QString merged(const QStringList &subpaths)
{
    VisioGeometry geometry;
    for (const QString &subpath : subpaths)
        geometry.add(rows(subpath));
    return show(geometry.subpaths);
}

// The rules of merging one after the other, without any care for speed.
namespace plain {

qsizetype find(const Rows &E, const VisioRow &wanted, qsizetype from)
{
    for (qsizetype k = from; k < E.size(); ++k) {
        if (E.at(k).samePoint(wanted))
            return k;
    }
    return -1;
}

bool merge(Rows N, Rows &E)
{
    const bool closed = E.first().samePoint(E.last());
    const qsizetype i = find(E, N.first(), 0);
    const qsizetype j = find(E, N.last(), i < 0 ? 0 : i);
    if (i < 0 || j < 0 || i >= j) {
        if (closed)
            return false;
        if (N.first().samePoint(E.last())) {
            N.removeFirst();
            E += N;
            return true;
        }
        if (N.last().samePoint(E.first())) {
            E.removeFirst();
            E = N + E;
            return true;
        }
        return false;
    }
    if (j == i + 1 && E.at(j).kind == 1 && N.last().kind == 3) {
        N.removeFirst();
        E.removeAt(j);
        for (qsizetype k = 0; k < N.size(); ++k)
            E.insert(j + k, N.at(k));
        return true;
    }
    if (i + N.size() > E.size())
        return false;
    for (qsizetype k = 0; k < N.size(); ++k) {
        if (!N.at(k).samePoint(E.at(i + k)))
            return false;
    }
    return true;
}

void add(QList<Rows> &subpaths, const Rows &N)
{
    for (Rows &E : subpaths) {
        if (merge(N, E))
            return;
    }
    subpaths.append(N);
}

} // namespace plain

} // namespace

TEST(VisioMerge, rows_that_touch_nothing_become_a_subpath)
{
    EXPECT_EQ(merged({u"0a 1b"_s, u"0c 1d"_s}), u"0a 1b | 0c 1d"_s);
}

TEST(VisioMerge, rows_that_start_where_an_open_subpath_ends_are_appended)
{
    EXPECT_EQ(merged({u"0a 1b"_s, u"0b 1c 1d"_s}), u"0a 1b 1c 1d"_s);
}

TEST(VisioMerge, rows_that_end_where_an_open_subpath_starts_are_put_ahead)
{
    EXPECT_EQ(merged({u"0c 1d"_s, u"0a 1b 1c"_s}), u"0a 1b 1c 1d"_s);
}

TEST(VisioMerge, a_closed_subpath_is_not_continued)
{
    EXPECT_EQ(merged({u"0a 1b 1c 1a"_s, u"0a 1d"_s}), u"0a 1b 1c 1a | 0a 1d"_s);
    EXPECT_EQ(merged({u"0a 1b 1c 1a"_s, u"0d 1a"_s}), u"0a 1b 1c 1a | 0d 1a"_s);
}

TEST(VisioMerge, the_first_subpath_that_takes_the_rows_has_them)
{
    EXPECT_EQ(merged({u"0a 1c"_s, u"0b 1d"_s, u"0e 1c"_s, u"0c 1f"_s}),
              u"0a 1c 1f | 0b 1d | 0e 1c"_s);
}

TEST(VisioMerge, a_curve_laid_over_a_straight_piece_takes_its_place)
{
    EXPECT_EQ(merged({u"0a 1b 1c 1d"_s, u"0b 2e 3f 3c"_s}), u"0a 1b 2e 3f 3c 1d"_s);
}

TEST(VisioMerge, a_curve_laid_over_a_curve_is_a_subpath)
{
    EXPECT_EQ(merged({u"0a 2b 3c"_s, u"0a 2d 3b"_s}), u"0a 2b 3c | 0a 2d 3b"_s);
}

TEST(VisioMerge, rows_that_are_a_part_of_a_subpath_add_nothing)
{
    EXPECT_EQ(merged({u"0a 1b 1c 1d"_s, u"0b 1c 1d"_s}), u"0a 1b 1c 1d"_s);
    EXPECT_EQ(merged({u"0a 1b 1c 1a"_s, u"0a 1b 1c 1a"_s}), u"0a 1b 1c 1a | 0a 1b 1c 1a"_s);
}

TEST(VisioMerge, rows_between_two_places_of_a_subpath_by_another_way_are_a_subpath)
{
    EXPECT_EQ(merged({u"0a 1b 1c 1d"_s, u"0b 1e 1d"_s}), u"0a 1b 1c 1d | 0b 1e 1d"_s);
}

TEST(VisioMerge, rows_the_other_way_round_are_a_subpath)
{
    EXPECT_EQ(merged({u"0a 1b 1c 1d"_s, u"0c 1b"_s}), u"0a 1b 1c 1d | 0c 1b"_s);
}

TEST(VisioMerge, a_single_point_at_an_open_end_adds_nothing)
{
    EXPECT_EQ(merged({u"0a 1b"_s, u"0b"_s}), u"0a 1b"_s);
    EXPECT_EQ(merged({u"0a 1b"_s, u"0a"_s}), u"0a 1b"_s);
}

// Few places make much to merge; many rows make the search by index take over.
TEST(VisioMerge, the_result_is_that_of_the_plain_rules_on_random_rows)
{
    for (unsigned seed = 0; seed < 400; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
        const int places = 2 + below(seed % 4 == 0 ? 400 : 30);
        const int longest = 1 + below(8);
        VisioGeometry geometry;
        QList<Rows> expected;
        for (int k = 0; k < 150; ++k) {
            Rows N;
            const int length = 1 + below(longest);
            for (int p = 0; p < length; ++p) {
                const int kind = p == 0 ? 0 : below(3) == 0 ? 3 : 1;
                N.append(VisioRow::of({double(below(places)), 0.0}, VisioRow::Kind(kind)));
            }
            geometry.add(N);
            plain::add(expected, N);
        }
        ASSERT_EQ(show(geometry.subpaths), show(expected)) << "seed " << seed;
    }
}

TEST(VisioMerge, the_result_is_that_of_the_plain_rules_on_a_long_chain)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::mt19937 random(seed);
        VisioGeometry geometry;
        QList<Rows> expected;
        int first = 1000;
        int last = 1000;
        for (int k = 0; k < 300; ++k) {
            Rows N;
            switch (random() % 4) {
            case 0:
                N = {{double(last), 0, 0, 0}, {double(last + 1), 0, 1, 0}};
                ++last;
                break;
            case 1:
                N = {{double(first - 1), 0, 0, 0}, {double(first), 0, 1, 0}};
                --first;
                break;
            case 2: {
                const double at = first + int(random() % unsigned(last - first + 1));
                N = {{at, 0, 0, 0}, {at, 5, 2, 3}, {at + 1, 0, 3, 3}};
                break;
            }
            default:
                const double at = first + int(random() % unsigned(last - first + 1));
                N = {{at, 0, 0, 0}, {at + 1, 0, 1, 0}, {at + 2, 0, 1, 0}};
            }
            geometry.add(N);
            plain::add(expected, N);
        }
        ASSERT_EQ(show(geometry.subpaths), show(expected)) << "seed " << seed;
    }
}

// Each curve that takes the place of a straight piece moves what stands behind it.
TEST(VisioMerge, subpaths_stay_apart_once_the_row_visits_are_spent)
{
    constexpr int length = 20'000;
    constexpr int curves = 200;
    VisioGeometry geometry;
    Rows line;
    for (int i = 0; i < length; ++i)
        line.append(VisioRow::of({double(i), 0.0}, i == 0 ? VisioRow::MoveTo : VisioRow::LineTo));
    geometry.add(line);
    for (int i = 0; i < curves; ++i) {
        const double at = 2.0 * i;
        geometry.add({{at, 0, 0, 0}, {at, 5, 2, 3}, {at + 1, 0, 3, 3}});
    }
    // One more than fits in, and the search by index has to be made first.
    constexpr int merged =
        int(Limits::mostRowVisits / (qint64(length) * VisioSubpathIndex::costOfRow)) - 1;
    EXPECT_EQ(geometry.subpaths.size(), 1 + curves - merged);
    EXPECT_EQ(geometry.subpaths.constFirst().size(), length + merged);
    EXPECT_EQ(geometry.allRows().size(), length + merged + 3 * (curves - merged));
}
