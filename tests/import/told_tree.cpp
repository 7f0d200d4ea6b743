#include "import/told_tree.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace ORR::Testing {

namespace {

QByteArray pathIn(const WeightTree &tree, WeightTree::Item item)
{
    QByteArray path = tree.name(item).toByteArray();
    for (item = tree.parent(item); item > WeightTree::root; item = tree.parent(item))
        path.prepend(tree.name(item).toByteArray() + '>');
    return path;
}

QByteArray shortDecimal(double value)
{
    return QByteArray::number(value, 'g', 6);
}

} // namespace

ImportResult readBytes(ImportReader read, const QByteArray &bytes, const ImportOptions &options)
{
    return readAll(read, {bytes}, options);
}

ImportResult readAll(ImportReader read, const QList<QByteArray> &inputs,
                     const ImportOptions &options)
{
    std::vector<ImportSource> sources;
    for (const QByteArray &bytes : inputs)
        sources.emplace_back(sources.empty() ? "input" : "input" + std::to_string(sources.size()),
                             bytes);
    return read(sources, options);
}

QByteArray dataFile(const QString &name)
{
    QFile file(QStringLiteral(ORR_TEST_FOLDER) + "/data/"_L1 + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

const TreePicture &treeOf(const ImportResult &result)
{
    return dynamic_cast<const TreePicture &>(*result.picture);
}

std::string toldTree(const ImportResult &result)
{
    if (!result.picture)
        return toldFault(result).toStdString();
    const WeightTree &tree = treeOf(result).tree();
    QByteArray told;
    for (WeightTree::Item item = 1; item < tree.size(); ++item) {
        const bool isTold = tree.ownWeight(item) > 0 || tree.whole(item) > 0;
        if (!isTold)
            continue;
        told += pathIn(tree, item) + ' ' + shortDecimal(tree.ownWeight(item));
        if (tree.whole(item) > 0)
            told += ' ' + shortDecimal(tree.part(item)) + '/' + shortDecimal(tree.whole(item));
        if (tree.kind(item) >= 0)
            told += " #" + QByteArray::number(tree.kind(item));
        told += '\n';
    }
    return told.toStdString();
}

QString toldFault(const ImportResult &result)
{
    if (!result.fault)
        return {};
    const ImportPlace &place = result.fault->place;
    QString told;
    if (place.offset >= 0)
        told = u"@%1 %2: "_s.arg(place.offset).arg(place.path);
    else if (place.line > 0)
        told = u"%1: "_s.arg(place.line);
    return told + result.fault->sentence;
}

double wholeWeight(const ImportResult &result)
{
    if (!result.picture)
        return -1;
    const WeightTree &tree = treeOf(result).tree();
    double sum = 0;
    for (WeightTree::Item item = 0; item < tree.size(); ++item)
        sum += tree.ownWeight(item);
    return sum;
}

} // namespace ORR::Testing
