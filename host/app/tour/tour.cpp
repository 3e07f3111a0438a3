#include "host/app/tour/tour.h"

#include "host/accounts/accounts.h"
#include "host/app/institutions.h"
#include "host/app/login.h"
#include "host/app/login_patience.h"
#include "host/app/main_window.h"
#include "host/app/startup.h"
#include "host/app/tour/tour_hands.h"
#include "host/app/tour/tour_report.h"
#include "host/data/known_books.h"
#include "toolkit/text/errors.h"
#include "toolkit/widgets/lithuanian.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QRadioButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <cstdio>

namespace {

const QString lastPeriods = "select * from bd_period where per_menuo > 0 order by per_id desc";
const QString balancesByPeriod =
    "select ssl_perid, count(*) as eilutes, sum(ssl_sum_db) as debetas, sum(ssl_sum_kr) as kreditas "
    "from bd_saslik group by ssl_perid order by ssl_perid";

constexpr int readInParts = 300; // milliseconds that a window has for what it reads piece by piece

// The platform without a display says at every window what it cannot do.
void silencePlatform(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith("This plugin does not support"))
        std::fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(type, context, text)));
}

void require(bool holds, const QString &what)
{
    if (!holds)
        throw Exception(what);
}

// One walk through the program on its own books.
class TTour {
public:
    explicit TTour(TTourReport &tourReport)
        : report(tourReport),
          package(installedLibrary("libvelmora.so")),
          window(package)
    {
        window.move(0, 0);
        window.resize(1100, 720); // the screen that nobody sees is smaller than those of people
        window.show();
        window.activateWindow();
    }

    void logIn(const QString &name, const QString &password)
    {
        hands.whenAsked([&](QWidget &dialog) {
            TTourHands::type(*dialog.findChild<QLineEdit *>("NameEdit"), name);
            TTourHands::type(*dialog.findChild<QLineEdit *>("PassEdit"), password);
            report.step("Prisijungimas", QString("Įvestas vardas „%1“ ir slaptažodis.").arg(name));
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        TLoginPatience patience;
        require(logInAt(window, {}, patience) == TLoginEnd::LoggedIn, "Prisijungti nepavyko");
        hands.nothingLeft();
        QTest::qWait(readInParts);
        report.step("Pagrindinis langas", "Prisijungta; būsenos juostoje – įstaiga, naudotojas ir periodas.",
                    books(), lastPeriods);
    }

    // Institutions of which one is open.
    void institutions(const TBooksSettings &open)
    {
        rememberBooks(institutionsFile(), {.name = "Ąžuolo gimnazija",
                                           .books = TBooksSettings::server("host=apskaita user=ona")});
        rememberInstitution(open);
        hands.whenAsked([this](QWidget &dialog) {
            report.step("Įstaigos", "Iš meniu: kitos įstaigos langas atsidarytų šalia.");
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        TTourHands::chooseFromMenu(window, "acOtherInstitution");
        hands.nothingLeft();
    }

    // Every screen and dialog is opened, from its menu where it has one, looked at and left.
    void openEverything()
    {
        for (const TPackageEntry &entry : window.allEntries()) {
            if (entry.kind == TPackageEntry::Kind::Editor) {
                hands.whenAsked([this](QWidget &dialog) {
                    report.step(dialog.windowTitle(), "Pirmas įrašas.");
                    QTest::keyClick(&dialog, Qt::Key_Escape);
                });
                entry.call();
            } else if (entry.kind == TPackageEntry::Kind::ListScreen) {
                TTourHands::chooseFromMenu(window, entry.name);
                lookAt(entry, "Langas atidarytas iš meniu.");
                window.documents()->closeAllSubWindows();
            } else {
                hands.whenAsked([&](QWidget &dialog) {
                    lookAt(entry, "Atidaryta iš meniu ir palikta nieko nekeičiant.");
                    QTest::keyClick(&dialog, Qt::Key_Escape);
                });
                TTourHands::chooseFromMenu(window, entry.name);
            }
            hands.nothingLeft();
        }
        pickAccount();
    }

    void pickAccount()
    {
        hands.whenAsked([&](QWidget &picker) {
            report.step("Sąskaitų planas", "Sąskaita renkama iš medžio.");
            QTest::keyClicks(QApplication::focusWidget(), "ban");
            QTest::qWait(400);
            report.step("Sąskaitų planas", "Įvesta „ban“: rodomos rastos sąskaitos.");
            QTest::keyClick(&picker, Qt::Key_Escape);
        });
        OpenSasModal(false, 1);
        hands.nothingLeft();
    }

    void closeMonth()
    {
        const double before = EinPer_Id();
        hands.whenAsked([&](QWidget &question) {
            report.step("Periodo uždarymas", "Klausiama, ar lentelės uždarytos.");
            TTourHands::press(question, "Taip");
        });
        hands.whenAsked([&](QWidget &dialog) {
            report.step("Periodo uždarymas", "Rodomas uždaromas ir naujas periodas.");
            hands.whenAsked([&](QWidget &told) {
                report.step("Periodo uždarymas", "Mėnuo uždarytas, likučiai perkelti.", books(),
                            balancesByPeriod);
                QTest::keyClick(&told, Qt::Key_Return);
            });
            TTourHands::press(dialog, "Pradėti");
        });
        TTourHands::chooseFromMenu(window, "StartPerClose");
        hands.nothingLeft();
        require(EinPer_Id() > before, "Periodas nebuvo uždarytas");
        QTest::qWait(readInParts);
        report.step("Pagrindinis langas", "Būsenos juostoje – naujas mėnuo.", books(), lastPeriods);
    }

    void rollBack()
    {
        const double before = EinPer_Id();
        for (const char *step : {"Įspėjama, kad likučiai bus ištrinti.", "Klausiama, ar lentelės uždarytos."})
            hands.whenAsked([this, step](QWidget &question) {
                report.step("Periodo atsukimas", step);
                TTourHands::press(question, "Taip");
            });
        hands.whenAsked([&](QWidget &told) {
            report.step("Periodo atsukimas", "Paskutinis uždarymas atšauktas.", books(), balancesByPeriod);
            QTest::keyClick(&told, Qt::Key_Return);
        });
        TTourHands::chooseFromMenu(window, "PeriodBack");
        hands.nothingLeft();
        require(EinPer_Id() < before, "Periodas nebuvo atsuktas");
    }

    // From a folder without books to those of a new institution, in the order of the program's own pages.
    void setUpInstitution(const QString &folder)
    {
        hands.whenAsked([this](QWidget &choice) {
            choice.findChild<QRadioButton *>("NewRadio")->click();
            report.step("Naujos knygos", "Aplanke knygų dar nėra: renkamasi, kokias sukurti.");
            TTourHands::press(choice, "Sukurti");
        });
        hands.whenAsked([this](QWidget &pages) {
            fillPage(pages, {{"PavadEdit", "Ąžuolyno mokykla"},
                             {"AdrEdit", "Ežero g. 1, Ąžuolynas"},
                             {"KodasEdit", "190000000"}});
            fillPage(pages, {{"NameEdit", "pirmas"}, {"PassEdit", "slaptas"}, {"RepeatEdit", "slaptas"}});
            fillPage(pages, {});
            QTest::keyClick(pages.findChild<QWidget *>("MonthBox"), Qt::Key_Home);
            fillPage(pages, {{"YearEdit", "2026"}});
            report.step("Įstaigos parengimas", "Santrauka: iki šiol dar nieko neįrašyta.");
            TTourHands::press(pages, "Įrašyti");
        });
        require(openBooks(TBooksSettings::embedded(folder), &window), "Knygos nesukurtos");
        hands.nothingLeft();
    }

    // Two opening balances are entered; after the first one the sums differ.
    void openingBalances()
    {
        TTourHands::chooseFromMenu(window, "TSasLikFrm");
        report.step("Sąskaitų likučiai", "Sąrašas dar tuščias.");
        addBalance("2411001", false, "1250,75");
        hands.whenAsked([&](QWidget &told) {
            report.step("Sąskaitų likučiai", "Pasakoma, kad debeto ir kredito sumos skiriasi.");
            QTest::keyClick(&told, Qt::Key_Return);
        });
        pressTool("acNew");
        addBalance("4220001", true, "1250,75");
        pressTool("acNew");
        report.step("Sąskaitų likučiai", "Abi pusės lygios.", books(),
                    "select sas_sasnr, ssl_sum_db, ssl_sum_kr, ssl_perid from bd_saslik, bd_sasplan "
                    "where sas_id = ssl_sasid order by sas_sasnr");
        lookBehind("acPrint", "Sąskaitų likučiai", "Ataskaita prieš spausdinant.");
        window.documents()->closeAllSubWindows();
    }

    void registers()
    {
        TTourHands::chooseFromMenu(window, "TDbKrFrm");
        hands.whenAsked([this](QWidget &editor) {
            hands.whenAsked([this](QWidget &contract) {
                report.step("Sutartis", "Debitoriaus ar kreditoriaus sutartis.");
                QTest::keyClick(&contract, Qt::Key_Escape);
            });
            TTourHands::press(editor, "Sutartis");
            QTest::keyClick(&editor, Qt::Key_Escape);
        });
        pressTool("acEdit");
        lookBehind("acCopyData", "Debitoriaus ar kreditoriaus kopija", "Naujas įrašas su senojo duomenimis.");
        lookBehind("acPrint", "Debitoriai ir kreditoriai", "Ataskaita prieš spausdinant.");
        window.documents()->closeAllSubWindows();
    }

private:
    // Fills a page of the set-up, looks at it and goes on.
    void fillPage(QWidget &pages, std::initializer_list<std::pair<const char *, const char *>> fields)
    {
        for (const auto &[name, text] : fields)
            pages.findChild<QLineEdit *>(name)->setText(text); // keys of a test have no Lithuanian letters
        report.step("Įstaigos parengimas", pages.findChild<QLabel *>("heading")->text());
        TTourHands::press(pages, "Toliau");
    }

    // Presses a tool of the list in front; what it opens is answered as said before.
    void pressTool(const char *actionName)
    {
        for (auto *button : window.documents()->currentSubWindow()->findChildren<QToolButton *>())
            if (button->defaultAction() && button->defaultAction()->objectName() == actionName)
                QTest::mouseClick(button, Qt::LeftButton);
        hands.nothingLeft();
    }

    // Looks at the window that a tool of the list opens, and leaves it.
    void lookBehind(const char *actionName, const QString &title, const QString &told)
    {
        hands.whenAsked([=, this](QWidget &dialog) {
            report.step(title, told);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        pressTool(actionName);
    }

    void addBalance(const QString &account, bool onCredit, const QString &amount)
    {
        hands.whenAsked([=, this](QWidget &dialog) {
            TTourHands::type(*dialog.findChild<QWidget *>("SSL_SASID")->findChild<QLineEdit *>(), account);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            TTourHands::type(*dialog.findChild<QLineEdit *>("SSL_SUM_DB"), amount);
            if (onCredit)
                QTest::mouseClick(dialog.findChild<QWidget *>("KredRadio"), Qt::LeftButton);
            report.step("Naujas likutis", QString("Įvesta sąskaita %1 ir suma.").arg(account));
            TTourHands::press(dialog, "Išsaugoti");
        });
    }

    static TDatabase *books() { return MainDatas()->mnFin_Db(); }

    void lookAt(const TPackageEntry &entry, const QString &done)
    {
        if (entry.unit == "host")
            QTest::qWait(readInParts);
        report.step(plainCaption(entry.caption).remove(u'…'), done);
    }

    TTourReport &report;
    TTourHands hands;
    TLoadedPackage package;
    TMainWindow window;
};

void walkDemonstrationBooks(TTourReport &report, const QString &folder)
{
    createDemonstrationBooks(folder);
    openEmbeddedBooks(folder);
    TTour tour(report);
    tour.logIn("admin", "Raktas1");
    tour.institutions(TBooksSettings::embedded(folder));
    tour.openEverything();
    tour.registers();
    tour.closeMonth();
    tour.rollBack();
}

void walkNewInstitution(TTourReport &report, const QString &folder)
{
    setMainDatas(nullptr);
    CurrentUser() = {};
    TTour tour(report);
    tour.setUpInstitution(folder);
    tour.logIn("pirmas", "slaptas");
    tour.openingBalances();
    tour.closeMonth();
}

} // namespace

int runTour(const QString &folder)
{
    qInstallMessageHandler(silencePlatform);
    int code = 0;
    TTourReport report(folder);
    const QTemporaryDir scratch;
    // What windows remember of the walk is nobody's settings.
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, scratch.filePath("nustatymai"));
    qputenv("XDG_CONFIG_HOME", scratch.filePath("nustatymai").toUtf8());
    try {
        walkDemonstrationBooks(report, scratch.filePath("mokykla"));
        walkNewInstitution(report, scratch.filePath("nauja"));
    } catch (const Exception &error) {
        std::fprintf(stderr, "Nepavyko: %s\n", qUtf8Printable(error.message()));
        code = 1;
    }
    report.write();
    setMainDatas(nullptr);
    return code;
}
