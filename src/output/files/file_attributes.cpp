#include "output/files/file_attributes.h"

#include <QByteArray>
#include <QByteArrayList>

#include <cerrno>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace ORR::Graph {

namespace {

constexpr char accessList[] = "system.posix_acl_access";
constexpr mode_t permissions = 0777;

// Labels of other kinds belong to the content: a signature, say, or what a program may do.
bool isKept(const QByteArray &attribute)
{
    return attribute.startsWith("user.") || attribute.startsWith("system.")
        || attribute == "security.selinux";
}

QByteArrayList attributeNames(int file)
{
    QByteArray names(qMax<qsizetype>(::flistxattr(file, nullptr, 0), 0), Qt::Uninitialized);
    names.truncate(
        qMax<qsizetype>(::flistxattr(file, names.data(), static_cast<size_t>(names.size())), 0));
    return names.split('\0');
}

bool copyAttribute(const QByteArray &name, int from, int to)
{
    const ssize_t size = ::fgetxattr(from, name.constData(), nullptr, 0);
    QByteArray value(qMax<qsizetype>(size, 0), Qt::Uninitialized);
    const ssize_t count =
        ::fgetxattr(from, name.constData(), value.data(), static_cast<size_t>(value.size()));
    return count >= 0
        && ::fsetxattr(to, name.constData(), value.constData(), static_cast<size_t>(count), 0) == 0;
}

bool keepExtendedAttributes(int from, int to)
{
    // A folder may give one to each file that is made in it.
    ::fremovexattr(to, accessList);
    const QByteArrayList names = attributeNames(from);
    for (const QByteArray &name : names) {
        if (isKept(name) && !copyAttribute(name, from, to) && name == accessList)
            return false;
    }
    return true;
}

} // namespace

bool keepFileAttributes(int from, int to)
{
    struct stat old = {};
    struct stat made = {};
    if (::fstat(from, &old) != 0 || ::fstat(to, &made) != 0)
        return false;
    const bool isSameOwner = old.st_uid == made.st_uid && old.st_gid == made.st_gid;
    if (!isSameOwner && ::fchown(to, old.st_uid, old.st_gid) != 0)
        return false;
    // Permissions come last: with an access list they are a part of it.
    return keepExtendedAttributes(from, to) && ::fchmod(to, old.st_mode & permissions) == 0;
}

} // namespace ORR::Graph
