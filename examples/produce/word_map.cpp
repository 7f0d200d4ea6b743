// Writes the map of the words of a text: groups by their first letters, areas by how often they
// are used, colours by how long they are. Any program that has sizes of named things can be
// written like this one: fill a tree, say what its numbers mean, and write the picture.
//
//     word_map treemap <examples/produce/words.txt | orrlayout -K treemap -o words.svg
//
// The engine may be treemap, sunburst, flatbubble, bar or gftree.
#include "companion/produce/tree_picture.h"
#include "drawing/toolkit.h"

#include <QString>

#include <cctype>
#include <cstdio>
#include <iostream>
#include <string>

using namespace ORR;
using namespace ORR::Companion;

namespace {

enum Kind { Short, Middling, Long };

Kind kindOf(const std::string &word)
{
    return word.size() < 4 ? Short : word.size() < 6 ? Middling : Long;
}

// The letters of a word in small ones, without what is set around it.
std::string plainWord(const std::string &word)
{
    std::string plain;
    for (const char c : word) {
        if (std::isalpha(static_cast<unsigned char>(c)))
            plain += char(std::tolower(static_cast<unsigned char>(c)));
    }
    return plain;
}

WeightTree readWords(std::istream &input)
{
    WeightTree tree;
    for (std::string word; input >> word;) {
        const std::string plain = plainWord(word);
        if (plain.empty())
            continue;
        const WeightTree::Item letter = tree.child(WeightTree::root, {plain.data(), 1});
        const WeightTree::Item item = tree.child(letter, {plain.data(), qsizetype(plain.size())});
        tree.addWeight(item, 1);
        tree.setKind(item, kindOf(plain));
    }
    return tree;
}

TreeMeaning meaningOfWords()
{
    TreeMeaning meaning;
    meaning.weight = QStringLiteral("words");
    meaning.coloring = TreeMeaning::Coloring::ByKind;
    meaning.color = QStringLiteral("length");
    meaning.kinds = {QStringLiteral("up to 3 letters"), QStringLiteral("4 or 5 letters"),
                     QStringLiteral("6 letters and more")};
    return meaning;
}

} // namespace

int main(int argc, char **argv)
{
    // Labels are measured as they will be drawn.
    Drawing::prepareToolkit();
    Drawing::startToolkit("word_map");
    if (const QString fault = Drawing::fontFault(); !fault.isEmpty()) {
        std::fputs(qPrintable(fault), stderr);
        return 1;
    }

    PictureRequest request;
    request.engine = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("treemap");
    request.width = 600;
    request.height = 400;
    request.title = QStringLiteral("Words");
    const WrittenGraph graph = TreePicture(readWords(std::cin), meaningOfWords()).write(request);
    for (const QString &note : graph.notes)
        std::fprintf(stderr, "%s\n", qPrintable(note));
    std::fwrite(graph.text.constData(), 1, size_t(graph.text.size()), stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
}
