#pragma once

#include <QByteArray>
#include <QStringList>

// Rich texts that ask a reader to open something: %1 is its name.
extern const QStringList hostileTexts;

// A finished drawing with the texts, one a node. op: `H` for rich texts, `T` for plain ones.
QByteArray drawingOf(const QStringList &texts, const QByteArray &op);
