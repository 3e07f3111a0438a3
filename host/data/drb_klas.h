#pragma once

#include "host/data/catalogue_edit.h"

// A professional group: its code is typed or chosen from the list, its name stands beside it.
class TDrbKlasFra : public TCatalogueEdit {
    Q_OBJECT
public:
    explicit TDrbKlasFra(QWidget *parent = nullptr);

    // The code of the group; null for none.
    Variant f_kodas() const;
    // Takes a group as if the user had chosen it; null for none.
    void p_kodas(const Variant &code);
};
