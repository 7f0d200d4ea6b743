// Prints a graph that every engine draws, with texts that mean something to readers of markup
// wherever one can stand: as values, as names of attributes, as ids, as the graph's name. With the
// argument "flat" it has no groups, which trees do not take.
#include "support/breaking_texts.h"

#include <cstdio>

namespace {

// Beside those of all tests what would run in a page if it became a part of it.
QByteArrayList hostileTexts()
{
    return breakingTexts()
        + QByteArrayList{
            "<img src=x onerror='window.hurt=1'>", "</script><script>window.hurt=1</script>",
            "\"><svg onload=window.hurt=1>",       "{{code}}",
            "</title></svg></style><!--",          "javascript:window.hurt=1",
        };
}

// Some attributes that pages show or drawings take texts from, and one whose name is the text.
QByteArray attributesOf(const QByteArray &text)
{
    const QByteArray value = quotedInGraph(text);
    QByteArray list = "url=\"javascript:window.hurt=1\" ";
    const QByteArrayList names{"label", "href", "URL", "tooltip", "color", "fontname", "id", value};
    for (const QByteArray &name : names)
        list += name + '=' + value + ' ';
    return list;
}

// A group of two nodes; all have the text as a part of their ids.
QByteArray groupOf(const QByteArray &text, int column)
{
    const QByteArray attributes = attributesOf(text);
    const auto node = [&](const QByteArray &id, int row) {
        return quotedInGraph(id + text) + " [area=5 uml=object col=" + QByteArray::number(column)
            + " row=" + QByteArray::number(row) + ' ' + attributes + "]; ";
    };
    return "graph [" + attributes + "]; " + node("a", 0) + node("b", 1);
}

QByteArray edge(const QByteArray &tail, const QByteArray &head, const QByteArray &text)
{
    return quotedInGraph(tail) + " -> " + quotedInGraph(head) + " [uml=message "
        + attributesOf(text) + "];\n";
}

} // namespace

int main(int argc, char **argv)
{
    const bool hasGroups = argc < 2 || QByteArrayView(argv[1]) != "flat";
    const QByteArrayList texts = hostileTexts();
    QByteArray graph = "digraph " + quotedInGraph(texts.join(' ')) + " {\n";
    for (int k = 0; k < texts.size(); ++k) {
        const QByteArray group = groupOf(texts[k], k);
        graph += hasGroups ? "subgraph " + quotedInGraph(texts[k]) + " { " + group + "}\n"
                           : group + '\n';
        graph += edge("a" + texts[k], "b" + texts[k], texts[k]);
        // One chain of all, since a tree has one root.
        if (k > 0)
            graph += edge("b" + texts[k - 1], "a" + texts[k], texts[k]);
    }
    graph += "}\n";
    return std::fwrite(graph.constData(), 1, size_t(graph.size()), stdout) == size_t(graph.size())
        ? 0
        : 1;
}
