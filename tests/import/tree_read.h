#pragma once

#include "companion/import/import_format.h"
#include "companion/produce/tree_picture.h"

#include <QFile>

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Reads inputs of a test with one importer of a tree, and shows what came of it.
namespace ORR::Companion {

using TreeReading = ImportResult (*)(std::vector<ImportSource> &, const ImportOptions &);

inline ImportResult treeRead(TreeReading reader, const QByteArray &text, ImportOptions options = {})
{
    if (options.engine.isEmpty())
        options.engine = QStringLiteral("treemap");
    std::vector<ImportSource> sources;
    sources.emplace_back("in", text);
    return reader(sources, options);
}

// A file of the tests' data: "du/companion.txt".
inline QByteArray statsData(const char *name)
{
    QFile file(QStringLiteral(ORR_TEST_FOLDER "/data/") + QString::fromUtf8(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
}

inline const TreePicture &treePicture(const ImportResult &result)
{
    return dynamic_cast<const TreePicture &>(*result.picture);
}

// Of each thing that weighs something, a line in the order of the tree: its path, its own weight,
// then "part/whole" and "#kind" where it has them: "a/b 3 1/2 #0".
inline std::string weightsOf(const ImportResult &result)
{
    if (!result.picture)
        return "no picture: " + (result.fault ? result.fault->sentence.toStdString() : "no fault");
    const WeightTree &tree = treePicture(result).tree();
    QByteArray lines;
    for (WeightTree::Item item = 0; item < tree.size(); ++item) {
        if (tree.ownWeight(item) == 0 && tree.whole(item) == 0)
            continue;
        QByteArray path;
        for (WeightTree::Item at = item; at != WeightTree::root; at = tree.parent(at))
            path.prepend(tree.name(at).toByteArray() + (path.isEmpty() ? "" : "/"));
        lines += path + ' ' + QByteArray::number(tree.ownWeight(item));
        if (tree.whole(item) != 0)
            lines += ' ' + QByteArray::number(tree.part(item)) + '/'
                + QByteArray::number(tree.whole(item));
        if (tree.kind(item) >= 0)
            lines += " #" + QByteArray::number(tree.kind(item));
        lines += '\n';
    }
    return lines.toStdString();
}

inline double weightOfAll(const ImportResult &result)
{
    double sum = 0;
    for (WeightTree::Item item = 0; item < treePicture(result).tree().size(); ++item)
        sum += treePicture(result).tree().ownWeight(item);
    return sum;
}

// The fault with its place, "in:3: sentence" or "in@17 $.a: sentence"; empty if there is none.
inline std::string treeFault(const ImportResult &result)
{
    EXPECT_EQ(result.fault.has_value(), result.picture == nullptr);
    if (!result.fault)
        return {};
    const ImportPlace &place = result.fault->place;
    std::string text = place.source;
    if (place.line > 0)
        text += ':' + std::to_string(place.line);
    if (place.offset >= 0)
        text += '@' + std::to_string(place.offset) + ' ' + place.path.toStdString();
    return text + ": " + result.fault->sentence.toStdString();
}

} // namespace ORR::Companion
