#include "layout/graflib/polyline_text.h"

#include "graph/attribute_values.h"
#include "graph/numbers.h"

namespace ORR::Graph::Layout {

QString polylineText(const FourNumbers &numbers)
{
    QString text;
    QString last; // the text of the number before: neighbours are often equal
    for (size_t i = 0; i < numbers.size(); ++i) {
        if (i == 0 || numbers[i] != numbers[i - 1])
            last = numberText(numbers[i]);
        if (i > 0)
            text += u' ';
        text += last;
    }
    return text;
}

std::optional<FourNumbers> polylineNumbers(const QString &text)
{
    FourNumbers numbers{};
    QStringView rest(text);
    for (size_t i = 0; i < numbers.size(); ++i) {
        const bool last = i + 1 == numbers.size();
        const qsizetype blank = rest.indexOf(u' ');
        if ((blank < 0) != last)
            return {};
        numbers[i] = numberFrom(last ? rest : rest.first(blank));
        rest = rest.mid(blank + 1);
    }
    return numbers;
}

} // namespace ORR::Graph::Layout
