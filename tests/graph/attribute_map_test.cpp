#include "graph/attribute_map.h"

#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QStringList names(const AttributeMap &map)
{
    QStringList list;
    for (const AttributeMap::Entry &entry : map)
        list += entry.name.text();
    return list;
}

// A map with the entries k0=0, k1=1 and so on.
AttributeMap numbered(int count)
{
    AttributeMap map;
    for (int i = 0; i < count; ++i)
        map.insert(u"k%1"_s.arg(i), QString::number(i));
    return map;
}

} // namespace

TEST(AttributeMap, a_missing_name_is_not_an_empty_value)
{
    AttributeMap map;
    map.insert(u"a"_s, u""_s);
    map.insert(u"b"_s, QString());
    EXPECT_TRUE(map.contains(u"a"_s));
    EXPECT_FALSE(map.value(u"a"_s).isNull());
    EXPECT_FALSE(map.value(u"b"_s).isNull());
    EXPECT_TRUE(map.value(u"c"_s).isNull());
    EXPECT_EQ(map.find(u"c"_s), nullptr);
}

TEST(AttributeMap, copies_do_not_share_later_changes)
{
    AttributeMap a{{u"x"_s, u"1"_s}};
    AttributeMap b = a;
    b.insert(u"x"_s, u"2"_s);
    EXPECT_EQ(a.value(u"x"_s), "1");
    EXPECT_EQ(b.value(u"x"_s), "2");
}

TEST(AttributeMap, entries_keep_the_order_of_their_first_insertion)
{
    const AttributeMap map{{u"b"_s, u"1"_s}, {u"a"_s, u"2"_s}, {u"b"_s, u"3"_s}};
    EXPECT_EQ(names(map), (QStringList{u"b"_s, u"a"_s}));
    EXPECT_EQ(map.value(u"b"_s), "3");
}

TEST(AttributeMap, grows_past_the_plain_list)
{
    for (const int count : {15, 16, 17, 18, 500}) {
        AttributeMap map = numbered(count);
        map.insert(u"k3"_s, u"three"_s);
        ASSERT_EQ(map.size(), count);
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(map.value(u"k%1"_s.arg(i)), i == 3 ? u"three"_s : QString::number(i));
        EXPECT_FALSE(map.contains(u"k%1"_s.arg(count)));
    }
}

TEST(AttributeMap, equality_ignores_order)
{
    EXPECT_EQ((AttributeMap{{u"a"_s, u"1"_s}, {u"b"_s, u"2"_s}}),
              (AttributeMap{{u"b"_s, u"2"_s}, {u"a"_s, u"1"_s}}));
    EXPECT_FALSE((AttributeMap{{u"a"_s, u"1"_s}}) == (AttributeMap{{u"a"_s, u"2"_s}}));
    EXPECT_FALSE((AttributeMap{{u"a"_s, u"1"_s}}) == (AttributeMap{{u"b"_s, u"1"_s}}));
    EXPECT_FALSE((AttributeMap{{u"a"_s, u"1"_s}}) == AttributeMap());
}

TEST(MergeAttributes, the_source_wins)
{
    AttributeMap target{{u"a"_s, u"1"_s}, {u"b"_s, u"2"_s}};
    mergeAttributes(target, {{u"b"_s, u"3"_s}, {u"c"_s, u"4"_s}});
    EXPECT_EQ(target, (AttributeMap{{u"a"_s, u"1"_s}, {u"b"_s, u"3"_s}, {u"c"_s, u"4"_s}}));
}

TEST(MergeAttributes, of_itself_or_of_nothing_changes_nothing)
{
    AttributeMap map{{u"a"_s, u"1"_s}};
    mergeAttributes(map, map);
    mergeAttributes(map, {});
    EXPECT_EQ(map, (AttributeMap{{u"a"_s, u"1"_s}}));
}

TEST(MergeAttributes, into_an_empty_map_shares_and_stays_apart)
{
    const AttributeMap source{{u"a"_s, u"1"_s}};
    AttributeMap target;
    mergeAttributes(target, source);
    EXPECT_EQ(target, source);
    target.insert(u"a"_s, u"2"_s);
    EXPECT_EQ(source.value(u"a"_s), "1");
}
