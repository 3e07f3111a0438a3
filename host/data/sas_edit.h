#pragma once

#include "host/data/account_picker.h"
#include "host/data/code_tree.h"
#include "host/data/key_edit.h"

// What an account edit offers, and what its column takes.
struct TSasRule {
    enum WhenNotDetail {
        Keep,   // any account is stored; what a summary account means is the column's rule
        Refuse, // the column keeps the account that it has
        Clear   // the column is emptied, and so it is while what is typed is no account
    };
    bool detailOnly = true; // offers detail accounts only
    TSasPick picker;
    WhenNotDetail whenNotDetail = Keep;
    bool zeroKeeps = false; // an emptied edit leaves the column as it was
};

// An account edit with lookup: the number is typed, the name stands beside it, the button opens the chart of
// accounts. A number that exists, or a text that only one account fits, becomes the value.
class TSasEdit : public TKeyEdit {
    Q_OBJECT
public:
    explicit TSasEdit(QWidget *parent = nullptr);
    explicit TSasEdit(const TSasRule &rule, QWidget *parent = nullptr);
    ~TSasEdit() override;

    const TSasRule &rule() const { return given; }

protected:
    std::optional<TKeyRow> rowOf(double key) override;
    std::optional<TKeyRow> rowOfText(const QString &text) override;
    QList<TOffer> offersFor(const QString &text) override;
    double pickFrom(double shownFirst) override;
    void store(TField &field, const std::optional<TKeyRow> &row) override;
    void storeNothing(TField &field) override;
    bool refusesGone() const override;
    void showField(TField *field) override;

private:
    TSasRule given;
    std::unique_ptr<TCodeTree> chart; // read at the first key of a search
};
