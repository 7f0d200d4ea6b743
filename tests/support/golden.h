#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>

#include <ostream>

// The whole file; a failed assertion and an empty result if it can't be read.
QByteArray readTestFile(const QString &path);

// Whether `actual` is byte for byte what the file at `path` holds. With ORR_UPDATE_GOLDENS set in
// the environment the file is written anew instead, and the check fails all the same, so that
// nobody renews a golden without noticing.
testing::AssertionResult matchesGolden(const QByteArray &actual, const QString &path);

// The same, with all numbers of more than ten decimals taken to twelve digits. The last digits of
// sines and roots are the processor's: some of them fuse a multiplication with an addition.
testing::AssertionResult matchesGoldenNumbers(const QByteArray &actual, const QString &path);

// So that a failed comparison shows the text.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toStdString() << '"';
}
QT_END_NAMESPACE
