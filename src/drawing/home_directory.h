#pragma once

#include <QString>
#include <QStringList>

namespace ORR::Drawing {

// What the search for the installation goes by.
struct HomeClues
{
    QString argv0; // as the program was called
    QString workingDirectory;
    QString orrHome; // $ORRHOME
    QStringList path; // the entries of $PATH; an empty one is the working directory
};

// The result of the search, and what it did on the way, a complete line each.
struct HomeSearch
{
    QString directory; // absolute, without a slash at its end; empty if there is none
    QStringList trace;
};

// The clues that this process was started with.
HomeClues homeClues(const QString &argv0);

// Looks for the root of the installation, the directory that holds `conf`. The sources in their
// order; the first one that leads to such a directory decides:
//
//   $ORRHOME                       is the root itself
//   argv0, an absolute path        the root of that program
//   argv0, a relative path         the root of that program, from the working directory
//   argv0, a bare name             the root of the first such program along PATH
//   PATH                           the root of the first directory for programs that has one
//
// A program belongs to a root in one of these ways, with its symbolic links resolved or, if that
// leads nowhere, as it was named:
//
//   <prefix>/bin/<program>           as it is installed, and in a build tree, with the root
//                                    <prefix>/share/orrlayout; else <prefix> itself
//   <root>/bin/<platform>/<program>  as older installations have it
//   <root>/<program>                 a folder to be carried around
//
// The platform may have any name. A folder to be carried around may lie in one called `bin`, too,
// and comes second there.
HomeSearch findHome(const HomeClues &clues);

// The search at the start of the program. Traced on standard error with the debug flag of group
// "orrhome" and keyword "trace".
QString startHome(const QString &argv0);

// Where the empty package lies from which a drawing in VSDX is made; empty without a home.
QString visioTemplateDirectory(const QString &homeDirectory);

// The configuration of the fonts that is installed with the program: one family, the same on every
// machine. Empty without a home.
QString pinnedFontsFile(const QString &homeDirectory);

} // namespace ORR::Drawing
