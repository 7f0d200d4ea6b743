// Writes the source of names.h from the tables.
#include "drawing/format_table.h"
#include "drawing/layout_table.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QString definition(const QString &what, const QStringList &names)
{
    return u"const char *const %1Names[] = {\"%2\"};\nconst std::size_t %1Count = %3;\n"_s.arg(
        what, names.join("\", \""_L1), QString::number(names.size()));
}

} // namespace

int main()
{
    const QString source = "#include \"api/names.h\"\n\nnamespace ORR::Api {\n\n"_L1
        + definition(u"engine"_s, ORR::Drawing::layoutNames())
        + definition(u"format"_s, ORR::Drawing::formatNames()) + "\n} // namespace ORR::Api\n"_L1;
    return std::fputs(source.toUtf8().constData(), stdout) < 0 || std::fflush(stdout) != 0;
}
