#include "visio_reading.h"

#include "support/golden.h"

#include <QDomNodeList>
#include <QFile>
#include <QStringList>

#include <unzip.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

QMap<QString, QByteArray> readPackage(const QString &path)
{
    QMap<QString, QByteArray> parts;
    unzFile zip = unzOpen(QFile::encodeName(path).constData());
    if (!zip) {
        ADD_FAILURE() << "no zip file: " << path.toStdString();
        return parts;
    }
    for (int at = unzGoToFirstFile(zip); at == UNZ_OK; at = unzGoToNextFile(zip)) {
        unz_file_info info{};
        char name[256] = {};
        unzGetCurrentFileInfo(zip, &info, name, sizeof name, nullptr, 0, nullptr, 0);
        QByteArray bytes(static_cast<qsizetype>(info.uncompressed_size), '\0');
        EXPECT_EQ(unzOpenCurrentFile(zip), UNZ_OK);
        EXPECT_EQ(unzReadCurrentFile(zip, bytes.data(), static_cast<unsigned>(bytes.size())),
                  bytes.size());
        EXPECT_EQ(unzCloseCurrentFile(zip), UNZ_OK);
        parts.insert(QString::fromUtf8(name), bytes);
    }
    unzClose(zip);
    return parts;
}

QDomDocument parsed(const QByteArray &xml)
{
    QDomDocument document;
    QString message;
    int line = 0;
    EXPECT_TRUE(document.setContent(xml, &message, &line))
        << message.toStdString() << " in line " << line;
    return document;
}

QList<QDomElement> elementsWithin(const QDomElement &element, const QString &name)
{
    QList<QDomElement> found;
    const QDomNodeList nodes = element.elementsByTagName(name);
    for (int i = 0; i < nodes.count(); ++i)
        found.append(nodes.at(i).toElement());
    return found;
}

QList<QDomElement> shapesOf(const QDomDocument &document)
{
    return elementsWithin(document.documentElement(), u"Shape"_s);
}

QDomElement shapeById(const QDomDocument &document, int id)
{
    for (const QDomElement &shape : shapesOf(document)) {
        if (shape.attribute(u"ID"_s) == QString::number(id))
            return shape;
    }
    return {};
}

QDomElement cellOf(const QDomElement &element, const QString &name)
{
    for (QDomElement cell = element.firstChildElement(u"Cell"_s); !cell.isNull();
         cell = cell.nextSiblingElement(u"Cell"_s)) {
        if (cell.attribute(u"N"_s) == name)
            return cell;
    }
    return {};
}

QString valueOf(const QDomElement &element, const QString &name)
{
    return cellOf(element, name).attribute(u"V"_s);
}

QString formulaOf(const QDomElement &element, const QString &name)
{
    return cellOf(element, name).attribute(u"F"_s);
}

QDomElement sectionOf(const QDomElement &shape, const QString &name)
{
    for (QDomElement section = shape.firstChildElement(u"Section"_s); !section.isNull();
         section = section.nextSiblingElement(u"Section"_s)) {
        if (section.attribute(u"N"_s) == name)
            return section;
    }
    return {};
}

QList<QDomElement> rowsOf(const QDomElement &section)
{
    QList<QDomElement> rows;
    for (QDomElement row = section.firstChildElement(u"Row"_s); !row.isNull();
         row = row.nextSiblingElement(u"Row"_s)) {
        rows.append(row);
    }
    return rows;
}

QStringList outlineOf(const QDomElement &shape)
{
    QStringList outline;
    for (const QDomElement &row : rowsOf(sectionOf(shape, u"Geometry"_s))) {
        outline += u"%1 %2,%3"_s.arg(row.attribute(u"T"_s))
                       .arg(valueOf(row, u"X"_s).toDouble() * 72.0)
                       .arg(valueOf(row, u"Y"_s).toDouble() * 72.0);
    }
    return outline;
}

QDomElement childAt(const QDomElement &shape, const QString &path)
{
    QDomElement element = shape;
    for (const QString &name : path.split(u'/'))
        element = element.firstChildElement(name);
    return element;
}

QString textAt(const QDomElement &shape, const QString &path)
{
    return childAt(shape, path).text();
}

QString formulaAt(const QDomElement &shape, const QString &path)
{
    return childAt(shape, path).attribute(u"F"_s);
}

PackageDrawing::PackageDrawing(const QString &templateDirectory)
    : device(folder.filePath(u"drawing.vsdx"_s), templateDirectory)
{
}

QMap<QString, QByteArray> PackageDrawing::parts()
{
    EXPECT_EQ(device.end(), QString());
    return readPackage(path());
}

QDomDocument PackageDrawing::page()
{
    return parsed(parts().value(u"visio/pages/page1.xml"_s));
}

XmlDrawing::XmlDrawing() : device(folder.filePath(u"drawing.vdx"_s)) { }

QByteArray XmlDrawing::bytes()
{
    EXPECT_EQ(device.end(), QString());
    return readTestFile(path());
}

QDomDocument XmlDrawing::document()
{
    return parsed(bytes());
}

SmallGraph::SmallGraph()
    : cluster(graph.createCluster(graph.root(), QString(), u"cluster"_s)),
      a(graph.createNode(cluster, QString(), u"a"_s)),
      b(graph.createNode(cluster, QString(), u"b"_s)),
      c(graph.createNode(graph.root(), QString(), u"c"_s)), ab(graph.createEdge(a, b, QString())),
      bc(graph.createEdge(b, c, QString()))
{
}
