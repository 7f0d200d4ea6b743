#pragma once

#include <QByteArray>
#include <QString>

namespace ORR::Drawing {

// To be called before the application object is made: shuts out what the environment would tell
// the toolkit, makes the order of its hashes the same in every run, so that attributes are written
// in one order, and silences it, but for what ends the process.
void prepareToolkit();

// Makes the application object: no window is ever shown, but measuring and painting text need it.
// The toolkit sees the name of the program and none of its arguments.
//
// Nothing that the toolkit and the libraries below it say meanwhile reaches standard error, unless
// one of them fails or ends the process, by whatever means: the status is then 1, and standard
// error says in one line what was said. Before that, standard output gets `lastWords`: what the
// program would have printed if it had lived.
void startToolkit(const char *programName, const QByteArray &lastWords = {});

// Settles how fonts are painted and finds one, which loads their configuration and list. The
// message if that can't be had: texts would be measured and painted in whatever stands in for it.
// Empty for success.
QString fontFault();

} // namespace ORR::Drawing
