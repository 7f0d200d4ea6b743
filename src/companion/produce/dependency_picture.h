#pragma once

#include "companion/produce/dependencies.h"
#include "companion/produce/picture.h"

namespace ORR::Companion {

// What dependencies mean, in the words of the legend.
struct DependencyMeaning
{
    QString needs = QStringLiteral("the row needs the column"); // what a square says
    QString inCycle = QStringLiteral("both need each other, in a cycle");
    QString within = QStringLiteral("itself, or within a folder");
    QString things = QStringLiteral("things"); // what is counted where they are folded: "files"
    QString direction = {}; // of a tree, its rankdir; empty if any will do
    QString name = {}; // of the whole, the title where none is asked for; empty: how many things
};

// Dependencies as a square of rows that need columns, which bear the numbers of the rows. Folders
// are boxes on the diagonal. So many things are folded into their folders that the page is kept.
// Engine: matrix.
WrittenGraph writeMatrix(const Dependencies &dependencies, const DependencyMeaning &meaning,
                         const PictureRequest &request);

// Dependencies as levels, from what nothing needs to what needs nothing, below a title. Links that
// would close a cycle are not drawn but told, and those that a longer way implies are left out.
// Engine: gftree.
WrittenGraph writeDependencyTree(const Dependencies &dependencies, const DependencyMeaning &meaning,
                                 const PictureRequest &request);

// Draws dependencies by either engine.
class DependencyPicture : public Picture
{
public:
    DependencyPicture(Dependencies dependencies, DependencyMeaning meaning);

    WrittenGraph write(const PictureRequest &request) const override;

    const Dependencies &dependencies() const { return things; }

private:
    Dependencies things;
    DependencyMeaning words;
};

} // namespace ORR::Companion
