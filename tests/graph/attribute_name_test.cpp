#include "graph/attribute_name.h"

#include <gtest/gtest.h>

#include <memory>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(AttributeName, a_word_of_the_vocabulary_is_one_name_whoever_spells_it)
{
    const AttributeName spelled(u"area"_s);
    const AttributeName known("area"_attribute);
    EXPECT_TRUE(spelled.isKnown());
    EXPECT_EQ(spelled, known);
    EXPECT_EQ(&spelled.text(), &known.text());
    EXPECT_EQ(known.text(), u"area"_s);
}

TEST(AttributeName, every_word_of_the_vocabulary_is_known)
{
    for (const std::string_view word : attributeVocabulary) {
        const QString text = QString::fromLatin1(word.data(), qsizetype(word.size()));
        EXPECT_TRUE(AttributeName(text).isKnown()) << word;
        EXPECT_EQ(AttributeName(text).text(), text);
    }
}

TEST(AttributeName, other_names_are_equal_by_their_text)
{
    const AttributeName one(u"href"_s);
    const AttributeName same(QString(u"hr"_s + u"ef"_s));
    EXPECT_FALSE(one.isKnown());
    EXPECT_EQ(one, same);
    EXPECT_NE(one, AttributeName(u"Area"_s));
    EXPECT_NE(one, AttributeName("area"_attribute));
    EXPECT_EQ(qHash(one, 1), qHash(same, 1));
}

TEST(AttributeName, copies_share_a_text_that_lives_as_long_as_the_last)
{
    auto first = std::make_unique<AttributeName>(u"href"_s);
    AttributeName copy = *first;
    EXPECT_EQ(&copy.text(), &first->text());
    AttributeName moved = std::move(*first);
    first.reset();
    copy = "area"_attribute;
    EXPECT_EQ(moved.text(), u"href"_s);
    copy = moved;
    moved = AttributeName(u"other"_s);
    EXPECT_EQ(copy.text(), u"href"_s);
}

TEST(AttributeName, a_null_or_empty_text_is_a_name_of_its_own)
{
    EXPECT_FALSE(AttributeName(QString()).isKnown());
    EXPECT_EQ(AttributeName(QString()), AttributeName(u""_s));
    EXPECT_NE(AttributeName(QString()), AttributeName("a0"_attribute));
}
