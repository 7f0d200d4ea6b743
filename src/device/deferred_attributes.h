#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace ORR::Graph::Graphviz {

// An attribute that is acted on behind the attribute list that it stands in.
struct DeferredAttribute
{
    QByteArrayView name;
    QByteArray value = {};
    qsizetype place = 0; // of the value in the text
};

// Those of an object.
struct DeferredAttributes
{
    DeferredAttribute drawing{"_draw_"};
    DeferredAttribute pos{"pos"};
    DeferredAttribute width{"width"};
    DeferredAttribute label{"_ldraw_"};
    DeferredAttribute headDrawing{"_hdraw_"};
    DeferredAttribute tailDrawing{"_tdraw_"};
    DeferredAttribute headLabel{"_hldraw_"};
    DeferredAttribute tailLabel{"_tldraw_"};

    // Null if the attribute is not one of these.
    DeferredAttribute *find(QByteArrayView name)
    {
        for (DeferredAttribute *attribute :
             {&drawing, &pos, &width, &label, &headDrawing, &tailDrawing, &headLabel, &tailLabel}) {
            if (attribute->name == name)
                return attribute;
        }
        return nullptr;
    }
};

} // namespace ORR::Graph::Graphviz
