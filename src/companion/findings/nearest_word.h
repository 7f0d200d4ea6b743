#pragma once

#include <QString>
#include <QStringList>

// For whoever misspelt a word of a small vocabulary.
namespace ORR::Companion {

// The number of characters to insert, leave out, exchange or swap with their neighbour that makes
// one text the other: the restricted edit distance (Damerau 1964; the table is that of Wagner and
// Fischer 1974), in UTF-16 units. Takes the product of the two lengths.
int editDistance(QStringView a, QStringView b);

// The word that is meant most likely: the nearest one, in any case, of several the first. Empty if
// none is near: up to a third of its letters may be wrong, at least one, and never all of them.
//
// The words should be short. A text that is much longer than all of them costs nothing.
QString nearestWord(const QString &text, const QStringList &words);

// "did you mean 'label'?", or empty.
QString didYouMean(const QString &text, const QStringList &words);

} // namespace ORR::Companion
