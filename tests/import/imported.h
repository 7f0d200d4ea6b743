#pragma once

#include "companion/import/import_format.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QSizeF>

// The path of a file of tests/import/data.
std::string importData(const char *name);
QByteArray importDataBytes(const char *name);

// What a format makes of a file, or of bytes.
ORR::Companion::ImportResult importedFile(const char *format, const char *name,
                                          const ORR::Companion::ImportOptions &options = {});
ORR::Companion::ImportResult importedBytes(const char *format, const QByteArray &bytes,
                                           const ORR::Companion::ImportOptions &options = {});

// The sentence of the fault; empty if there is none.
QByteArray faultOf(const ORR::Companion::ImportResult &result);

// The graph of a picture on a page, and the size of its drawing.
struct DrawnImport
{
    QByteArray text;
    QStringList notes;
    QSizeF size;
};
DrawnImport drawnImport(const ORR::Companion::Picture &picture, const char *engine,
                        double width = 1200, double height = 800);

// Reads what is broken in many ways, and draws what is read: cut off at every 7th byte, random
// bytes, and numbers that are none or out of range in place of each number. Gives how many of them
// were faults.
int readBrokenImports(const char *format, const char *engine, const QByteArray &whole);
