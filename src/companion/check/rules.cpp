#include "companion/check/rules.h"

#include "companion/syntax/syntax_rules.h"

#include <vector>

namespace ORR::Companion {

namespace Rules {

using enum Severity;

constexpr Rule unknownEngine{
    "unknown-engine",
    Error,
    "the layout engine does not exist",
    "The engine that -K names draws the graph; there is no other one to take its place.",
};

constexpr Rule badValue{
    "bad-value",
    Error,
    "a value is none of the type of its attribute",
    "It counts as what is said, mostly as 0. A number has a decimal point and no unit behind it; a "
    "whole number has neither.",
};

constexpr Rule senselessValue{
    "senseless-value",
    Warning,
    "a number makes no sense",
    "A size, an area or a width is 0 at least, and no number is infinite or none at all.",
};

constexpr Rule unknownColor{
    "unknown-color",
    Error,
    "a colour is neither a known name nor of the form #rrggbb or #rrggbbaa",
    "What can't be read is black. Only fills may run through several colours.",
};

constexpr Rule unknownWord{
    "unknown-word",
    Error,
    "a value is none of the words of its attribute",
    "It counts as the default, and a word of a style as nothing. Words are exact, also in their "
    "case.",
};

constexpr Rule unknownAttribute{
    "unknown-attribute",
    Warning,
    "no such attribute is known",
    "Nothing reads it. Names are exact, also in their case. Some that no engine reads are meant "
    "for "
    "whoever shows the graph and are no findings, as are href, line and tooltip.",
};

constexpr Rule unreadAttribute{
    "unread-attribute",
    Warning,
    "an attribute is given to what never reads it",
    "It changes nothing there. The page of the engine tells what it is read of.",
};

constexpr Rule engineAttribute{
    "engine-attribute",
    Warning,
    "an attribute is one that the engine sets itself",
    "Engines keep what they compute in attributes of the graph. A value of the text is lost, or is "
    "taken for a computed one where the engine sets none.",
};

constexpr Rule sharedId{
    "shared-id",
    Warning,
    "a subgraph and a node have one name",
    "Whoever reads the graph or its drawing by names may take the one for the other.",
};

constexpr Rule undeclaredNode{
    "undeclared-node",
    Warning,
    "a node is mentioned by edges only",
    "A misspelt end of an edge is a new node, without a label of its own. A text that declares no "
    "node at all is taken to do so on purpose.",
};

constexpr Rule sharedPlace{
    "shared-place",
    Warning,
    "two objects stand in one place of the grid",
    "The later one is drawn over the earlier one.",
};

constexpr Rule misplacedLegend{
    "misplaced-legend",
    Warning,
    "a legend is given to what is none",
    "The legend of a chart is the first subgraph with the attribute legend.",
};

constexpr Rule edgeWithoutCell{
    "edge-without-cell",
    Warning,
    "an edge of a matrix meets no cell",
    "It is drawn in the first row or the first column, as if it belonged there.",
};

constexpr Rule outsideGrid{
    "outside-grid",
    Error,
    "an object of a sequence diagram stands outside the grid",
    "Nothing is drawn: orrlayout ends with the message.",
};

constexpr Rule noGridPlace{
    "no-grid-place",
    Warning,
    "an object of a sequence diagram has no row or no column",
    "What is missing counts as 0. A section needs no column, a return needs a row only.",
};

constexpr Rule sectionWithoutFragment{
    "section-without-fragment",
    Warning,
    "a section of a sequence diagram is in no fragment",
    "It is left out, with everything in it.",
};

constexpr Rule returnWithoutCall{
    "return-without-call",
    Warning,
    "a return of a sequence diagram has no call",
    "A return comes from an activation to which a message runs.",
};

constexpr Rule drawingFails{
    "drawing-fails",
    Error,
    "the engine can't draw the graph",
    "There is no drawing: orrlayout ends with this message.",
};

constexpr Rule blankDrawing{
    "blank-drawing",
    Warning,
    "nothing of the drawing can be seen",
    "The drawing is made, and is an empty page or one without a size. A legend alone is no "
    "drawing.",
};

constexpr Rule largeDrawing{
    "large-drawing",
    Warning,
    "the drawing is too large for an image",
    "PNG and JPEG are scaled down to at most 32,767 pixels a side, and readers of the other "
    "formats may refuse such a page. Ask for a smaller one, or make several drawings.",
};

constexpr Rule leftOutNode{
    "left-out-node",
    Warning,
    "a chart leaves out nodes",
    "A node without an area, or with one that is too small beside the others, is not drawn, and "
    "the others share its room. Give the chart more room, or sum small nodes up in one. The place "
    "is that of the first of them.",
};

constexpr Rule unseenLabel{
    "unseen-label",
    Warning,
    "labels are not drawn",
    "A cell that is too small for its label has none, and so has a group of a matrix without rows "
    "or columns. Slices of a sunburst have none at all; its legend does. The place is that of the "
    "first of them.",
};

constexpr Rule plainRichText{
    "plain-rich-text",
    Warning,
    "rich texts are drawn as plain texts",
    "A text whose tables, pictures, styles or length would take too long to lay out loses its "
    "markup, and so do all that come when those before have used up the time of the drawing.",
};

constexpr Rule missingPicture{
    "missing-picture",
    Warning,
    "pictures in rich texts are not shown",
    "Only a PNG or JPEG picture within the text itself is shown, as an address that begins with "
    "\"data:\", of at most a megabyte and 1600 x 1200 pixels. Nothing is ever read from elsewhere.",
};

constexpr Rule replacedFont{
    "replaced-font",
    Warning,
    "a font is not there and another one takes its place",
    "Letters of another width change the drawing, and on a machine that has the font it is another "
    "one. Name a family that is everywhere, as Arial, for which one of the same widths may stand.",
};

} // namespace Rules

namespace {

constexpr const Rule *ownRules[] = {
    &Rules::unknownEngine,     &Rules::badValue,
    &Rules::senselessValue,    &Rules::unknownColor,
    &Rules::unknownWord,       &Rules::unknownAttribute,
    &Rules::unreadAttribute,   &Rules::engineAttribute,
    &Rules::sharedId,          &Rules::undeclaredNode,
    &Rules::sharedPlace,       &Rules::misplacedLegend,
    &Rules::edgeWithoutCell,   &Rules::outsideGrid,
    &Rules::noGridPlace,       &Rules::sectionWithoutFragment,
    &Rules::returnWithoutCall, &Rules::drawingFails,
    &Rules::blankDrawing,      &Rules::largeDrawing,
    &Rules::leftOutNode,       &Rules::unseenLabel,
    &Rules::plainRichText,     &Rules::missingPicture,
    &Rules::replacedFont,
};

std::vector<const Rule *> allRules()
{
    std::vector<const Rule *> rules;
    for (const std::span<const Rule *const> part :
         {rejectionRules(), misreadingRules(), std::span<const Rule *const>(ownRules)})
        rules.insert(rules.end(), part.begin(), part.end());
    return rules;
}

} // namespace

std::span<const Rule *const> checkRules()
{
    static const std::vector<const Rule *> rules = allRules();
    return rules;
}

const Rule *findRule(std::string_view id)
{
    for (const Rule *rule : checkRules()) {
        if (rule->id == id)
            return rule;
    }
    return nullptr;
}

} // namespace ORR::Companion
