#pragma once

#include <QProcess>

// Runs a program to its end with the given input and returns the milliseconds it took, the start included.
// Ends this program with the child's own text when it fails.
double runChild(const QString &program, const QStringList &arguments, const QByteArray &input);

// Milliseconds from the start of a program to the given line on its standard error; the program is ended
// then. Ends this program when the line does not come.
double millisecondsToLine(const QString &program, const QStringList &arguments, const QByteArray &line);
