#pragma once

#include "src/frame/unit.h"

#include <optional>

class QGroupBox;
class TColumnLookup;
class TDBGrid;

// Typical operations: named templates of a bookkeeping entry, each with the accounts that it debits and those
// that it credits.
namespace Opr {

// A query that says what a refused write means to its screen. Whatever the post comes from, the user decides
// what becomes of a column that another station changed, too.
class TToldQuery : public TQuery {
public:
    using TQuery::TQuery;

    // Called with what the database raised; may raise something else instead.
    std::function<void(const Exception &)> OnWriteError;

protected:
    void write(TRecordChange &change) override;
};

class TOprFrm : public TDocumentFrm {
    Q_OBJECT
public:
    explicit TOprFrm(QWidget *owner);

    void RefreshData(); // reads the operations anew; the same one stays current
    QSize sizeHint() const override { return {760, 560}; }

    QAction *acNew, *acEdit, *acDelete, *acRefresh, *acSave, *acCancel;

protected:
    void FormCreate() override;
    bool FormClose() override;

private:
    // A list of the screen with its grid.
    struct TList {
        TList(const QString &sql, TOprFrm *screen);
        TToldQuery query;
        TDBGrid *grid;
    };

    void buildActions();
    QWidget *buildBody();
    void prepare(TList &list);
    void prepareOperations();
    void prepareLines(TList &lines, const QString &side);
    QLayout *buildLines(const QString &title, TList &lines);

    void readOperations(const Variant &id);
    void showLines();
    void openLines(TList &lines);

    void activate(TList &list);
    bool mayStart() const;
    void showState();
    void pickAccount(TList &lines);
    void leave(TList &list);
    static void postOrDrop(TList &list);

    TList operations, debit, credit;
    TList *active = &operations; // the one that had the keyboard last
    std::shared_ptr<TColumnLookup> accounts;
    QGroupBox *entry;
    std::optional<Variant> shownOperation; // whose accounts are shown
    std::optional<double> pendingId;       // of the operation that is being added
};

extern TUnit unit;
extern TOprFrm *OprFrm;

} // namespace Opr
