#pragma once

#include <QByteArray>

namespace ORR::Companion {

// What the server says to one request.
struct Answer
{
    int status = 200;
    QByteArray type = "text/plain; charset=utf-8";
    QByteArray body = {};
    // The Content-Security-Policy of the answer.
    QByteArray policy = "default-src 'none'; frame-ancestors 'none'";
    QByteArray disposition = {}; // how a browser keeps it; empty to show it
    QByteArray allowed = {}; // the methods of a path, if it was another one
};

// A fault, in a sentence.
Answer faultAnswer(int status, const QByteArray &sentence);
// A document of JSON.
Answer jsonAnswer(const QByteArray &document, int status = 200);

// The head of an answer, as it is sent before the body: what holds for all answers with it, as that
// nothing is kept, guessed, or handed to a page of somebody else. The connection ends behind it.
QByteArray headOf(const Answer &answer);

} // namespace ORR::Companion
