#pragma once

#include "host/data/code_tree.h"
#include "host/data/key_edit.h"

// A professional group: its code is typed or chosen from the list, its name stands beside it.
class TDrbKlasFra : public TKeyEdit {
    Q_OBJECT
public:
    explicit TDrbKlasFra(QWidget *parent = nullptr);
    ~TDrbKlasFra() override;

    // The code of the group; null for none.
    Variant f_kodas() const;
    // Takes a group as if the user had chosen it; null for none.
    void p_kodas(const Variant &code);

protected:
    std::optional<TKeyRow> rowOf(double key) override;
    std::optional<TKeyRow> rowOfText(const QString &text) override;
    QList<TOffer> offersFor(const QString &text) override;
    double pickFrom(double shownFirst) override;
    void showField(TField *field) override;

private:
    std::shared_ptr<const TCodeTree> catalogue();

    std::shared_ptr<const TCodeTree> groups; // read at the first key of a search
};
