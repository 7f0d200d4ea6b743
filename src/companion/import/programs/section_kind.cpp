#include "companion/import/programs/section_kind.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

enum SectionSort { Code, Constants, Data, Zeros, Links, Debug, Other };

struct KindOfSection
{
    QByteArrayView name; // or of its part before a further "."
    SectionSort kind;
};

// The names of the ELF and the GNU tools; the first one that fits.
constexpr std::array<KindOfSection, 44> kindsOfSections{{
    {".text", Code},
    {"text", Code},
    {".init", Code},
    {".fini", Code},
    {".plt", Code},
    {".iplt", Code},
    {".data.rel.ro", Constants},
    {".rodata", Constants},
    {".rodata1", Constants},
    {".eh_frame", Constants},
    {".eh_frame_hdr", Constants},
    {".gcc_except_table", Constants},
    {".lrodata", Constants},
    {".data", Data},
    {"data", Data},
    {".data1", Data},
    {".tdata", Data},
    {".ldata", Data},
    {".init_array", Data},
    {".fini_array", Data},
    {".preinit_array", Data},
    {".ctors", Data},
    {".dtors", Data},
    {".got", Data},
    {".dynamic", Data},
    {".bss", Zeros},
    {"bss", Zeros},
    {".tbss", Zeros},
    {".lbss", Zeros},
    {"COMMON", Zeros},
    {".dynsym", Links},
    {".dynstr", Links},
    {".symtab", Links},
    {".strtab", Links},
    {".shstrtab", Links},
    {".hash", Links},
    {".gnu", Links},
    {".rela", Links},
    {".rel", Links},
    {".relr", Links},
    {".interp", Links},
    {".note", Links},
    {".comment", Debug},
    {".gdb_index", Debug},
}};

} // namespace

bool isSectionOf(QByteArrayView section, QByteArrayView name)
{
    return section.startsWith(name)
        && (section.size() == name.size() || section[name.size()] == '.');
}

int sectionKind(QByteArrayView section)
{
    if (section.startsWith(".debug_") || section.startsWith(".zdebug_")
        || section.startsWith(".stab"))
        return Debug;
    const auto *const known =
        std::ranges::find_if(kindsOfSections, [section](const KindOfSection &row) {
            return isSectionOf(section, row.name);
        });
    return known == kindsOfSections.end() ? Other : known->kind;
}

QStringList sectionKinds()
{
    return {u"code"_s, u"constants"_s, u"data"_s, u"zeros"_s, u"links"_s, u"debug"_s, u"other"_s};
}

} // namespace ORR::Companion
