#pragma once

#include "src/accounts/balance_store.h"
#include "src/frame/unit.h"

#include <QComboBox>
#include <QPushButton>

// The balance-sheet form: its lines, and the accounts that each of them adds up.
namespace Balans {

class TBalEdit;

// Shows one side at a time. What is typed reaches the list of its side when another side is chosen or the
// form is saved; a save writes all three sides.
class TBalFrm : public TDocumentFrm {
    Q_OBJECT
public:
    explicit TBalFrm(QWidget *owner);

    // Opens the form of the main database, or of the second one, which keeps account numbers as texts. To be
    // called once, after the creation. Raises EDatabaseError.
    void InitializeBal(bool second);

    // Saves all sides. Raises Exception in words, with nothing written and everything typed still there. When
    // another station saved the form meanwhile, the user is asked first.
    void NewBtnClick();
    void CheckBtnClick();
    void ActBoxChange();  // shows the side chosen; the one before is back when it cannot be coded
    void TypeBoxChange(); // the line of the caret becomes of the kind chosen
    void TopBtnClick();
    void BottomBtnClick();

    void CheckToolButtons() override;

private:
    QWidget *attributeBar();
    void addActions();
    void connectEditor();

    bool mayWrite() const;
    QString pickAccount();
    TKnowsAccount knownAccounts() const; // an empty one where accounts are not checked

    void RefreshData();
    void SaveToList();
    bool saveOver(const TBalForm &expected);
    bool mayReplace(const TBalForm &theirs);
    void UpdateCursorPos();
    void judgeLine();

    std::optional<TBalStore> store;
    TBalForm form;   // the lists of the three sides
    TBalForm stored; // as the database had them when they were last read
    TBalSide shown = TBalSide::Aktyvas;

    TBalEdit *BalList;
    QComboBox *ActBox;
    QComboBox *TypeBox;
    QPushButton *TopBtn;
    QPushButton *BottomBtn;
    QAction *acSave;
};

extern TUnit unit;
extern TBalFrm *BalFrm;

} // namespace Balans
