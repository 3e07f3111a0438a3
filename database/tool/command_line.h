#pragma once

#include "database/backups/backup_folder.h"

#include <QDate>
#include <QStringList>

#include <optional>

// A command line that cannot be understood; the message says why.
class EUsage {
public:
    explicit EUsage(const QString &message) : text(message) {}
    const QString &message() const { return text; }

private:
    QString text;
};

// What the program was asked to do.
struct TCommandLine {
    QString command; // "create", "upgrade", "demo", "check", "backup", "keep", "verify", "restore", "export",
                     // "accept"; empty when only help is asked for
    QString folder;  // of --data; exactly one of the two is given
    QString connInfo;                     // of --server
    QString reason;                       // of accept
    QString file;                         // of backup, verify, restore and export
    BackupKind kind = BackupKind::ByHand; // of keep
    QString into;                         // of keep: the folder; empty: the usual one of embedded books
    QString table;                        // of export
    bool escaped = false;                 // of export
    bool drop = false;                    // of export
    int size = 1;                         // of --size
    bool standard = false;                // of create; the next three only with it
    QString institution;                  // the institution's name; empty: none is written
    QString admin;                        // the first user's login name; empty: none is written
    std::optional<QDate> startOfWork;     // the first day of the month
    bool help = false;

    // Raises EUsage.
    static TCommandLine parse(const QStringList &arguments);
};

// What --help prints.
QString helpText();
