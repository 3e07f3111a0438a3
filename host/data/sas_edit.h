#pragma once

#include "host/data/accounts_chart.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

class QCompleter;
class QLabel;
class QLineEdit;
class QStandardItemModel;
class QToolButton;
class TInvalidMark;
class TDataSet;

// An account edit with lookup: the number is typed, the name stands beside it, the button opens a picker.
//
// While the user types, the accounts whose number or name fits are offered, and Status() is 'S' (searching):
// the value is still the old one. Enter, Tab, leaving the edit or choosing an offered account ends the
// search: a number that exists, or a text that only one account fits, becomes the value; an empty text the
// value 0; any other text stays, is marked, and the value is 0.
class TSasEdit : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool detailOnly READ detailOnly WRITE setDetailOnly)
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY changed USER true)

public:
    explicit TSasEdit(QWidget *parent = nullptr);
    ~TSasEdit() override;

    // The key of the account; 0 for none. Setting it shows the account's number and name; a key that is no
    // account's counts as 0.
    double value() const;
    void setValue(double id);

    // What stands in the edit: the number of the account, or what the user typed.
    QString GetText() const;

    // 'S' while the user is searching, a blank otherwise.
    QChar Status() const;

    // Takes what is typed now, as leaving the edit does. Raises what OnChange raises.
    void commit();

    // Every Post of the set ends a search first, so that saving by a key does not lose the number being
    // typed. It follows one set at a time; null: none.
    void commitWith(TDataSet *set);

    // Offers detail accounts only. The number of a summary account can still be typed or set: what a summary
    // account means is the screen's rule.
    bool detailOnly() const { return onlyDetails; }
    void setDetailOnly(bool on) { onlyDetails = on; }

    bool isReadOnly() const;
    void setReadOnly(bool on);

    // Called at every key typed (Status() is then 'S') and after the value changed. When it raises after a
    // change, the former value returns; a search in progress is not disturbed.
    std::function<void()> OnChange;

    // The name for readers of the screen; the edit and the button get theirs from it.
    void setLabel(const QString &label);

signals:
    void changed(); // after OnChange, when the value is another one
    void browse();  // the button, F4 or Alt+Down: a picker is wanted

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void build();
    void typed(const QString &text);
    void offer(const QString &text);
    void take(double id);
    void show(const std::optional<TAccount> &account);
    void mark(bool isWrong);
    double accountOf(const QString &text);
    bool fits(int row) const;
    const TCodeTree &chart();
    void commitQuietly();
    void askPicker();

    QLineEdit *edit;
    QToolButton *button;
    QLabel *nameLabel;
    QCompleter *completer;
    QStandardItemModel *offered;
    std::unique_ptr<TCodeTree> accounts; // read at the first key of a search
    std::unique_ptr<TInvalidMark> wrong; // the frame around a text that is no account
    QPointer<TDataSet> posted;           // its Post ends a search
    int flusher = 0;
    double id = 0;
    bool searching = false;
    bool onlyDetails = false;
};
