#include "companion/produce/declarations.h"

namespace ORR::Companion {

int Declarations::declare(const QString &name, const QString &kind)
{
    const int known = find(name);
    if (known < 0) {
        places.insert(name, int(declarations.size()));
        declarations.append({.name = name, .kind = kind});
        return int(declarations.size()) - 1;
    }
    if (declarations[known].kind.isEmpty())
        declarations[known].kind = kind;
    return known;
}

void Declarations::addMember(int declaration, const Member &member)
{
    const std::pair<int, QString> key(declaration, member.text);
    if (members.contains(key))
        return;
    members.insert(key, true);
    declarations[declaration].members.append(member);
}

void Declarations::inherit(int declaration, int base)
{
    QList<int> &bases = declarations[declaration].bases;
    if (declaration != base && !bases.contains(base))
        bases.append(base);
}

} // namespace ORR::Companion
