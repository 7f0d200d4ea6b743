#pragma once

#include <QByteArray>
#include <QRegularExpression>

#include <algorithm>

// Primitives of `-T svg` as a page has them: rectangles without a radius as paths, and no
// side below zero.
inline QByteArray withRectsOfPages(const QByteArray &svg)
{
    static const QRegularExpression rect(QStringLiteral(
        "<rect x=\"(-?\\d+)\" y=\"(-?\\d+)\" width=\"(-?\\d+)\" height=\"(-?\\d+)\"(?= stroke)"));
    QString text = QString::fromUtf8(svg);
    qsizetype from = 0;
    for (auto found = rect.match(text); found.hasMatch(); found = rect.match(text, from)) {
        const auto number = [&](int k) { return found.captured(k).toLongLong(); };
        const qint64 right = number(1) + std::max(number(3), 0LL);
        const qint64 bottom = number(2) + std::max(number(4), 0LL);
        const QString corners = QStringLiteral("<path d=\"M%1,%2h%3v%4h-%3z\"")
                                    .arg(number(1))
                                    .arg(number(2))
                                    .arg(right - number(1))
                                    .arg(bottom - number(2));
        const QString none = QStringLiteral("<rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\"")
                                 .arg(number(1))
                                 .arg(number(2))
                                 .arg(right - number(1))
                                 .arg(bottom - number(2));
        const bool isSeen = right > number(1) && bottom > number(2);
        text.replace(found.capturedStart(), found.capturedLength(), isSeen ? corners : none);
        from = found.capturedStart() + 1;
    }
    return text.toUtf8();
}
