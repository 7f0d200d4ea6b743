#pragma once

#include "output/visio/visio_device.h"

#include <QByteArrayList>
#include <QDomDocument>
#include <QDomElement>
#include <QMap>
#include <QString>

namespace ORR::Graph {

// Writes a drawing as a Visio package: a zip file of XML parts. The parts of an empty drawing are
// read from a directory, shapes and connections go into its page, and all parts are zipped again.
// Shapes are not nested.
//
// A part that can't be read or is no XML stays empty, and the run goes on. `end` gives "Couldn't
// open output file for writing\n", or "Unable to save file. Error code %1\n" with the zip library's
// code.
class VisioVSDX : public VisioDevice
{
public:
    // templateDirectory: where the parts of the empty drawing are.
    VisioVSDX(const OutputTarget &outputTarget, const QString &templateDirectory);

    void begin(int width, int height) override;
    QString end() override;
    // Nothing unless all three are shapes.
    void connectEdge(Edge *edge, Node *tail, Node *head) override;

protected:
    void appendConnects(const VisioMarkup &tail, const VisioMarkup &head) override;
    // The ends stay where they are glued, also if an arrow head takes its length out of the line
    // later.
    void edgeGlued(VisioShape *edge) override;

private:
    QByteArrayList takeShapes();
    QMap<QString, QByteArrayList> takeParts();

    QMap<QString, QDomDocument> parts;
    QDomElement shapes;
};

} // namespace ORR::Graph
