#pragma once

#include "host/data/party.h"
#include "host/data/search_edit.h"

class QTimer;

// The columns that a counterparty edit stands over: the row's key of the register, its free text, and the
// column of the register that is shown ("DKA_I_KOD", "DKA_KOD" or "DKA_PAVAD").
struct TDKAColumns {
    QString id;
    QString free;
    QString shown;
};

// A counterparty: one of the register, or typed in free. It is bound to the free-text column.
//
// A text that is just that of one counterparty, and a row chosen from the list, become the key, and the free
// texts of the row are emptied. Any other text becomes the free text, and the key is emptied. A text that
// several counterparties have is refused: one of them is to be chosen. Edits over the same key follow each
// other. What fits is looked for when the user pauses, and a few rows are read whatever the register's size.
class TDKAComboBox : public TSearchEdit {
    Q_OBJECT
public:
    explicit TDKAComboBox(const TDKAColumns &columns, QWidget *parent = nullptr);

    double value() const; // the key of the counterparty; 0 for a free text and for none
    // The account of the chosen counterparty; 0 for a free text and for none.
    double Get_dkaSASID() const;

    void commit() override;
    bool showsValue() const override;

protected:
    void lookFor(const QString &text) override;
    void lookNow() override;
    void openPicker() override;
    void commitUnbound() override {}
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;

private:
    void offerFor(const QString &text);
    std::optional<TParty> settled(const QString &text) const;
    void storeParty(const TParty &party);
    QList<TDKAComboBox *> onSameKey();
    TField &keyField() const;

    TDKAColumns columns;
    QTimer *pause;
    std::optional<double> shownKey; // what the counterparty below was read for
    std::optional<TParty> party;
};
