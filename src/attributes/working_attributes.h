#pragma once

#include "attributes/attribute_readers.h"
#include "graph/numbers.h"

// What the passes of an engine write on the graph and read back, as typed handles.
namespace ORR::Graph {

// A value of the elements that it names. It is read where it was written, at the object itself,
// unless an operation says that it looks further.
template <AttributeElement... element>
class WorkingAttribute : public WorkingRow
{
public:
    static constexpr AttributeElements writtenElements = (AttributeElements() | ... | element);

    template <typename Object>
    static constexpr bool writes = bool(writtenElements &elementsOf<Object>);

    consteval WorkingAttribute(KnownAttribute attribute, std::string_view measure,
                               std::string_view sentence)
        : WorkingRow{attribute, writtenElements, measure, sentence}
    {
    }

    template <typename Object>
    requires writes<Object>
    void setText(DotGraph *graph, Object *object, const QString &text) const
    {
        Q_ASSERT(isElementOf(writtenElements, object));
        graph->setAttribute(object, name, text);
    }
    // Keeps six significant digits.
    template <typename Object>
    requires writes<Object>
    void setNumber(DotGraph *graph, Object *object, double value) const
    {
        Q_ASSERT(isElementOf(writtenElements, object));
        graph->setAttribute(object, name, numberText(value));
    }
    template <typename Object>
    requires writes<Object>
    void setInteger(DotGraph *graph, Object *object, qint64 value) const
    {
        Q_ASSERT(isElementOf(writtenElements, object));
        graph->setAttribute(object, name, QString::number(saturated(value)));
    }

    // Where the object's own text stands, or null; valid until an attribute changes.
    template <typename Object>
    requires writes<Object>
    const QString *find(const Object *object) const
    {
        Q_ASSERT(isElementOf(writtenElements, object));
        return object->attributes.find(name);
    }
    template <typename Object>
    requires writes<Object>
    double number(const Object *object) const
    {
        const QString *text = find(object);
        return text ? numberFrom(*text) : 0.0;
    }
    template <typename Object>
    requires writes<Object>
    int integer(const Object *object) const
    {
        const QString *text = find(object);
        return text ? integerFrom(*text) : 0;
    }

    // The same with the lookup that inherits, for a value that may not have been written at the
    // object itself.
    template <typename Object>
    requires writes<Object>
    const QString *findInherited(const DotGraph *graph, const Object *object) const
    {
        Q_ASSERT(isElementOf(writtenElements, object));
        return graph->findAttribute(object, name);
    }
    template <typename Object>
    requires writes<Object>
    double inheritedNumber(const DotGraph *graph, const Object *object) const
    {
        const QString *text = findInherited(graph, object);
        return text ? numberFrom(*text) : 0.0;
    }
    template <typename Object>
    requires writes<Object>
    int inheritedInteger(const DotGraph *graph, const Object *object) const
    {
        const QString *text = findInherited(graph, object);
        return text ? integerFrom(*text) : 0;
    }

    // The same with the lookup of what draws a subgraph in the way of a node.
    double numberOrNodeDefault(const DotGraph *graph, const DotSubgraph *subgraph) const
        requires(writes<DotSubgraph> &&writes<DotNode>)
    {
        const QString *own = find(subgraph);
        return numberFrom(own ? *own : graph->nodeDefault(subgraph, name));
    }
};

} // namespace ORR::Graph
