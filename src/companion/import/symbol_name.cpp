#include "companion/import/symbol_name.h"

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

} // namespace

QByteArray shortSymbol(const QByteArray &symbol)
{
    const QByteArray name = SymbolCut(symbol).take();
    return name.isEmpty() ? symbol : name;
}

} // namespace ORR::Companion
