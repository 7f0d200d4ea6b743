#include "drawing/environment.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QLoggingCategory>
#include <QSettings>

#include <clocale>
#include <cstring>

using namespace Qt::StringLiterals;

namespace ORR::Drawing {

namespace {

// The numbers that the toolkit and the libraries below it read and write are those of a file, not
// of a country.
void keepNumbersFromTheLocale()
{
    QLocale::setDefault(QLocale::c());
    std::setlocale(LC_NUMERIC, "C");
}

void redirectSettings()
{
    QString directory = qEnvironmentVariable("HALVANEREDIRECTDIR");
    const QSettings redirection(QSettings::defaultFormat(), QSettings::UserScope, u"Halvane"_s,
                                u"HalvaneRedirect"_s);
    if (redirection.contains(u"redirectDir"_s))
        directory = redirection.value(u"redirectDir"_s).toString();
    const QString path = QDir::toNativeSeparators(qEnvironmentVariable("HALVANEREDIRECTPATH"));
    if (!path.isEmpty())
        directory = path;
    if (directory.isEmpty())
        return;
    QSettings::setPath(QSettings::defaultFormat(), QSettings::UserScope, directory);
    qputenv("HALVANEREDIRECTDIR", directory.toLocal8Bit());
}

QLoggingCategory::CategoryFilter &formerFilter()
{
    static QLoggingCategory::CategoryFilter filter = nullptr;
    return filter;
}

void filterCategory(QLoggingCategory *category)
{
    if (formerFilter())
        formerFilter()(category);
    if (std::strcmp(category->categoryName(), "qt.accessibility.table") == 0)
        category->setEnabled(QtDebugMsg, false);
}

void installCategoryFilter()
{
    // Installing calls the filter for every category that stands, before the former one is known
    // here: it is installed a second time for their sake.
    const auto former = QLoggingCategory::installFilter(filterCategory);
    if (former == filterCategory)
        return;
    formerFilter() = former;
    QLoggingCategory::installFilter(filterCategory);
}

} // namespace

void startApplication(const QString &name)
{
    keepNumbersFromTheLocale();
    QCoreApplication::setApplicationName(name);
    QCoreApplication::setOrganizationDomain(u"halvane.example"_s);
    QCoreApplication::setOrganizationName(u"Halvane"_s);
    QSettings::setDefaultFormat(QSettings::IniFormat);
    redirectSettings();
    qputenv("UNICODEMAP_JP", "open-ascii");
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-logging --log-level=3");
    qputenv("PERL_SKIP_LOCALE_INIT", "1");
    installCategoryFilter();
}

QString logFileName(const QString &logDirectory, const QString &name)
{
    return QDir(logDirectory).filePath(u"%1.log"_s.arg(name));
}

} // namespace ORR::Drawing
