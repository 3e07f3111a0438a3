#pragma once

#include "database/backups/backup_folder.h"
#include "toolkit/widgets/dialog.h"

#include <QLabel>
#include <QTreeWidget>

// The backups of the open books, the newest first: when and why each was made, of whose books, how far they
// had come, and whether it is sound. One is made, one is verified, the folder is shown; what is to be
// restored is only chosen here. Of a server's books that have no folder it says who is to do all that.
class TBackupsDlg : public TDialog {
    Q_OBJECT
public:
    explicit TBackupsDlg(QWidget *owner);

    // What the user chose to restore, after he was asked; nothing when he only looked.
    const std::optional<TBackup> &toRestore() const { return chosen; }

private:
    void readFolder();
    void showPlace();
    void enableButtons();
    const TBackup *current() const;
    void make();
    void restore();
    void verify();
    void showFolder();
    void chooseFolder();
    void forgetFolder();

    QLabel *Place;
    QTreeWidget *List;
    QList<TBackup> backups;
    QHash<QString, QString> verdicts; // of those that were verified while the window is open, by file
    std::optional<TBackup> chosen;
};
