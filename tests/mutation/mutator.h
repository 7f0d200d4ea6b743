#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <random>

// Spoils DOT texts in ways that still read as DOT more often than not: numbers that break what was
// computed with ordinary ones in mind, names and values in the place of others, statements that are
// missing or stand twice, the same within the words of a quoted text, and now and then a byte that
// belongs nowhere or a text that ends in the middle.
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
    void changeWithin(QByteArray *token);
    QByteArray cutOff(const QByteArrayList &tokens);
    char anyByte();
    qsizetype anyWhere(const QByteArrayList &words, bool (*isOfKind)(const QByteArray &));

    std::mt19937_64 random;
};

// What a variable of the environment says of the number of texts or of the first seed.
int numberFromEnvironment(const char *name, int otherwise);
