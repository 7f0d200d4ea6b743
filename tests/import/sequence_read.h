#pragma once

#include "companion/import/import_format.h"
#include "companion/produce/sequence_picture.h"

#include <QFile>

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Reads inputs of a test with one importer of sequences, and shows what came of it.
namespace ORR::Companion {

using SequenceReading = ImportResult (*)(std::vector<ImportSource> &, const ImportOptions &);

inline ImportResult sequenceRead(SequenceReading reader, const QByteArray &text)
{
    std::vector<ImportSource> sources;
    sources.emplace_back("in", text);
    return reader(sources, {.engine = QStringLiteral("umlseq")});
}

inline QByteArray sequenceData(const QString &name)
{
    QFile file(QStringLiteral(ORR_TEST_FOLDER "/data/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

inline const Sequence &sequenceIn(const ImportResult &result)
{
    return dynamic_cast<const SequencePicture &>(*result.picture).sequence();
}

// "line 3: what is wrong", empty if nothing is.
inline std::string sequenceFault(const ImportResult &result)
{
    if (!result.fault)
        return {};
    return "line " + std::to_string(result.fault->place.line) + ": "
        + result.fault->sentence.toStdString();
}

// The same of what was passed over, one after the other.
inline std::string sequenceNotes(const ImportResult &result)
{
    std::string notes;
    for (const ImportFault &note : result.notes) {
        notes +=
            "line " + std::to_string(note.place.line) + ": " + note.sentence.toStdString() + '\n';
    }
    return notes;
}

// The steps, one a line: "A -> B: text", "+B", "-B", "loop [guard]".
std::string stepsOf(const Sequence &sequence);
std::string stepsOf(const ImportResult &result);

} // namespace ORR::Companion
