#include "attributes/attribute_row.h"

#include "support/golden.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(AttributeRow, counts_the_words_of_a_choice_in_their_order)
{
    static constexpr AttributeWord words[] = {{"left", ""}, {"right", ""}, {"", ""}};
    EXPECT_EQ(wordIn(words, u"left"_s), 0);
    EXPECT_EQ(wordIn(words, u"right"_s), 1);
    EXPECT_EQ(wordIn(words, u""_s), 2);
    EXPECT_EQ(wordIn(words, u"righ"_s), -1);
    EXPECT_EQ(wordIn({}, u"left"_s), -1);
}

TEST(AttributeRow, has_a_name_for_every_element)
{
    EXPECT_EQ(elementName(AttributeElement::Root), u"root"_s);
    EXPECT_EQ(elementName(AttributeElement::Cluster), u"cluster"_s);
    EXPECT_EQ(elementName(AttributeElement::Node), u"node"_s);
    EXPECT_EQ(elementName(AttributeElement::Edge), u"edge"_s);
}

TEST(AttributeRow, has_a_name_of_its_own_for_every_type)
{
    QStringList names;
    for (const AttributeType type :
         {AttributeType::Number, AttributeType::Integer, AttributeType::Inches,
          AttributeType::NumberPair, AttributeType::InchPair, AttributeType::Color,
          AttributeType::Choice, AttributeType::Words, AttributeType::Text})
        names += typeName(type);
    EXPECT_EQ(names.removeDuplicates(), 0);
    EXPECT_FALSE(names.contains(QString()));
}

TEST(AttributeRow, calls_a_lookup_what_it_is_for_the_element)
{
    EXPECT_EQ(lookupName(AttributeLookup::Own, AttributeElement::Node), u"own"_s);
    EXPECT_EQ(lookupName(AttributeLookup::Own, AttributeElement::Cluster), u"own"_s);
    EXPECT_EQ(lookupName(AttributeLookup::Inherited, AttributeElement::Cluster), u"inherited"_s);
    EXPECT_EQ(lookupName(AttributeLookup::Inherited, AttributeElement::Node),
              u"default of its kind"_s);
    EXPECT_EQ(lookupName(AttributeLookup::Inherited, AttributeElement::Edge),
              u"default of its kind"_s);
    EXPECT_EQ(lookupName(AttributeLookup::Inherited, AttributeElement::Root), u"own"_s);
    EXPECT_EQ(lookupName(AttributeLookup::OwnOrNodeDefault, AttributeElement::Root),
              u"own or node default"_s);
    EXPECT_EQ(lookupName(AttributeLookup::OwnOrNodeDefault, AttributeElement::Cluster),
              u"own or node default"_s);
}
