#pragma once

#include <QListWidget>

#include <optional>

class QKeyEvent;
class QLineEdit;

// One row of a catalogue as it is offered: how it reads, and its key.
struct TOffer {
    QString text;
    double key = 0;
};

// The rows that fit a text being typed, shown below its edit. The edit keeps the focus and hands its keys on.
class TOfferList : public QListWidget {
    Q_OBJECT
public:
    explicit TOfferList(QLineEdit *edit);

    // Shows them, none highlighted; without any it goes away.
    void offer(const QList<TOffer> &offers);
    int offerCount() const { return count(); }
    TOffer at(int row) const;

    // Goes away; what was offered last can still be asked for.
    void closeUp();

    // The key of the offer that the user moved to; nothing while the list is not open.
    std::optional<double> highlighted() const;

    // Up, Down and the like move in the open list, Esc closes it. False: the key is not for the list.
    bool takesKey(const QKeyEvent &key);

signals:
    void picked(double key); // by the mouse

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeBelow();

    QLineEdit *edit;
};
