#include "graph/id_index.h"

#include <gtest/gtest.h>

#include <deque>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

struct Record
{
    QString id;
};

} // namespace

TEST(IdIndex, finds_nothing_while_it_is_empty)
{
    const IdIndex<Record> index;
    EXPECT_EQ(index.find(u"a"), nullptr);
    EXPECT_TRUE(index.records().isEmpty());
}

TEST(IdIndex, finds_every_record_while_it_grows)
{
    std::deque<Record> records;
    IdIndex<Record> index;
    for (int i = 0; i < 5000; ++i) {
        Record *record = &records.emplace_back(Record{u"n%1"_s.arg(i)});
        EXPECT_EQ(index.find(record->id), nullptr);
        index.insert(record);
        EXPECT_EQ(index.find(record->id), record);
    }
    for (Record &record : records)
        EXPECT_EQ(index.find(record.id), &record);
    EXPECT_EQ(index.find(u"n5000"), nullptr);
    EXPECT_EQ(index.records().size(), 5000);
}

TEST(IdIndex, of_several_records_with_one_id_the_newest_is_found)
{
    Record older{u"a"_s};
    Record newer{u"a"_s};
    Record empty{u""_s};
    IdIndex<Record> index;
    index.insert(&older);
    index.insert(&newer);
    index.insert(&empty);
    EXPECT_EQ(index.find(u"a"), &newer);
    EXPECT_EQ(index.find(u""), &empty);
    EXPECT_EQ(index.records().size(), 2);
}

// Ids that differ in their last digit come to places side by side, and with them whatever else
// comes there.
TEST(IdIndex, numbered_ids_are_told_from_each_other)
{
    std::deque<Record> records;
    IdIndex<Record> index;
    for (int i = 0; i < 2000; ++i) {
        for (const QString &id : {QString::number(i), u"n%1"_s.arg(i), u"%1n"_s.arg(i),
                                  u"0%1"_s.arg(i), QString::number(i) + u"\u0661"_s})
            index.insert(&records.emplace_back(Record{id}));
    }
    for (Record &record : records)
        EXPECT_EQ(index.find(record.id), &record) << record.id.toStdString();
    EXPECT_EQ(index.records().size(), 10000);
}

TEST(IdIndex, a_place_is_that_of_the_record_or_of_the_one_to_come)
{
    Record a{u"a"_s};
    IdIndex<Record> index;
    Record *&place = index.placeFor(u"a");
    EXPECT_EQ(place, nullptr);
    place = &a;
    EXPECT_EQ(index.find(u"a"), &a);
    EXPECT_EQ(index.placeFor(u"a"), &a);
    EXPECT_EQ(index.records().size(), 1);
}
