#pragma once

#include "toolkit/data/database.h"
#include "toolkit/data/query.h"
#include "toolkit/text/datetime.h"

#include <memory>

// The logged-in user.
struct TCurrentUser {
    int id = 0;
    QString name; // login name
    QString fullName;
    quint16 workPlaces = 0; // bit k-1 for work place k
    bool viewOnly = false;
    bool userAdmin = false;
};
TCurrentUser &CurrentUser();

// A schema of an earlier revision than the program's.
class EOlderDatabase : public EDatabaseError {
public:
    using EDatabaseError::EDatabaseError;
};

// The host's data module: two open sessions. MainDatas() is null while the host has opened no books.
class TMainDatas {
public:
    TMainDatas(TSessionSettings main, TSessionSettings budget);
    ~TMainDatas();

    // Opens both sessions. Missing files, a database without a schema and one of an
    // older schema raise EDatabaseError, one of a newer schema ENewerDatabase; nothing is created or changed
    // then, and both sessions are closed.
    void Open();

    TDatabase *mnFin_Db();
    TDatabase *mnRavl();

    // The civil-servant categories, by id: one set for all screens, opened by the first that needs it.
    TQuery *Tarn();
    // Who changed them says so: an open set is opened anew.
    void RefreshTarn();
    // The activities, by name; the same is true of them.
    TQuery *Veikl();
    void RefreshVeikl();

    // Opens the main session again read-only in the engine itself, and the budget session too unless the
    // current user may administer users; for view-only users, at login. Pointers to the former sessions and
    // sets are dead afterwards. When it fails the former sessions stay.
    void makeReadOnly();

private:
    std::unique_ptr<TDatabase> main;
    std::unique_ptr<TDatabase> budget;
    std::unique_ptr<TQuery> tarn, veikl;
};
TMainDatas *MainDatas();
// The module becomes the owner; a null pointer closes the old one. The current period is read again.
void setMainDatas(std::unique_ptr<TMainDatas> datas);

// The period row of the start of work, whatever month it stands for.
inline constexpr double startOfWorkPeriod = 6;

// The current period: the last month row of bd_period. 0 and day 0 while there is none.
double EinPer_Id();
TDateTime EinPer_Date();
// Re-reads both; to be called after the period changed. When it is another one, open screens and the status
// bar are told. Raises EDatabaseError; the period known before stays then.
void GetPeriod();
// The same where nobody asked for anything: for a period that another station may have changed. Does nothing
// inside a transaction and while a statement runs, and leaves a database that does not answer to the next
// statement that needs it.
void FollowPeriod() noexcept;

// The institution of the main database: its name, and whether it is a company (organisation type 1), that is,
// keeps separate receivables and payables. Read afresh each time; without an institution: empty, and false.
QString organisationName();
bool UAB();
// Raises EDatabaseError while there is no institution.
void setUAB(bool on);

// Tells when the current period is another one than before; lives as long as the program.
class TPeriodNotifier : public QObject {
    Q_OBJECT
signals:
    void periodChanged();
};
TPeriodNotifier &periodNotifier();
