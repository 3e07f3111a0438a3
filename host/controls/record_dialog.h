#pragma once

#include "host/controls/record_description.h"

#include <QApplication>

// The row of an editor cannot be read; the text is the editor's own.
class EErrorNoOpen : public Exception {
public:
    using Exception::Exception;
};

// The editor of one row, from opening to the result; an editor describes itself and overrides a step only
// where it differs:
//
//     TNewImokDlg::TNewImokDlg(TRecordStart start)
//         : TRecordDialog({.name = "TNewImokDlg", .newCaption = "Įmokos kodas", …}, std::move(start))
//     {
//         keepIn(NewImokDlg);
//     }
//     return editRecord<TNewImokDlg>(key, start);
//
// - A row to be changed that is gone is told, and nothing is shown.
// - Who may only look finds every control disabled.
// - The save runs in one transaction, in which a new key is drawn. When it fails the key is given back, the
//   row is in edit again and everything typed still there.
// - When another station changed the same fields meanwhile, nothing is written: the user is told what changed
//   and takes the other values, keeps his own, or goes back.
// - Leaving in any other way drops the row and the changes held for it.
class TRecordDialog : public TDialog {
    Q_OBJECT
public:
    TRecordDialog(TRecordDescription described, TRecordStart opened,
                  QWidget *owner = QApplication::activeWindow());
    ~TRecordDialog() override;

    // The key of the row, as it is stored after a save.
    Variant rowKey() const;
    bool isNew() const; // the row is a new one

    void reject() override;

protected:
    TQuery &row() const { return *query; }
    TField *field(const QString &column) const { return query->FieldByName(column); }
    TDatabase *Database() const { return sessionOf(description.session); }

    // --- steps; a dialog that overrides one calls the base's
    void Load() override;
    void Validate() override;       // the codes that must be unique are
    virtual void Loaded() {}        // the row is open for changes, nothing is shown yet
    virtual bool mayChange() const; // the user may; else all is disabled
    virtual bool CanSave() const;   // by the rule described
    virtual bool takesKey() const;  // the save draws a key
    void saveInTransaction(const std::function<void()> &step) override;

    // Judges the save button; to be called when something changed that is no field of the form.
    void judgeSave();

    const TRecordDescription description;

private:
    void orNotOpened(const std::function<void()> &read);
    void openRow();
    void requireUnique(const TUniqueCode &code);
    void requireAllUnique();
    void requireValid();
    void saveOnce(const std::function<void()> &step);
    void takeBack(const Variant &formerKey);
    bool settle(const EChangedElsewhere &conflict);

    const TRecordStart opening;
    TQuery *query;
    bool adds = false; // also after a failed save has put the held row back into edit
    bool changed = false;
};

// Shows the editor; true when the user saved, key is then that of the saved row and otherwise stays as it
// was.
template<class Dialog, class Key, class... Arguments> bool editRecord(Key &key, Arguments &&...arguments)
{
    Dialog dialog(std::forward<Arguments>(arguments)...);
    if (!dialog.run())
        return false;
    key = TKeyOf<Key>::from(dialog.rowKey());
    return true;
}
