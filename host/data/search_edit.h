#pragma once

#include "host/data/offer_list.h"
#include "toolkit/widgets/db_control.h"

#include <functional>

class QHBoxLayout;
class QToolButton;

// The base of the controls that hold one row of a catalogue over a column: a text is typed, what fits is
// offered below it, and a button opens a picker.
//
// - While the user types, Status() is 'S' (searching) and the value is still the old one. Enter, Tab, leaving
//   the edit, choosing an offer and the set's Post end the search.
// - Enter on an offer chooses it. Any other Enter ends the search and, when what stands there is fine, goes
//   on to the dialog's default button. Esc closes the offers first.
// - F4, Alt+Down and the button open the picker.
class TSearchEdit : public QWidget, public TDBControl {
    Q_OBJECT
public:
    ~TSearchEdit() override;

    // What stands in the edit: what the row is shown by, or what the user typed.
    QString GetText() const;
    // 'S' while the user is searching, a blank otherwise.
    QChar Status() const { return searching ? u'S' : u' '; }

    bool isReadOnly() const { return !editable; }

    // The name for readers of the screen; edit and button get theirs from it.
    void setLabel(const QString &label);

    // Called at every key typed (Status() is then 'S') and after the value changed.
    std::function<void()> OnChange;

    void commit() override;

signals:
    void changed(); // after OnChange, when the value is another one

protected:
    // What can be typed, and what the button's tool tip says.
    enum class Typing { Searches, Nothing };
    TSearchEdit(Typing typing, const QString &pickHint, QWidget *parent);

    // The user typed: offers what fits.
    virtual void lookFor(const QString &text) = 0;
    // The user goes to the offers: a search that waits for a pause is due.
    virtual void lookNow() {}
    virtual void openPicker() = 0;
    // Ends a search of a control that is bound to no column; raises like commit().
    virtual void commitUnbound() = 0;

    // Takes a row as if the user had chosen it. Raises what the column raises.
    void choose(double key);
    // The row chosen instead of typed, for storeField().
    const std::optional<double> &chosen() const { return choice; }
    // Shows a text; whatever was being searched for is over.
    void showText(const QString &text);
    // Tells the screen.
    void heard();

    void setEditable(bool on) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

    bool typingSearches() const { return typing == Typing::Searches; }
    QLineEdit *line() const { return edit; }
    TOfferList *offers() const { return list; }
    QHBoxLayout *row() const;
    // The text cannot be gone to, only the button.
    void focusOnButton();

private:
    void build();
    void typed(const QString &text);
    bool takesKey(const QKeyEvent &key);
    bool takesEnter();
    void pick();

    QLineEdit *edit;
    QToolButton *button;
    TOfferList *list;
    Typing typing;
    QString hint;
    std::optional<double> choice;
    bool searching = false;
    bool editable = true;
};
