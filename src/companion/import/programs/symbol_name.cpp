#include "companion/import/programs/symbol_name.h"

#include <QByteArrayList>
#include <QByteArrayView>

namespace ORR::Companion {

namespace {

constexpr QByteArrayView operatorWord = "operator";
constexpr QByteArrayView anonymous = "(anonymous namespace)";

// The signs of an operator from a place on, behind its word: "<<", "()", "->".
qsizetype signsAt(QByteArrayView symbol, qsizetype place)
{
    constexpr QByteArrayView signs = "<>=!+-*/%&|^~,[]";
    if (symbol.sliced(place).startsWith("()"))
        return 2;
    qsizetype end = place;
    while (end < symbol.size() && signs.contains(symbol[end]))
        ++end;
    // "operator< <int>" has its arguments apart; three signs are the most: "<=>", "<<=".
    return qMin<qsizetype>(end - place, 3);
}

// Where the name itself starts, behind what was read and ends in a blank: that is what it returns,
// or says what is made for the name.
qsizetype startBehind(const QByteArray &read)
{
    return read.endsWith(" for ") || read.endsWith(" to ") ? 0 : read.size();
}

// Takes a symbol from its beginning to the parentheses of its parameters.
class SymbolCut
{
public:
    explicit SymbolCut(QByteArrayView whole) : symbol(whole) { }
    QByteArray take();

private:
    // Copies what stands at the place as it is, if it is no bracket; whether it did.
    bool copyWord(QByteArrayView word);
    bool copyOperator();

    QByteArrayView symbol;
    qsizetype place = 0;
    QByteArray name;
};

bool SymbolCut::copyWord(QByteArrayView word)
{
    if (!symbol.sliced(place).startsWith(word))
        return false;
    name += word;
    place += word.size();
    return true;
}

bool SymbolCut::copyOperator()
{
    const bool isWordBegun = place == 0 || symbol[place - 1] == ':' || symbol[place - 1] == ' ';
    if (!isWordBegun || !copyWord(operatorWord))
        return false;
    const qsizetype signs = signsAt(symbol, place);
    name += symbol.sliced(place, signs);
    place += signs;
    // "operator new", "operator bool": what they are goes on to their parameters.
    while (signs == 0 && place < symbol.size() && symbol[place] != '(' && symbol[place] != '<')
        name += symbol[place++];
    return true;
}

QByteArray SymbolCut::take()
{
    int depth = 0; // of the arguments of templates
    qsizetype start = 0;
    while (place < symbol.size()) {
        const char character = symbol[place];
        if (depth == 0 && (copyOperator() || copyWord(anonymous)))
            continue;
        if (depth == 0 && (character == '(' || symbol.sliced(place).startsWith(" <")))
            break;
        ++place;
        if (character == '<') {
            ++depth;
        } else if (character == '>' && depth > 0) {
            --depth;
        } else if (depth == 0) {
            name += character;
            start = character == ' ' ? startBehind(name) : start;
        }
    }
    return depth == 0 ? name.sliced(start) : QByteArray();
}

// Reads the names that a mangled one is made of (the Itanium C++ ABI, "5.1 External Names").
class MangledNames
{
public:
    explicit MangledNames(QByteArrayView behindStart) : rest(behindStart) { }
    // All of them; none if there is more to it than names, arguments of templates for instance.
    QByteArray take();

private:
    bool skip(QByteArrayView word);
    bool takeName();

    QByteArrayView rest;
    QByteArrayList names;
};

bool MangledNames::skip(QByteArrayView word)
{
    const bool isNext = rest.startsWith(word);
    rest = rest.sliced(isNext ? word.size() : 0);
    return isNext;
}

bool MangledNames::takeName()
{
    if (skip("St")) {
        names.append("std");
        return true;
    }
    const bool isDestructor = rest.startsWith('D');
    if (!names.isEmpty() && (skip("C1") || skip("C2") || skip("D0") || skip("D1") || skip("D2"))) {
        names.append((isDestructor ? "~" : "") + names.constLast());
        return true;
    }
    skip("L"); // of this file alone
    qsizetype digits = 0;
    while (digits < rest.size() && rest[digits] >= '0' && rest[digits] <= '9')
        ++digits;
    const qsizetype size = rest.first(digits).toLongLong();
    if (size == 0 || size > rest.size() - digits)
        return false;
    const QByteArrayView name = rest.sliced(digits, size);
    names.append(name.startsWith("_GLOBAL__N") ? anonymous.toByteArray() : name.toByteArray());
    rest = rest.sliced(digits + size);
    return true;
}

QByteArray MangledNames::take()
{
    const bool isNested = skip("N");
    while (isNested && (skip("K") || skip("V") || skip("R") || skip("O"))) { }
    while (takeName() && (isNested || names.constLast() == "std")) { }
    const bool isWhole = isNested ? skip("E") : !rest.startsWith('I');
    return isWhole ? names.join("::") : QByteArray();
}

} // namespace

QByteArray shortSymbol(const QByteArray &symbol)
{
    constexpr QByteArrayView mangled = "_Z";
    if (symbol.startsWith(mangled)) {
        const QByteArray names = MangledNames(QByteArrayView(symbol).sliced(mangled.size())).take();
        return names.isEmpty() ? symbol : names;
    }
    const bool isRemark = symbol.startsWith('['); // "[section .text]", "[1,234 Others]"
    const QByteArray name = isRemark ? symbol : SymbolCut(symbol).take();
    return name.isEmpty() ? symbol : name;
}

} // namespace ORR::Companion
