#pragma once

#include "toolkit/data/database.h"

#include <QComboBox>

// The picker of a month period: 'yyyy "m." mmmm', the newest picked at first. Keys are per_id.
class TPeriodBox : public QComboBox {
    Q_OBJECT
public:
    enum class Order { OldestFirst, NewestFirst };

    explicit TPeriodBox(Order order, QWidget *parent = nullptr);

    // Reads the periods anew without telling of a change; the newest one is picked. Raises EDatabaseError;
    // the box is empty then.
    void fill();
    // The same, and raises "Darbo pradžios periodas nenustatitas!" when there is none.
    void fillOrRaise();

    Variant period() const; // the one picked; null while the box is empty
    bool picksNewest() const;

private:
    const Order order;
};
