#pragma once

#include "companion/import/import_format.h"
#include "companion/produce/tree_picture.h"

#include <QByteArray>
#include <QString>

// What importers of weights read, for tests to compare.
namespace ORR::Testing {

// Reads bytes as an input named "input".
using ImportReader = Companion::ImportResult (*)(std::vector<Companion::ImportSource> &,
                                                 const Companion::ImportOptions &);
Companion::ImportResult readBytes(ImportReader read, const QByteArray &bytes,
                                  const Companion::ImportOptions &options = {
                                      .engine = QStringLiteral("treemap")});
Companion::ImportResult readAll(ImportReader read, const QList<QByteArray> &inputs,
                                const Companion::ImportOptions &options = {
                                    .engine = QStringLiteral("treemap")});

// A file of the folder data.
QByteArray dataFile(const QString &name);

const Companion::TreePicture &treeOf(const Companion::ImportResult &result);

// Each thing that has a weight or a share, a line each: its path with ">" between, then
// what it has: "src>a.cpp 10 7/10 #2" (its kind). If there is a fault, that.
std::string toldTree(const Companion::ImportResult &result);

// "3: sentence", "@12 $.a: sentence"; empty if there is no fault.
QString toldFault(const Companion::ImportResult &result);

double wholeWeight(const Companion::ImportResult &result);

} // namespace ORR::Testing
