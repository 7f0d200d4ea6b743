#pragma once

#include <QByteArray>
#include <QJsonObject>

// What a reader of HTML that we did not write sees of a page: see read_page.py. A failed assertion
// and an empty result if it can't be read.
QJsonObject readPage(const QByteArray &page);
