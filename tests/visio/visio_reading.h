#pragma once

#include "output/visio/visio_vsdx.h"
#include "output/visio/visio_xml.h"

#include <QByteArray>
#include <QDomDocument>
#include <QDomElement>
#include <QList>
#include <QMap>
#include <QString>
#include <QTemporaryDir>

// What the tests of the Visio devices read back: the parts of a package, and elements by what they
// are for.

// The parts of a zip file by name; a failed assertion if it is none.
QMap<QString, QByteArray> readPackage(const QString &path);

// The whole text as a document; a failed assertion if it is not well-formed.
QDomDocument parsed(const QByteArray &xml);

// All elements of a name within the element, in document order.
QList<QDomElement> elementsWithin(const QDomElement &element, const QString &name);

// The Shape element with the number; null if there is none.
QDomElement shapeById(const QDomDocument &document, int id);
QList<QDomElement> shapesOf(const QDomDocument &document);

// A package's cell of a shape, section or row: its element, null if there is none, and its value
// and formula.
QDomElement cellOf(const QDomElement &element, const QString &name);
QString valueOf(const QDomElement &element, const QString &name);
QString formulaOf(const QDomElement &element, const QString &name);
QDomElement sectionOf(const QDomElement &shape, const QString &name);
QList<QDomElement> rowsOf(const QDomElement &section);
// "MoveTo 0,1" for each row of the Geometry section, places in points from the lower left.
QStringList outlineOf(const QDomElement &shape);

// A single-file drawing's element by a path of names from the shape ("XForm/PinX"): its text and
// its formula.
QDomElement childAt(const QDomElement &shape, const QString &path);
QString textAt(const QDomElement &shape, const QString &path);
QString formulaAt(const QDomElement &shape, const QString &path);

// A drawing to a temporary file with one of the devices.
class PackageDrawing
{
public:
    explicit PackageDrawing(const QString &templateDirectory = QStringLiteral(ORR_VISIO_TEMPLATE));

    QString path() const { return folder.filePath(QStringLiteral("drawing.vsdx")); }
    // Ends the drawing, which has to work, and reads it.
    QMap<QString, QByteArray> parts();
    QDomDocument page();

private:
    QTemporaryDir folder;

public:
    ORR::Graph::VisioVSDX device;
};

class XmlDrawing
{
public:
    XmlDrawing();

    QString path() const { return folder.filePath(QStringLiteral("drawing.vdx")); }
    QByteArray bytes();
    QDomDocument document();

private:
    QTemporaryDir folder;

public:
    ORR::Graph::VisioXML device;
};

// A graph of two nodes in a cluster, one outside, and two edges, to begin objects for.
struct SmallGraph
{
    SmallGraph();

    ORR::Graph::DotGraph graph;
    ORR::Graph::DotSubgraph *cluster;
    ORR::Graph::DotNode *a; // in the cluster
    ORR::Graph::DotNode *b;
    ORR::Graph::DotNode *c; // outside
    ORR::Graph::DotEdge *ab;
    ORR::Graph::DotEdge *bc;
};
