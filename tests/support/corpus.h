#pragma once

#include "driver/format_table.h"
#include "driver/layout_table.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>

#include <ostream>
#include <string>
#include <vector>

// The one list of what all suites draw: the rows of the tables, and the inputs that lie in the
// folders. Nothing is named here, so a new engine, format or input is in every suite at once.

// All engines and all formats, in the order of their tables.
std::vector<ORR::Driver::LayoutIndex> allLayouts();
std::vector<ORR::Driver::DriverFormat> allFormats();

// Whether the format is one of pixels, which say nothing but colours.
bool isPicture(ORR::Driver::DriverFormat format);

// An input of one engine.
struct CorpusInput
{
    ORR::Driver::LayoutIndex layout = {};
    QString file; // with its whole path

    QString engine() const;
    QString name() const; // of the file, without its suffix
    // The file beside it that differs in the suffix.
    QString besideIt(const QString &suffix) const;
    // The whole file; a failed assertion and an empty result if it can't be read.
    QByteArray text() const;
};

// What the folders hold, engine by engine in the order of the table, and by name within an engine.
// tests/drawings has small inputs with goldens beside them, examples the ones that users are shown.
std::vector<CorpusInput> drawingInputs();
std::vector<CorpusInput> exampleInputs();
// Both, the drawings first.
std::vector<CorpusInput> corpusInputs();
// Those of one engine.
std::vector<CorpusInput> inputsOf(ORR::Driver::LayoutIndex layout,
                                  const std::vector<CorpusInput> &inputs);

// Where they lie; a folder for each engine in it.
QString drawingsFolder();
QString examplesFolder();

// The suffix of the golden that judges a format. No two formats have the same, but for the JPEG:
// what compression makes of it differs, and the golden of the PNG judges it too.
QString goldenSuffix(ORR::Driver::DriverFormat format);

// For the names of tests and what they print.
void PrintTo(const CorpusInput &input, std::ostream *out);
std::string nameOfInput(const testing::TestParamInfo<CorpusInput> &test);
std::string nameOfLayout(const testing::TestParamInfo<ORR::Driver::LayoutIndex> &test);
