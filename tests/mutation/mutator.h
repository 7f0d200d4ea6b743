#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <random>

// Spoils DOT texts in ways that still read as DOT more often than not: numbers that break what was
// computed with ordinary ones in mind, names and values in the place of others, statements that are
// missing or stand twice, and now and then a byte that belongs nowhere.
class Mutator
{
public:
    // The same seed gives the same texts.
    explicit Mutator(quint64 seed) : random(seed) { }

    // The text with one to five changes.
    QByteArray mutated(const QByteArray &text);
    // A number of 0 up to, not including, `end`.
    qsizetype below(qsizetype end);

private:
    void changeOnce(QByteArrayList *tokens);
    void changeByte(QByteArray *token);
    qsizetype anyNumber(const QByteArrayList &tokens);

    std::mt19937_64 random;
};
