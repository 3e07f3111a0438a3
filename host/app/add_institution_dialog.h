#pragma once

#include "host/data/connections.h"
#include "toolkit/widgets/dialog.h"

#include <QLineEdit>
#include <QRadioButton>

// Asks where the books of an institution are: in a folder, or on a server. They are looked into before the
// dialog closes, so it closes only with books that can be opened; those that each person opens with a login
// of his own are taken as they are. A folder without books is taken when the user wants them made there.
class TAddInstitutionDlg : public TDialog {
    Q_OBJECT
public:
    explicit TAddInstitutionDlg(QWidget *owner);

    // --- after the dialog was accepted
    const TBooksSettings &books() const { return place; }
    QString name() const { return institution; } // as the books have it
    bool isNew() const { return fresh; }         // there are no books yet

protected:
    void Validate() override;

private:
    void showChoice();
    void browse();
    TBooksSettings typedFolder();
    TBooksSettings typedServer();
    bool booksAreToBeMade();

    QRadioButton *FolderRadio;
    QRadioButton *ServerRadio;
    QLineEdit *FolderEdit;
    QLineEdit *ServerEdit;
    QLineEdit *PassEdit;
    TBooksSettings place;
    QString institution;
    bool fresh = false;
};
