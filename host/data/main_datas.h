#pragma once

#include "toolkit/data/database.h"
#include "toolkit/data/query.h"
#include "toolkit/text/datetime.h"

#include <memory>

// The logged-in user.
struct TCurrentUser {
    int id = 0;
    QString name;             // login name
    QString fullName;
    quint16 workPlaces = 0;   // bit k-1 for work place k
    bool viewOnly = false;
    bool userAdmin = false;
};
TCurrentUser &CurrentUser();

// The host's data module: two open sessions. Null outside connect() … disconnect().
class TMainDatas {
public:
    TMainDatas(TSessionSettings main, TSessionSettings budget);
    ~TMainDatas();

    // Opens both sessions. A database without a schema raises EDatabaseError; a newer one ENewerDatabase.
    void Open();

    TDatabase *mnFin_Db();
    TDatabase *mnRavl();

    // Opens both sessions again read-only in the engine itself; for view-only users, at login.
    void makeReadOnly();

private:
    std::unique_ptr<TDatabase> main;
    std::unique_ptr<TDatabase> budget;
};
TMainDatas *MainDatas();
// The module becomes the owner; a null pointer closes the old one.
void setMainDatas(std::unique_ptr<TMainDatas> datas);

// The current period: the last month row of bd_period. 0 and day 0 while there is none.
double EinPer_Id();
TDateTime EinPer_Date();
// Re-reads both; to be called after the period changed. Open screens and the status bar are told.
void GetPeriod();

// The institution of the main database: its name, and the setting that tells separate receivables and payables.
QString organisationName();
bool UAB();
void setUAB(bool on);

// Tells of a changed period; lives as long as the program.
class TPeriodNotifier : public QObject {
    Q_OBJECT
signals:
    void periodChanged();
};
TPeriodNotifier &periodNotifier();
