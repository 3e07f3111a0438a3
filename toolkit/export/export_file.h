#pragma once

#include "toolkit/export/line_buffer.h"
#include "toolkit/text/file_error.h"

#include <QSaveFile>

// A text file that stands under its name only when it is whole: written piece by piece beside it and renamed
// by commit(). Until then, and when commit() is never reached, a file of that name stays as it is and nothing
// is left beside it. What it holds comes from books, so it is readable by its owner alone.
//
// Every trouble of the disk is raised as an EFileError that names the file and the reason.
class TExportFile {
public:
    explicit TExportFile(const QString &name);

    // What is to be written next; add to it and end the line.
    TLineBuffer &pending() { return bytes; }
    // Ends a line as the platform does, and writes what is pending once it is worth it.
    void endLine();

    // Brings everything to the disk and gives the file its name.
    void commit();

private:
    void write();
    [[noreturn]] void fail();

    QSaveFile file;
    TLineBuffer bytes;
};
