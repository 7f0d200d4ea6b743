#pragma once

#include "companion/produce/picture.h"
#include "companion/produce/weight_tree.h"

#include <QString>
#include <QStringList>

namespace ORR::Companion {

// What the numbers of a tree mean, and so how it is drawn.
struct TreeMeaning
{
    enum class Unit {
        Count, // 1,234
        Bytes, // 1.2 MB
        Seconds, // 1.2 s, 340 ms
    };
    enum class Coloring {
        ByTop, // by the thing right below the root that it is in
        ByKind, // by its kind
        ByShare, // by part / whole, on a scale
    };
    // From the lower end to the upper one.
    enum class Scale {
        Rising, // from pale to dark: how much of something
        BadToGood, // from orange over grey to blue: few is bad
        GoodToBad, // the other way round
    };

    QString weight = {}; // the name of the weights in the legend and of their attribute: "lines"
    Unit unit = Unit::Count;
    Coloring coloring = Coloring::ByTop;
    QString color = {}; // title of the legend; empty for none
    QStringList kinds = {}; // by their numbers
    QStringList kindFills = {}; // "#RRGGBB" by their numbers; empty for a palette
    Scale scale = Scale::Rising;
    QString share = {}; // the name of part / whole in its attribute: "coverage"
    bool sharesAreParts = true; // part / whole is shown in percent, else as a number
    double low =
        0; // shares at the two ends of the scale; what lies beyond has the colour of the end
    double high = 1;
    bool pathsAreFiles = true; // joined by "/"; else by ";", as stacks are
    QString ownName = QStringLiteral("(self)"); // of the own weight of what has children, too
    QString rootName = {}; // what the whole is called; empty: the common beginning of all paths
};

// A tree of weights, drawn as a treemap, as rings, as circles, as bars (one for each thing below
// the root) or as a tree of calls with shares. Smaller things are folded into "others" where there
// are too many or they would be too small to be seen; labels stand only where they fit.
class TreePicture : public Picture
{
public:
    TreePicture(WeightTree tree, TreeMeaning meaning);

    WrittenGraph write(const PictureRequest &request) const override;

    // What is drawn, for whoever fills it and for tests.
    const WeightTree &tree() const { return weights; }
    const TreeMeaning &meaning() const { return numbers; }

private:
    WeightTree weights;
    TreeMeaning numbers;
};

} // namespace ORR::Companion
