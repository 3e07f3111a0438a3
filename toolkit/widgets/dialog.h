#pragma once

#include "toolkit/widgets/form.h"

#include <QDialog>
#include <QPointer>

class QPushButton;
class QVBoxLayout;
class TDialogBody;

// The property of a control that stays usable in a dialog that is only looked at. The buttons that cancel and
// help have it.
inline constexpr char staysUsable[] = "staysUsable";

// One button of a dialog, described.
struct TDialogButton {
    enum Role { Save, Cancel, Help, Action };

    QString caption; // with its accelerator
    Role role = Action;
    bool isDefault = false;
    std::function<void()> action; // of an Action button
    QString name;                 // how the dialog finds the button again; empty: the caption without "&"
};

// A default button that saves and one that cancels.
QList<TDialogButton> saveAndCancel(const QString &save = QStringLiteral("&Išsaugoti"),
                                   const QString &cancel = QStringLiteral("&Atšaukti"));

// A list's offer to go on with the next new row when its editor is left by Ctrl+Enter; made for as long as
// the object lives. The editor that opens has the offer; what opens from inside the editor has none.
class TNextOffer {
public:
    TNextOffer();
    ~TNextOffer();
    bool taken(); // whether an editor was left that way since the last call

private:
    friend class TDialog;
    static TNextOffer *madeTo(QDialog *dialog);

    TNextOffer *const former;
    QPointer<QDialog> editor;
    bool isTaken = false;
};

// The base of every dialog: described fields and buttons, and the way from loading to saving.
//
// - run() calls Load() and shows the dialog modally; true when the user saved. What Load() raises reaches the
// caller
//   and nothing is shown.
// - The save button runs Validate() and then, in one transaction of the set's session, Save(). When one of
//   them raises, everything is rolled back, the error is shown, and the dialog stays open as it was typed;
//   the cursor goes to the control whose value is refused, which wears a red frame.
// - Closing in any other way, or destroying the dialog, cancels the set. Esc always closes.
// - Enter presses the button that has the focus, elsewhere the default one.
// - Ctrl+Enter saves and goes on where a list offers that, and the save button's tool tip says so.
// - Every label, button and check box has a key of its own (see accelerators.h).
// - Where the screen is too small the fields scroll; the buttons are always in view.
class TDialog : public QDialog {
    Q_OBJECT
public:
    explicit TDialog(QWidget *parent = nullptr);
    ~TDialog() override;

    bool run();

    // F1 and the help button show this topic; 0: no help.
    void setHelpTopic(int topic) { ownTopic = topic; }
    int helpTopic() const { return ownTopic; }
    // How help topics are shown; set once by the program.
    static void setHelpDisplay(std::function<void(int topic)> display);
    static void showHelp(int topic); // by that display; without one nothing happens

    // Saves as the save button does; true when the dialog was closed by it.
    bool trySave();
    // The same, but the dialog stays open: true when everything was saved.
    bool saveAndStay();
    // Called in the transaction of every save before anything is written; raises to refuse.
    void setSaveCondition(std::function<void()> condition) { saveCondition = std::move(condition); }

    void reject() override;

protected:
    // Builds the dialog; to be called once by the constructor of the derived class. The set may be null.
    void describe(const QString &caption, const QList<TFieldRow> &rows, TDataSet *set,
                  const QList<TDialogButton> &buttons = saveAndCancel());

    // --- the steps. Each raises to refuse.
    virtual void Load() {}
    virtual void Validate() {}
    // Posts the set, and applies its cached updates.
    virtual void Save();
    // Runs the save step in a transaction of the set's session, and nothing but the step where there is no
    // set.
    virtual void saveInTransaction(const std::function<void()> &step);

    TFieldForm &form() const { return *ownFields; }
    template<typename T = QWidget> T *control(const QString &name) const
    {
        return ownFields->control<T>(name);
    }
    QPushButton *button(const QString &name) const; // asserts that there is one
    QPushButton *saveButton() const { return ownSaver; }
    TDataSet *dataSet() const { return ownSet; }
    // The layout above the buttons, for what no row describes.
    QVBoxLayout *bodyLayout() const;
    // The dialog's exported global: set while the dialog exists.
    template<class T> void keepIn(T *&global)
    {
        global = static_cast<T *>(this);
        release = [&global] { global = nullptr; };
    }
    // Stops in front of a control: puts the cursor there and raises.
    [[noreturn]] void refuse(const QString &column, const QString &message);

    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void addButtons(const QList<TDialogButton> &buttons);
    void placeButtons();
    void press(const TDialogButton &button);
    void pressByEnter();
    void cancelSet();
    void focusRefused(const Exception &error);
    void fitIntoScreen();

    QPointer<TDataSet> ownSet;
    TFieldForm *ownFields = nullptr;
    TDialogBody *ownBody = nullptr;
    QPushButton *ownSaver = nullptr;
    int ownTopic = 0;
    std::function<void()> release;
    std::function<void()> saveCondition;
    TNextOffer *const nextOffer; // null: nobody goes on
    bool isSaving = false;
    bool wasShown = false;
};
