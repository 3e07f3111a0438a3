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

    // Opens both sessions again read-only in the engine itself; for view-only users, at login. Pointers to
    // the former sessions are dead afterwards. When it fails the former sessions stay.
    void makeReadOnly();

private:
    std::unique_ptr<TDatabase> main;
    std::unique_ptr<TDatabase> budget;
};
TMainDatas *MainDatas();
// The module becomes the owner; a null pointer closes the old one. The current period is read again.
void setMainDatas(std::unique_ptr<TMainDatas> datas);

// The current period: the last month row of bd_period. 0 and day 0 while there is none.
double EinPer_Id();
TDateTime EinPer_Date();
// Re-reads both; to be called after the period changed. Open screens and the status bar are told, also when
// the period is the same as before.
void GetPeriod();

// The institution of the main database: its name, and whether it is a company (organisation type 1), that is,
// keeps separate receivables and payables. Read afresh each time; without an institution: empty, and false.
QString organisationName();
bool UAB();
// Raises EDatabaseError while there is no institution.
void setUAB(bool on);

// Tells of a changed period; lives as long as the program.
class TPeriodNotifier : public QObject {
    Q_OBJECT
signals:
    void periodChanged();
};
TPeriodNotifier &periodNotifier();
