#pragma once

#include "host/data/code_tree.h"
#include "host/data/key_edit.h"

// A table of codes with names in the main books.
struct TCatalogue {
    QString table;
    QString key; // the code, a whole number
    QString name;
    QString caption; // of the picker
    QString pickHint;
    QString noSuch; // "%1" is what was typed
    QString gone;
};

// A row of a small catalogue: its code is typed or chosen from the list, its name stands beside it.
class TCatalogueEdit : public TKeyEdit {
    Q_OBJECT
public:
    explicit TCatalogueEdit(const TCatalogue &catalogue, QWidget *parent = nullptr);
    ~TCatalogueEdit() override;

protected:
    std::optional<TKeyRow> rowOf(double key) override;
    std::optional<TKeyRow> rowOfText(const QString &text) override;
    QList<TOffer> offersFor(const QString &text) override;
    double pickFrom(double shownFirst) override;
    void showField(TField *field) override;

private:
    std::shared_ptr<const TCodeTree> readCodes();

    const TCatalogue catalogue;
    std::shared_ptr<const TCodeTree> codes; // read at the first key of a search
};
