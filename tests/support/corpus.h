#pragma once

#include "drawing/format_table.h"
#include "drawing/layout_table.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>

#include <ostream>
#include <string>
#include <vector>

// The one list of what all suites draw: the rows of the tables, and the inputs that lie in the
// folders. Nothing is named here, so a new engine, format or input is in every suite at once.

// All engines and all formats, in the order of their tables.
std::vector<ORR::Drawing::LayoutIndex> allLayouts();
std::vector<ORR::Drawing::Format> allFormats();
// Those of both tables: what the companions have besides is drawn in process, and has no goldens.
std::vector<ORR::Drawing::Format> formatsOfBothTables();

// Whether the format is one of pixels, which say nothing but colours.
bool isPicture(ORR::Drawing::Format format);

// An input of one engine.
struct CorpusInput
{
    ORR::Drawing::LayoutIndex layout = {};
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
std::vector<CorpusInput> inputsOf(ORR::Drawing::LayoutIndex layout,
                                  const std::vector<CorpusInput> &inputs);

// Where they lie; a folder for each engine in it.
QString drawingsFolder();
QString examplesFolder();

// The suffix of the golden that judges a format. No two formats have the same, but for the JPEG:
// what compression makes of it differs, and the golden of the PNG judges it too.
QString goldenSuffix(ORR::Drawing::Format format);

// For the names of tests and what they print.
void PrintTo(const CorpusInput &input, std::ostream *out);
std::string nameOfInput(const testing::TestParamInfo<CorpusInput> &test);
std::string nameOfLayout(const testing::TestParamInfo<ORR::Drawing::LayoutIndex> &test);
