#pragma once

#include "host/controls/form_action.h"
#include "toolkit/text/ansistring.h"
#include "toolkit/widgets/guard.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <utility>

class QAction;
class QBoxLayout;
class QMenu;
class QToolBar;

// Every document window says this of itself.
struct TDocumentDescription {
    QString name; // the screen's class: "TObjektFrm"; its settings are kept under it
    QString caption;
    int help = 0; // help topic; 0: none
};

// The base of every document window: tool bar, menu, status bar and the life of a screen. What it shows is
// the screen's own: setBody().
//
//     TObjektFrm *frm = createForm<TObjektFrm>(owner);
//
// createForm() runs FormCreate, and FormDestroy at the end however the window goes; a screen whose FormCreate
// raises is gone again. What the user starts is guarded: errors go to the error display.
//
// Keys: F1 help, Ctrl+W and Ctrl+F4 close, Esc as escape() says.
class TDocumentFrm : public QWidget {
    Q_OBJECT
public:
    TDocumentFrm(TDocumentDescription described, QWidget *owner);
    ~TDocumentFrm() override;

    QAction *acCaptions, *acToolBar, *acHelp, *acClose;

    void CloseBtnClick();
    void ButtonsCaptionClick(); // tool buttons with or without captions; remembered
    void mnToolsClick();        // tool bar shown or hidden; remembered
    void acHelpExecute();

    // Enables and shows the actions for what is current; called whenever that or the user changes. A screen
    // that overrides it calls the base first and only narrows. Described actions are judged after it.
    virtual void CheckToolButtons() {}

    // The text of a status panel, counted from 0. The message stays until the next one.
    void setPanel(int index, const QString &text);
    QString panel(int index) const;
    void setMessage(const QString &text);
    QString message() const;

    // Shows the window above all others until it is closed; the screen is gone afterwards.
    void ShowModal();

    bool isDestroyed() const; // FormDestroy was called

protected:
    // --- the life of a screen; a screen that overrides one calls the base's
    virtual void FormCreate();
    virtual void FormActivate(); // the window came to the front
    virtual bool FormClose();    // whether the window may close; remembers what the user arranged
    virtual void FormDestroy();

    virtual void PeriodChanged() {} // the accounting period is another one
    // While it lives the window stands on what it shows: a period that is another one meanwhile is told at
    // the end, unless the window is gone by then.
    class TSamePeriod {
    public:
        explicit TSamePeriod(TDocumentFrm *frm);
        ~TSamePeriod();
        Q_DISABLE_COPY_MOVE(TSamePeriod)

    private:
        const QPointer<TDocumentFrm> window;
    };
    virtual void escape(); // closes

    // What the user arranged beyond placement and tool bar, kept in the settings.
    virtual void restoreArrangement();
    virtual void saveArrangement();
    QString settingsGroup() const;

    // The screen's exported global: set while the screen is open, by the activation, and null afterwards.
    template<class T> void keepIn(T *&global)
    {
        hold = [this, &global] { global = static_cast<T *>(this); };
        release = [&global, self = static_cast<T *>(this)] {
            if (global == self)
                global = nullptr;
        };
    }

    // --- building
    // The screen's content between tool bar and status bar; to be called once.
    void setBody(QWidget *body);
    // Adds an action where its description says.
    QAction *addFormAction(const TFormAction &described);
    // Puts actions as a group of buttons, behind a separator when there are buttons already; null then.
    QAction *addButtonGroup(const QList<QAction *> &group);
    void addMenuGroup(const QList<QAction *> &group);
    QMenu *addSubmenu(const QString &caption, const QList<QAction *> &entries);
    // A line in the drop-down of the delete button, whose default stays the delete of one row.
    void addToDeleteMenu(QAction *deleteAction, QAction *further);
    // A control behind the tool buttons, with a label whose accelerator leads to it.
    virtual void addToToolBar(const QString &label, QWidget *control);
    void addPanel(int width = 150);
    void setLoading(bool on); // a bar in the status bar moves
    // The window's menu opens where the user asks for it on the widget.
    void offerMenu(QWidget *on);

    // Judges all actions; call this, not CheckToolButtons().
    void judgeActions();

    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;

    const TDocumentDescription document;

private:
    template<class T> friend class TCreatedForm;
    void markCreated();
    void finish(); // FormDestroy, once
    void tellPeriod();

    void addCommonActions();
    void yieldAccelerator(const QString &caption);
    QWidget *placed();
    void restorePlacement();
    void showCaptions(bool on);
    void showToolBar(bool on);
    class TStatusPanels &status();

    struct Private;
    std::unique_ptr<Private> w;
    std::function<void()> hold, release;
};

// Runs FormDestroy while the object is still a T.
template<class T> class TCreatedForm final : public T {
public:
    using T::T;
    void create()
    {
        this->FormCreate();
        this->markCreated();
    }
    ~TCreatedForm() override { this->finish(); }
};

// Creates a document window. Arguments are those of its constructor.
template<class T, class... Arguments> T *createForm(Arguments &&...arguments)
{
    auto form = std::make_unique<TCreatedForm<T>>(std::forward<Arguments>(arguments)...);
    form->create();
    return form.release();
}

// The line edit, box or list in a label's care: its buddy, and its accessible name if it has none.
class QLabel;
QLabel *labelFor(const QString &text, QWidget *control);
