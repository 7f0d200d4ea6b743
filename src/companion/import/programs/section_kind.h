#pragma once

#include <QByteArrayView>
#include <QStringList>

namespace ORR::Companion {

// What the sections of programs are for, by numbers: code, constants, data, what is zero at first,
// names and links of the loader, notes for debuggers, and others.
int sectionKind(QByteArrayView section);

// Whether a section has a name, or one with more behind it and a "." between: ".text.unlikely" is
// of ".text".
bool isSectionOf(QByteArrayView section, QByteArrayView name);

// What those numbers are called.
QStringList sectionKinds();

} // namespace ORR::Companion
