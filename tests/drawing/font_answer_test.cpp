#include "drawing/font_answer.h"

#include "support/golden.h"

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

// The fonts of the tests are those that are installed with the program.
TEST(FontAnswer, is_another_family_where_there_is_no_such_font)
{
    EXPECT_EQ(replacingFamily(u"Courier"_s), u"Liberation Sans"_s);
    EXPECT_EQ(replacingFamily(u"no \"such\" font"_s), u"Liberation Sans"_s);
    EXPECT_EQ(replacingFamily(QString(10000, u'x')), u"Liberation Sans"_s);
}

TEST(FontAnswer, is_meant_where_the_configuration_has_an_equal_one)
{
    for (const QString &family :
         {u"Arial"_s, u"ARIAL"_s, u"Helvetica"_s, u"Liberation Sans"_s, u"liberation sans"_s})
        EXPECT_EQ(replacingFamily(family), QString()) << family.toStdString();
}

TEST(FontAnswer, is_never_another_family_where_none_is_asked_for)
{
    for (const QString &kind : {u"sans-serif"_s, u"Serif"_s, u"monospace"_s, QString()})
        EXPECT_EQ(replacingFamily(kind), QString()) << kind.toStdString();
}
