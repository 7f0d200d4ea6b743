// The fonts that all goldens were drawn with. Where another one answers, this says so, in place of
// some hundred drawings that differ.
#include <gtest/gtest.h>

#include <QRawFont>
#include <QtEndian>

using namespace Qt::StringLiterals;

TEST(PinnedFonts, one_family_answers_for_all)
{
    for (const QString &family : {u"Arial"_s, u"Times"_s, u"no such family"_s})
        EXPECT_EQ(QRawFont::fromFont(QFont(family)).familyName(), "Liberation Sans");
}

TEST(PinnedFonts, are_of_version_1_07)
{
    for (const int style : {0, 1, 2, 3}) {
        QFont font(u"Arial"_s);
        font.setBold(style & 1);
        font.setItalic(style & 2);
        // Its revision stands at byte 4 of the table, as a fixed-point number of 16 and 16 bits.
        const QByteArray head = QRawFont::fromFont(font).fontTable("head");
        ASSERT_GE(head.size(), 8);
        EXPECT_NEAR(qFromBigEndian<quint32>(head.constData() + 4) / 65536.0, 1.07, 0.001)
            << "the package fonts-liberation has another version here than the goldens";
    }
}
