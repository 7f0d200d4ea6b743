#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

namespace ORR::Companion {

// Types with their members and what they inherit; or files with their functions.
class Declarations
{
public:
    enum Access { Public, Protected, Private, Unsaid };

    struct Member
    {
        QString text; // as it is shown
        Access access;
        qint64 line; // members stand in the order of lines
    };
    struct Declaration
    {
        QString name;
        QString kind; // "class"
        QList<Member> members = {};
        QList<int> bases = {}; // of all
    };

    // That of a name, made if there is none; its kind is the first one that is not empty.
    int declare(const QString &name, const QString &kind);
    // Passed over if the declaration has one of that text.
    void addMember(int declaration, const Member &member);
    void inherit(int declaration, int base);

    const QList<Declaration> &all() const { return declarations; }
    int find(const QString &name) const { return places.value(name, -1); }

private:
    QList<Declaration> declarations;
    QHash<QString, int> places;
    QHash<std::pair<int, QString>, bool> members;
};

} // namespace ORR::Companion
