#include "graflib_support.h"

#include <gtest/gtest.h>

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

void expectDrawn(const QString &engine, GraflibDrawing (*run)(const QByteArray &, bool))
{
    const QDir folder(QStringLiteral(ORR_TEST_FOLDER "/../../examples/") + engine);
    const QStringList inputs = folder.entryList({u"*.dot"_s});
    ASSERT_FALSE(inputs.isEmpty());
    for (const QString &input : inputs) {
        const GraflibDrawing laid = run(readTestFile(folder.filePath(input)), true);
        EXPECT_EQ(laid.result, QString()) << input.toStdString();
        EXPECT_EQ(laid.device->callsOf(u"end"_s).size(), 1) << input.toStdString();
        EXPECT_GT(laid.device->callsOf(u"rect"_s).size(), 8) << input.toStdString();
    }
}

} // namespace

TEST(Examples, trees_are_drawn)
{
    expectDrawn(u"gftree"_s, runTree);
}

TEST(Examples, declarations_are_drawn)
{
    expectDrawn(u"gfdecl"_s, runDecl);
}
