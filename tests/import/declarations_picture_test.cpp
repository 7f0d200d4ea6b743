#include "companion/produce/declarations_picture.h"

#include "companion/produce/palette.h"
#include "import/imported.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace ORR::Companion;

namespace {

Declarations manyTypes(int types, int members)
{
    Declarations declarations;
    for (int i = 0; i < types; ++i) {
        const int made = declarations.declare(QStringLiteral("n::Type%1").arg(i), "class");
        for (int m = 0; m < members; ++m)
            declarations.addMember(
                made, {QStringLiteral("member%1").arg(m), Declarations::Access(m % 4), m});
        if (i > 0)
            declarations.inherit(made, i / 2);
    }
    return declarations;
}

} // namespace

TEST(Declarations, have_each_member_and_base_once)
{
    Declarations declarations = manyTypes(2, 3);
    declarations.addMember(0, {"member1", Declarations::Public, 9});
    declarations.inherit(1, 0);
    declarations.inherit(1, 1);
    EXPECT_EQ(declarations.all()[0].members.size(), 3);
    EXPECT_EQ(declarations.all()[1].bases, (QList<int>{0}));
}

TEST(DeclarationsPicture, leaves_out_the_scope_that_all_are_in)
{
    const auto drawn = drawnImport(DeclarationsPicture(manyTypes(2, 3)), "gfdecl");
    EXPECT_TRUE(drawn.text.contains("label=\"Type0\""));
    EXPECT_TRUE(drawn.text.contains("label=\"protected\""));
    EXPECT_EQ(drawn.text.count(" -> "), 1);
}

TEST(DeclarationsPicture, has_fills_that_any_reader_tells_apart)
{
    Declarations declarations = manyTypes(1, 4);
    for (const char *kind : {"enum", "interface", "file"})
        declarations.declare(QString::fromLatin1(kind), kind);
    const QString text = drawnImport(DeclarationsPicture(declarations), "gfdecl").text;
    static const QRegularExpression fillOf(QStringLiteral("fillcolor=\"(#[0-9A-F]{6})\""));
    QSet<QByteArray> fills;
    for (const QRegularExpressionMatch &match : fillOf.globalMatch(text))
        fills.insert(match.captured(1).toLatin1());
    EXPECT_EQ(fills.size(), 7); // four kinds, three sorts of access
    for (auto one = fills.cbegin(); one != fills.cend(); ++one) {
        for (auto other = std::next(one); other != fills.cend(); ++other)
            EXPECT_GE(deuteranopeDistance(*one, *other), 10)
                << one->constData() << ' ' << other->constData();
    }
}

TEST(DeclarationsPicture, leaves_out_members_ahead_of_types)
{
    const auto drawn = drawnImport(DeclarationsPicture(manyTypes(12, 60)), "gfdecl");
    EXPECT_LE(drawn.size.width(), 1200);
    EXPECT_LE(drawn.size.height(), 800);
    EXPECT_TRUE(drawn.text.contains("of 60 members"));
    EXPECT_TRUE(drawn.text.contains("label=\"Type11\""));
    EXPECT_TRUE(drawn.notes.isEmpty());
}

TEST(DeclarationsPicture, leaves_out_types_and_tells_it)
{
    const auto drawn = drawnImport(DeclarationsPicture(manyTypes(500, 10)), "gfdecl");
    EXPECT_LE(drawn.size.width(), 1200);
    EXPECT_LE(drawn.size.height(), 800);
    ASSERT_EQ(drawn.notes.size(), 1);
    EXPECT_TRUE(drawn.notes[0].endsWith(u"of 500 declarations have no room and are left out."));
}

TEST(DeclarationsPicture, takes_types_that_inherit_themselves_in_a_circle)
{
    Declarations circle = manyTypes(3, 1);
    circle.inherit(0, 2);
    const auto drawn = drawnImport(DeclarationsPicture(circle), "gfdecl");
    EXPECT_TRUE(drawn.size.isValid());
    for (const char *name : {"Type0", "Type1", "Type2"})
        EXPECT_TRUE(drawn.text.contains(QByteArray("label=\"") + name + '"')) << name;
}
