#include "driver/hostile_texts.h"

using namespace Qt::StringLiterals;

const QStringList hostileTexts{
    u"<img src='%1'>"_s,
    u"<IMG SRC=\"%1\" width=20 height=10>"_s,
    u"<img src='file://%1'>"_s,
    u"<img source=%1 align=left>text"_s,
    u"<img src='&#47;..&#x2f;..%1'>"_s,
    u"<img src='%1' alt='%1' title='%1'>"_s,
    u"<img src='data:image/png;base64,AAAA,%1'><img src='data:text/html,%1'>"_s,
    u"<img src=\"data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg' "
    "xmlns:xlink='http://www.w3.org/1999/xlink'><image width='9' height='9' "
    "xlink:href='%1'/></svg>\">"_s,
    u"<link rel='stylesheet' type='text/css' href='%1'><p>a"_s,
    u"<link type=text/css href='file://%1'>a"_s,
    u"<style>@import url(%1);</style><p>a"_s,
    u"<style>@import '%1';</style><p>a"_s,
    u"<style>p { background-image: url(%1) }</style><p>a</p>"_s,
    u"<p style='background-image: url(%1)'>a"_s,
    u"<p style='background: url(\"%1\") red; list-style-image: url(%1)'>a"_s,
    u"<ul style='list-style: url(%1)'><li>a</ul>"_s,
    u"<table background='%1'><tr background='%1'><td background='%1'>a</table>"_s,
    u"<body background='%1'>a"_s,
    u"<base href='file:///'><img src='%1'>"_s,
    u"<object data='%1'></object><embed src='%1'><iframe src='%1'></iframe>"_s,
    u"<script src='%1'></script><video src='%1'></video>a"_s,
    u"<a href='%1'>a</a><a name='%1'>b</a>"_s,
    u"<font face='%1'>a</font><span style='font-family: url(%1)'>b</span>"_s,
    u"<style>@font-face { font-family: x; src: url(%1) }</style><font face=x>a</font>"_s,
    u"<meta http-equiv=refresh content='0; url=%1'>a"_s,
    u"<!--StartFragment--><img src='%1'><!--EndFragment-->"_s,
    u"<span style='color: red; border-image: url(%1); image: url(%1)'>a</span>"_s,
    u"%1"_s,
};

namespace {

QByteArray counted(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    QByteArray quoted = bytes;
    return QByteArray::number(bytes.size()) + " -" + quoted.replace('"', "\\\"");
}

} // namespace

QByteArray drawingOf(const QStringList &texts, const QByteArray &op)
{
    QByteArray graph = "digraph {\n graph [bb=\"0,0,300,300\" xdotversion=\"1.2\"];\n";
    for (qsizetype i = 0; i < texts.size(); ++i)
        graph += " n" + QByteArray::number(i) + " [_ldraw_=\"F 12 5 -Arial c 3 -red " + op
            + " 20 100 -1 50 " + counted(texts.at(i)) + "\"];\n";
    return graph + "}\n";
}
