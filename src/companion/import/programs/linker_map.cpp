#include "companion/import/programs/linker_map.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/builds/object_path.h"
#include "companion/import/programs/section_kind.h"
#include "companion/import/programs/symbol_name.h"
#include "companion/import/reading/written_number.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr QByteArrayView heading = "Linker script and memory map";
constexpr QByteArrayView filling = "*fill*";

// Lines at the margin that begin no section.
constexpr std::array<QByteArrayView, 5> commands{"LOAD", "START", "END", "OUTPUT", "TARGET"};

// What no object has.
constexpr std::array<QByteArrayView, 15> sectionsOfLinker{
    ".eh_frame_hdr",  ".interp",        ".hash",   ".gnu.hash", ".gnu.version",
    ".gnu.version_d", ".gnu.version_r", ".dynsym", ".dynstr",   ".dynamic",
    ".rela",          ".rel",           ".relr",   ".plt",      ".got"};

// Takes the first word off a line.
QByteArrayView takeWord(QByteArrayView *line)
{
    const QByteArrayView rest = line->trimmed();
    const qsizetype end = rest.indexOf(' ');
    *line = end < 0 ? QByteArrayView() : rest.sliced(end).trimmed();
    return end < 0 ? rest : rest.first(end);
}

bool isCommand(QByteArrayView word)
{
    return std::ranges::any_of(commands, [word](QByteArrayView command) {
        return word == command || (word.startsWith(command) && word[command.size()] == '(');
    });
}

// Objects of the system are told by their names, wherever they lie.
QByteArray objectPath(QByteArrayView object)
{
    const bool isSystem = object.startsWith("/usr/") || object.startsWith("/lib");
    if (!isSystem)
        return readableOutput(object);
    const qsizetype member = object.endsWith(')') ? object.lastIndexOf('(') : -1;
    const QByteArrayView file = member < 0 ? object : object.first(member);
    return "system/" + object.sliced(file.lastIndexOf('/') + 1).toByteArray();
}

// The mangled symbol that a section of one function or object is named for; else its whole name.
QByteArray symbolIn(const QByteArray &section)
{
    const qsizetype place = section.indexOf("._Z");
    return place < 0 ? section : section.sliced(place + 1);
}

// The linker books what it makes itself on the first object.
QByteArray sourceOf(const QByteArray &section, const QByteArray &object)
{
    const bool isMade = std::ranges::any_of(
        sectionsOfLinker, [&](QByteArrayView name) { return isSectionOf(section, name); });
    return isMade ? QByteArray("linker") : object;
}

} // namespace

bool LinkerMap::looksLike(QByteArrayView beginning)
{
    return beginning.contains(heading) || beginning.contains("\nDiscarded input sections\n")
        || beginning.startsWith("Archive member included ");
}

std::optional<ImportFault> LinkerMap::read(ImportSource *source)
{
    isWithin = false;
    section.clear();
    pendingName.clear();
    bool isMap = false;
    QByteArrayView line;
    while (source->nextLine(&line)) {
        const QString wrong = readLine(line);
        if (!wrong.isEmpty())
            return source->faultHere(wrong);
        isMap = isMap || isWithin;
    }
    endPiece();
    if (!isMap) {
        return source->faultHere(
            u"this is no table of size or bloaty, and no map of GNU ld, which has the line '"_s
            + QLatin1StringView(heading) + u'\'');
    }
    return std::nullopt;
}

QString LinkerMap::readLine(QByteArrayView line)
{
    if (line.startsWith(heading) || line.startsWith("Cross Reference Table")) {
        isWithin = line.startsWith(heading);
        return {};
    }
    if (!isWithin || line.trimmed().isEmpty())
        return {};
    if (line[0] != ' ') {
        beginSection(line);
        return {};
    }
    const QByteArray pending = std::exchange(pendingName, {});
    if (!line.startsWith("  ")) {
        const QByteArray name = takeWord(&line).toByteArray();
        // Patterns of the script begin with "*", too.
        const bool isPiece = !name.startsWith('*') || name == filling;
        return isPiece ? readPiece(name, line) : QString();
    }
    if (!pending.isEmpty())
        return readPiece(pending, line);
    readSymbol(line);
    return {};
}

void LinkerMap::beginSection(QByteArrayView line)
{
    endPiece();
    pendingName.clear();
    const QByteArrayView word = takeWord(&line);
    section = isCommand(word) || word == "/DISCARD/" ? QByteArray() : word.toByteArray();
}

QString LinkerMap::readPiece(const QByteArray &name, QByteArrayView numbers)
{
    if (numbers.isEmpty()) {
        pendingName = name;
        return {};
    }
    const QByteArrayView address = takeWord(&numbers);
    if (!address.startsWith("0x"))
        return {}; // more of a pattern
    const QByteArrayView size = takeWord(&numbers);
    const std::optional<double> start = writtenSize(address);
    const std::optional<double> bytes = writtenSize(size);
    if (!start || !bytes || !size.startsWith("0x"))
        return "the piece "_L1 + quotedText(QByteArrayView(name)) + " has no address and size"_L1;
    endPiece();
    piece = {.name = name, .object = numbers.toByteArray(), .address = *start, .size = *bytes};
    return {};
}

void LinkerMap::readSymbol(QByteArrayView line)
{
    const std::optional<double> address = writtenSize(takeWord(&line));
    const bool isSymbol = address && !line.isEmpty() && !line.contains(" = ")
        && !line.startsWith("0x") && !line.startsWith("PROVIDE") && !line.startsWith('(')
        && !line.startsWith("[!");
    if (!isSymbol || piece.size == 0)
        return;
    piece.hasSeveral = piece.hasSeveral || *address != piece.address;
    if (piece.symbol.isEmpty())
        piece.symbol = line.toByteArray();
}

WeightTree::Item LinkerMap::objectItem(WeightTree::Item above, const QByteArray &object)
{
    const QByteArray path = objectPath(object);
    if (isFlat)
        return weights.child(above, path);
    const qsizetype member = path.endsWith(')') ? path.lastIndexOf('(') : -1;
    WeightTree::Item item = above;
    for (const QByteArray &part : path.first(member < 0 ? path.size() : member).split('/')) {
        if (!part.isEmpty() && part != "." && part != "..")
            item = weights.child(item, part);
    }
    return member < 0 ? item : weights.child(item, path.sliced(member + 1).chopped(1));
}

// Adds what is known of the last piece.
void LinkerMap::endPiece()
{
    const Piece ended = std::exchange(piece, {});
    if (section.isEmpty() || ended.size == 0)
        return;
    const int kind = sectionKind(section);
    const bool isFill = ended.name == filling;
    const QByteArray object = isFill ? QByteArray("fill") : sourceOf(section, ended.object);
    WeightTree::Item item = WeightTree::root;
    if (order == Order::SectionFirst) {
        item = weights.child(item, section);
        weights.setKind(item, kind);
        item = isFlat ? item : objectItem(item, object);
    } else {
        item = objectItem(item, object);
        item = isFlat ? item : weights.child(item, section);
    }
    const bool isNamed = !ended.symbol.isEmpty() && !ended.hasSeveral;
    const QByteArray name = shortSymbol(isNamed ? ended.symbol : symbolIn(ended.name));
    if (!isFlat && !isFill && name != section) {
        weights.setKind(item, kind);
        item = weights.child(item, name);
    }
    weights.setKind(item, kind);
    weights.addWeight(item, ended.size);
}

} // namespace ORR::Companion
