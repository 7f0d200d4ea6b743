#include "output/visio/visio_markup.h"

#include "output/visio/visio_cells.h"
#include "output/xml_text.h"
#include "support/golden.h"

#include <QDomDocument>

#include <cmath>
#include <limits>
#include <random>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// The element with one attribute and a text, as the toolkit's document writer has it.
QByteArray written(const QString &value, const QString &content)
{
    QDomDocument document;
    QDomElement outer = document.createElement(u"Outer"_s);
    QDomElement inner = document.createElement(u"Inner"_s);
    inner.setAttribute(u"V"_s, value);
    inner.appendChild(document.createTextNode(content));
    outer.appendChild(inner);
    document.appendChild(outer);
    return document.toByteArray(1);
}

QByteArray built(const QString &value, const QString &content)
{
    VisioMarkup markup(0);
    markup.open("Outer");
    markup.text("Inner", {{"V", xmlEscaped(value, XmlForm::DocumentAttribute)}},
                xmlEscaped(content, XmlForm::DocumentText));
    markup.close("Outer");
    return markup.markup();
}

} // namespace

TEST(VisioMarkup, has_the_form_of_the_document_writer)
{
    for (const QString &text :
         {u""_s, u"plain"_s, u"a<b>c&d\"e'f"_s, u"]]>"_s, u"tab\tline\nreturn\r"_s,
          u"\u00e9\u4e2d"_s, QString::fromUtf8("\xF0\x9F\x98\x80")}) {
        EXPECT_EQ(built(text, text), written(text, text));
    }
}

TEST(VisioMarkup, nests_by_a_blank_a_level)
{
    VisioMarkup markup(2);
    markup.open("A", {{"X", "1"}, {"Y", "2"}});
    markup.empty("B", {{"Z", "3"}});
    markup.close("A");
    EXPECT_EQ(markup.markup(), "  <A X=\"1\" Y=\"2\">\n   <B Z=\"3\"/>\n  </A>\n"_ba);
}

TEST(VisioMarkup, leaves_out_what_a_document_cannot_hold)
{
    const QString text = u"a"_s + QChar(0x01) + QChar(0xD800) + QChar(0xFFFE) + u"b"_s;
    EXPECT_EQ(xmlEscaped(text, XmlForm::DocumentAttribute), "ab"_ba);
    EXPECT_EQ(xmlEscaped(text, XmlForm::DocumentText), "ab"_ba);
}

TEST(VisioMarkup, doubles_the_quotes_of_a_text_in_a_formula)
{
    EXPECT_EQ(visioQuoted(u"a\"b"_s), u"a\"\"b"_s);
}

TEST(VisioNumber, is_that_of_a_document_attribute)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> any(-1e6, 1e6);
    QDomElement element = QDomDocument().createElement(u"E"_s);
    QList<double> values{0.0, 1.0 / 3.0, 11 / 72.0, 1e-5, 1e20, 1e15, 123456789.123, -2.5};
    for (int i = 0; i < 2000; ++i)
        values.append(any(random) / 72.0);
    for (const double value : values) {
        element.setAttribute(u"V"_s, value);
        EXPECT_EQ(visioNumber(value), element.attribute(u"V"_s).toLatin1());
    }
}

TEST(VisioNumber, has_six_digits_in_a_formula)
{
    EXPECT_EQ(visioShort(2.0 / 3.0), "0.666667"_ba);
    EXPECT_EQ(visioShort(1234567.0), "1.23457e+06"_ba);
}

TEST(VisioNumber, of_what_is_none_is_0)
{
    for (const double value : {std::nan(""), std::numeric_limits<double>::infinity(), -0.0}) {
        EXPECT_EQ(visioNumber(value), "0"_ba);
        EXPECT_EQ(visioShort(value), "0"_ba);
    }
}
