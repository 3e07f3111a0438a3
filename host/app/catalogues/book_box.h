#pragma once

#include <QComboBox>

class TDatabase;

// The classification books; none while there is none.
class TBookBox : public QComboBox {
public:
    TBookBox();

    double book() const { return currentData().toDouble(); } // 0 without a book

    // The statement of all its nodes, as TCodeTree::read() takes them.
    QString nodes() const;

    // Reads the books anew; the one with the key is chosen, or the first when it is gone.
    void read(TDatabase *database, double chosen);
};
