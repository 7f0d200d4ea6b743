#include "visio_reading.h"

#include "output/visio/visio_package.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// A drawing with something of everything.
void drawMixture(Device &device, const SmallGraph &graph)
{
    device.begin(720, 360);
    Device::Pen *pen = device.pen(device.color(u"red"_s), 1, 2);
    device.beginCluster(graph.cluster, true);
    device.drawRect({0, 0}, {400, 300}, 0, pen, device.color(u"#eeeeff"_s));
    device.beginNode(graph.a);
    device.drawEllipse({100, 100}, 50, 20, pen, device.color(u"yellow"_s));
    device.drawText({80, 90}, device.text(u"a <node> & \"more\""_s, nullptr, nullptr));
    device.endNode();
    device.beginNode(graph.b);
    device.drawRect({200, 150}, {300, 200}, 5, pen, nullptr);
    device.endNode();
    device.endCluster();
    device.beginNode(graph.c);
    Device::Path *path = device.createPath();
    path->moveTo({500, 100});
    path->arcTo({450, 50}, {550, 150}, 20, 300);
    path->closeSubpath();
    device.drawPath(path, pen, device.color(u"lime"_s));
    device.endNode();
    device.beginEdge(graph.ab);
    device.drawBezier({{150, 100}, {200, 100}, {250, 120}, {250, 150}}, pen, nullptr);
    device.endEdge();
    device.connect(graph.ab, graph.a, graph.b);
    device.beginEdge(graph.bc);
    device.drawPolyline({{300, 175}, {450, 100}}, pen);
    device.endEdge();
    device.connect(graph.bc, graph.b, graph.c);
    device.drawText({600, 300}, device.text(u"loose"_s, nullptr, nullptr));
}

// Whether each sheet that a formula names is that of a shape.
void expectSheetsExist(const QDomDocument &document)
{
    QSet<QString> ids;
    for (const QDomElement &shape : shapesOf(document)) {
        EXPECT_FALSE(ids.contains(shape.attribute(u"ID"_s)));
        ids.insert(shape.attribute(u"ID"_s));
    }
    static const QRegularExpression sheet(u"Sheet\\.(\\d+)!"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    int named = 0;
    const QString text = document.toString();
    for (auto it = sheet.globalMatch(text); it.hasNext(); ++named) {
        const QString id = it.next().captured(1);
        EXPECT_TRUE(ids.contains(id)) << id.toStdString();
    }
    EXPECT_GT(named, 10);
}

QString relationshipTarget(const QString &relsPart, const QString &target)
{
    // "visio/_rels/document.xml.rels" speaks for "visio/".
    const QString folder = QFileInfo(QFileInfo(relsPart).path()).path();
    return QDir::cleanPath(folder + u'/' + target);
}

} // namespace

TEST(VisioPackage, every_part_is_well_formed_and_named_as_the_template_has_it)
{
    PackageDrawing drawing;
    SmallGraph graph;
    drawMixture(drawing.device, graph);
    const QMap<QString, QByteArray> parts = drawing.parts();
    EXPECT_EQ(parts.keys().join(u' '),
              u"[Content_Types].xml _rels/.rels visio/_rels/document.xml.rels visio/document.xml "
              "visio/pages/_rels/pages.xml.rels visio/pages/page1.xml visio/pages/pages.xml "
              "visio/windows.xml"_s);
    for (const QByteArray &part : parts) {
        QXmlStreamReader reader(part);
        while (!reader.atEnd())
            reader.readNext();
        EXPECT_EQ(reader.errorString(), QString());
    }
}

TEST(VisioPackage, relationships_and_content_types_name_parts_that_are_there)
{
    PackageDrawing drawing;
    drawing.device.begin(72, 72);
    const QMap<QString, QByteArray> parts = drawing.parts();
    int targets = 0;
    for (auto part = parts.constBegin(); part != parts.constEnd(); ++part) {
        const QDomElement root = parsed(part.value()).documentElement();
        for (const QDomElement &relation : elementsWithin(root, u"Relationship"_s)) {
            const QString target = relationshipTarget(part.key(), relation.attribute(u"Target"_s));
            EXPECT_TRUE(parts.contains(target)) << target.toStdString();
            ++targets;
        }
        for (const QDomElement &type : elementsWithin(root, u"Override"_s))
            EXPECT_TRUE(parts.contains(type.attribute(u"PartName"_s).mid(1)));
    }
    EXPECT_EQ(targets, 4);
}

TEST(VisioPackage, numbers_are_unique_and_every_sheet_of_a_formula_exists)
{
    SmallGraph graph;
    PackageDrawing package;
    drawMixture(package.device, graph);
    expectSheetsExist(package.page());
    XmlDrawing xml;
    drawMixture(xml.device, graph);
    expectSheetsExist(xml.document());
}

TEST(VisioPackage, the_same_drawing_gives_the_same_bytes)
{
    SmallGraph graph;
    QList<QByteArray> packages;
    QList<QByteArray> files;
    for (int k = 0; k < 2; ++k) {
        PackageDrawing package;
        drawMixture(package.device, graph);
        EXPECT_EQ(package.device.end(), QString());
        packages.append(readTestFile(package.path()));
        XmlDrawing xml;
        drawMixture(xml.device, graph);
        files.append(xml.bytes());
    }
    EXPECT_EQ(packages.at(0), packages.at(1));
    EXPECT_EQ(files.at(0), files.at(1));
}

TEST(VisioPackage, time_stamps_are_the_first_that_a_zip_file_knows)
{
    PackageDrawing drawing;
    drawing.device.begin(72, 72);
    EXPECT_EQ(drawing.device.end(), QString());
    const QByteArray bytes = readTestFile(drawing.path());
    // Local header: signature, version, flags, method, time, date.
    EXPECT_EQ(bytes.first(4), QByteArray("PK\x03\x04"));
    EXPECT_EQ(bytes.mid(8, 2).toHex(), "0800"_ba); // deflated
    EXPECT_EQ(bytes.mid(10, 2).toHex(), "0000"_ba);
    EXPECT_EQ(bytes.mid(12, 2).toHex(), "2100"_ba); // the first of January 1980
}

TEST(VisioPackage, a_file_that_cannot_be_opened_is_said_at_the_end)
{
    VisioVSDX package(u"/nowhere/at/all.vsdx"_s, QStringLiteral(ORR_VISIO_TEMPLATE));
    package.begin(72, 72);
    package.drawRect({0, 0}, {9, 9}, 0, nullptr, nullptr);
    EXPECT_EQ(package.end(), u"Couldn't open output file for writing\n"_s);
    VisioXML xml(u"/nowhere/at/all.vdx"_s);
    xml.begin(72, 72);
    xml.drawRect({0, 0}, {9, 9}, 0, nullptr, nullptr);
    EXPECT_EQ(xml.end(), u"Unable to write to file\n"_s);
}

TEST(VisioPackage, a_full_disk_is_said_at_the_end)
{
    if (!QFile::exists(u"/dev/full"_s))
        GTEST_SKIP() << "no full device here";
    // Small enough to fit into buffers until the file is closed, and too large for that.
    for (const int rectangles : {1, 20000}) {
        VisioVSDX package(u"/dev/full"_s, QStringLiteral(ORR_VISIO_TEMPLATE));
        package.begin(72, 72);
        VisioXML xml(u"/dev/full"_s);
        xml.begin(72, 72);
        for (int i = 0; i < rectangles; ++i) {
            package.drawRect({0, i}, {i * 7919 % 1000, i * 31 % 997}, 0, nullptr, nullptr);
            xml.drawRect({0, i}, {9, 9}, 0, nullptr, nullptr);
        }
        EXPECT_EQ(package.end(), u"Unable to save file. Error code -1\n"_s);
        EXPECT_EQ(xml.end(), u"Unable to write to file\n"_s);
    }
}

TEST(VisioPackage, a_template_that_is_missing_or_damaged_does_not_end_the_run)
{
    QTemporaryDir damaged;
    QDir().mkpath(damaged.filePath(u"visio/pages"_s));
    const auto put = [&](const QString &name, const QByteArray &bytes) {
        QFile file(damaged.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    };
    put(u"visio/pages/page1.xml"_s, "<PageContents><Shapes>");
    put(u"visio/pages/pages.xml"_s, "no xml");
    put(u"visio/windows.xml"_s, QByteArray());
    SmallGraph graph;
    for (const QString &folder : {u"/nowhere"_s, QString(), damaged.path()}) {
        PackageDrawing drawing(folder);
        drawMixture(drawing.device, graph);
        const QMap<QString, QByteArray> parts = drawing.parts();
        EXPECT_EQ(parts.size(), 8);
        for (const QByteArray &part : parts)
            EXPECT_EQ(part, QByteArray());
    }
}

TEST(VisioPackage, a_page_that_has_connections_already_keeps_them)
{
    QTemporaryDir folder;
    QDir().mkpath(folder.filePath(u"visio/pages"_s));
    QFile file(folder.filePath(u"visio/pages/page1.xml"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<PageContents><Connects><Connect Own=\"1\"/></Connects></PageContents>");
    file.close();
    PackageDrawing drawing(folder.path());
    SmallGraph graph;
    drawMixture(drawing.device, graph);
    const QDomDocument page = drawing.page();
    const QDomElement root = page.documentElement();
    EXPECT_EQ(elementsWithin(root, u"Connects"_s).size(), 1);
    const QList<QDomElement> connects = elementsWithin(root, u"Connect"_s);
    ASSERT_EQ(connects.size(), 5);
    EXPECT_EQ(connects.at(0).attribute(u"Own"_s), u"1"_s);
    EXPECT_EQ(shapesOf(page).size(), 7);
}

TEST(VisioPackage, a_drawing_that_never_began_has_no_shapes)
{
    PackageDrawing drawing;
    drawing.device.drawRect({0, 0}, {9, 9}, 0, nullptr, nullptr);
    EXPECT_TRUE(shapesOf(drawing.page()).isEmpty());
    XmlDrawing xml;
    SmallGraph graph;
    xml.device.beginCluster(graph.cluster, true);
    xml.device.drawRect({0, 0}, {9, 9}, 0, nullptr, nullptr);
    xml.device.endCluster();
    EXPECT_TRUE(shapesOf(xml.document()).isEmpty());
}
