#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace ORR::Companion {

// What is asked of a drawing that a producer writes.
struct PictureRequest
{
    QString engine = {}; // in small letters; one of those that the picture can be drawn by
    double width = 1200; // of the page, in points: the drawing is to come out no larger
    double height = 800;
    int most = 2000; // things drawn; the smallest of more are folded into "others"
    QString title = {}; // drawn where the engine has room for one, else the graph's name
};

// A graph for an engine.
struct WrittenGraph
{
    QByteArray text; // in the dialect, or an xdot that is replayed
    // What a user should know, a sentence each: why the drawing is larger than the page that was
    // asked for, what could not be drawn. Without file names.
    QStringList notes = {};
};

// Something that was read and can be drawn: a tree of sizes, dependencies, a sequence of calls,
// declarations. The same picture and the same request give the same bytes.
//
// To write one, the toolkit has to be started as for a drawing: labels are measured.
class Picture
{
public:
    virtual ~Picture() = default;
    virtual WrittenGraph write(const PictureRequest &request) const = 0;
};

} // namespace ORR::Companion
