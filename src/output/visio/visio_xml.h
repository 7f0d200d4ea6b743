#pragma once

#include "output/visio/visio_device.h"

#include <QByteArray>
#include <QString>

namespace ORR::Graph {

// Writes a drawing as one Visio XML file. A graph object becomes a shape within the shape of the
// object that is open when it begins.
//
// `end` gives "Unable to write to file\n" if the file can't be opened or not be written to its end.
class VisioXML : public VisioDevice
{
public:
    explicit VisioXML(const OutputTarget &outputTarget);

    void begin(int width, int height) override;
    QString end() override;

protected:
    void appendConnects(const VisioMarkup &tail, const VisioMarkup &head) override;

private:
    QByteArray takeDocument();

    int pageId = -1; // until the drawing begins
    int pageWidth = 0;
};

} // namespace ORR::Graph
