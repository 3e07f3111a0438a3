#pragma once

#include <QProcess>

// The program velmora-db, which makes, verifies and restores backups, so that there is one way for all of
// them.

// How a run of it ended.
struct TToolEnd {
    QString said;    // on its standard output
    QString trouble; // why it failed; empty: it did not
    bool done() const { return trouble.isEmpty(); }
};

// What a restored or verified copy was found to hold that does not fit together, a line each; empty: nothing.
QString notesOf(const TToolEnd &end);

// Makes a process of it that works on the open books; words are the command and what belongs to it.
void prepareTool(QProcess &tool, const QStringList &words);
// How it ended, of a process that runs no longer.
TToolEnd toolEnd(QProcess &tool);

// Runs it on the open books and shows the progress meanwhile; windows are painted but take no input.
TToolEnd runTool(const QStringList &words, const QString &progress);
// The same for a process that was prepared before.
TToolEnd runTool(QProcess &tool, const QString &progress);

// Another program in its place, for tests; empty: the one beside this program.
void setToolProgram(const QString &program);
