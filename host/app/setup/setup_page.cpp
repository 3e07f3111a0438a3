#include "host/app/setup/setup_page.h"

#include "host/common/months.h"
#include "toolkit/text/ansistring.h"
#include "toolkit/text/errors.h"
#include "toolkit/text/format.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

namespace {

constexpr int firstYear = 1997;
constexpr int lastYear = 2100;

constexpr SetUpStep standardSteps[] = {
    SetUpStep::Municipalities, SetUpStep::Accounts, SetUpStep::Classification, SetUpStep::Functions,
    SetUpStep::WorkPlaces,     SetUpStep::Sources,  SetUpStep::Banks};

QString textOf(const TFieldForm &form, const QString &name)
{
    return form.control<QLineEdit>(name)->text().trimmed();
}

[[noreturn]] void refuse(TFieldForm &form, const QString &name, const QString &why)
{
    form.refuse(name, why);
    throw Exception(why);
}

void require(TFieldForm &form, const QString &name, const QString &why)
{
    if (textOf(form, name).isEmpty())
        refuse(form, name, why);
}

// The columns hold the letters of the code page only.
void requireCodePage(TFieldForm &form)
{
    for (const QLineEdit *edit : form.findChildren<QLineEdit *>())
        if (const qsizetype at = firstOutsideCodePage(edit->text()); at >= 0)
            refuse(form, edit->objectName(),
                   QString("Simbolio „%1“ čia naudoti negalima").arg(edit->text().at(at)));
}

bool isEmpty(const TFieldForm &form)
{
    const auto edits = form.findChildren<QLineEdit *>();
    return std::ranges::all_of(edits, [](const QLineEdit *edit) { return edit->text().trimmed().isEmpty(); });
}

// --- the institution

QStringList municipalityNames()
{
    QStringList names{{}};
    for (const auto &[code, name] : standardMunicipalities())
        names << name;
    return names;
}

void checkInstitution(TFieldForm &form)
{
    if (isEmpty(form) && form.control<QComboBox>("SavBox")->currentIndex() <= 0)
        return;
    require(form, "PavadEdit", "Neužpildytas įmonės pavadinimas!");
    require(form, "AdrEdit", "Neužpildytas įmonės adresas!");
    require(form, "KodasEdit", "Neužpildytas įmonės kodas!");
    requireCodePage(form);
}

void takeInstitution(const TFieldForm &form, TSetUp &setUp)
{
    if (isEmpty(form))
        return;
    TInstitution institution{.pavad = textOf(form, "PavadEdit"),
                             .adr = textOf(form, "AdrEdit"),
                             .kodas = textOf(form, "KodasEdit").toLongLong(),
                             .pvmKodas = textOf(form, "PvmEdit"),
                             .draudKodas = textOf(form, "DraudEdit")};
    if (const int chosen = form.control<QComboBox>("SavBox")->currentIndex(); chosen > 0)
        institution.savivaldybe = standardMunicipalities().at(chosen - 1).first;
    setUp.institution = institution;
}

TSetUpPage institutionPage()
{
    return {
        .title = "Įstaiga",
        .told =
            "Jei įstaigos duomenų dar neturite, palikite visą puslapį tuščią: įrašysite vėliau. Reikia bent "
            "pavadinimo, adreso ir įmonės kodo.",
        .rows = {TFieldRow::freeEdit("&Pavadinimas:", "PavadEdit").maxLength(150).width(50),
                 TFieldRow::freeEdit("A&dresas:", "AdrEdit").maxLength(100),
                 TFieldRow::freeEdit("Į&monės kodas:", "KodasEdit").maxLength(11).digitsOnly().width(12),
                 TFieldRow::freeEdit("P&VM mok. kodas:", "PvmEdit").maxLength(14).width(14),
                 TFieldRow::freeEdit("Dra&udėjo kodas:", "DraudEdit").maxLength(10).width(12),
                 TFieldRow::freeList("&Savivaldybė:", "SavBox", municipalityNames())},
        .check = checkInstitution,
        .take = takeInstitution};
}

// --- the first user

void checkAdministrator(TFieldForm &form)
{
    require(form, "NameEdit", "Neįvestas administratoriaus vardas");
    require(form, "PassEdit", "Neįvestas slaptažodis");
    requireCodePage(form);
    if (form.control<QLineEdit>("PassEdit")->text() != form.control<QLineEdit>("RepeatEdit")->text())
        refuse(form, "RepeatEdit", "Slaptažodžiai nesutampa");
}

TSetUpPage administratorPage()
{
    return {.title = "Administratorius",
            .told = "Pirmasis vartotojas: jis tvarkys kitus vartotojus ir jų teises. Be jo į knygas niekas "
                    "negalėtų prisijungti.",
            .rows = {TFieldRow::freeEdit("Prisi&jungimo vardas:", "NameEdit").maxLength(10).width(14),
                     TFieldRow::freeEdit("V&ardas:", "VardasEdit").maxLength(25),
                     TFieldRow::freeEdit("Pavard&ė:", "PavardeEdit").maxLength(25),
                     TFieldRow::freeEdit("Slapta&žodis:", "PassEdit").maxLength(100).password(),
                     TFieldRow::freeEdit("Slaptažodis dar kart&ą:", "RepeatEdit").maxLength(100).password()},
            .check = checkAdministrator,
            .take = [](const TFieldForm &form, TSetUp &setUp) {
                setUp.administrator = {textOf(form, "NameEdit"), textOf(form, "VardasEdit"),
                                       textOf(form, "PavardeEdit"),
                                       form.control<QLineEdit>("PassEdit")->text()};
            }};
}

// --- what the program brings

QString checkName(SetUpStep step)
{
    return QString("Step%1").arg(int(step));
}

// A step that the books have already is shown as such and asks for nothing.
TSetUpPage standardPage(const QSet<SetUpStep> &done)
{
    TSetUpPage page{
        .title = "Planai ir žinynai",
        .told = "Pažymėti bus įrašyti tokie, kokie paprastai naudojami biudžetinėse įstaigose; "
                "paskui juos galėsite keisti. Prieš pradėdami dirbti palyginkite juos su galiojančiais "
                "teisės aktais."};
    for (const SetUpStep step : standardSteps) {
        const bool isDone = done.contains(step);
        page.rows << TFieldRow::freeCheck(stepName(step) + (isDone ? " (jau yra)" : ""), checkName(step))
                         .enabledWhen([isDone](const TFieldForm &) { return !isDone; });
    }
    page.take = [done](const TFieldForm &form, TSetUp &setUp) {
        for (const SetUpStep step : standardSteps)
            if (!done.contains(step) && form.control<QCheckBox>(checkName(step))->isChecked())
                setUp.standard << step;
    };
    return page;
}

// --- the start of work

QStringList monthNames()
{
    const auto &names = FormatSettings().LongMonthNames;
    return {names.begin(), names.end()};
}

void checkStart(TFieldForm &form)
{
    const int year = textOf(form, "YearEdit").toInt();
    if (form.control<QCheckBox>("StartCheck")->isChecked() && (year < firstYear || year > lastYear))
        refuse(form, "YearEdit", QString("Metai turi būti nuo %1 iki %2").arg(firstYear).arg(lastYear));
}

TSetUpPage startPage()
{
    const TFieldRow::Condition isWanted = [](const TFieldForm &form) {
        return form.control<QCheckBox>("StartCheck")->isChecked();
    };
    return {.title = "Darbo pradžia",
            .told = "Mėnuo, nuo kurio įstaiga pradeda vesti apskaitą šia programa: jo pradžios likučius "
                    "įvesite pirmiausia.",
            .rows = {TFieldRow::freeCheck("&Nustatyti darbo pradžios periodą", "StartCheck"),
                     TFieldRow::freeEdit("M&etai:", "YearEdit")
                         .maxLength(4)
                         .digitsOnly()
                         .width(6)
                         .enabledWhen(isWanted),
                     TFieldRow::freeList("Mėnu&o:", "MonthBox", monthNames()).enabledWhen(isWanted)},
            .check = checkStart,
            .take = [](const TFieldForm &form, TSetUp &setUp) {
                if (form.control<QCheckBox>("StartCheck")->isChecked())
                    setUp.startOfWork = QDate(textOf(form, "YearEdit").toInt(),
                                              form.control<QComboBox>("MonthBox")->currentIndex() + 1, 1);
            }};
}

} // namespace

QList<TSetUpPage> setUpPages(const QSet<SetUpStep> &done)
{
    QList<TSetUpPage> pages{institutionPage(), administratorPage(), standardPage(done), startPage()};
    pages[0].done = done.contains(SetUpStep::Institution);
    pages[1].done = done.contains(SetUpStep::Administrator);
    pages[2].done = std::ranges::all_of(standardSteps, [&](SetUpStep step) { return done.contains(step); });
    pages[3].done = done.contains(SetUpStep::StartOfWork);
    return pages;
}

QStringList summaryOf(const TSetUp &setUp, const QSet<SetUpStep> &done)
{
    QStringList lines;
    const auto line = [&](SetUpStep step, bool written, const QString &what = {}) {
        const QString state = done.contains(step) ? "jau yra"
                              : !written          ? "vėliau"
                              : what.isEmpty()    ? "bus įrašyta"
                                                  : what;
        lines << QString("%1: %2").arg(stepName(step), state);
    };
    line(SetUpStep::Institution, setUp.institution.has_value(),
         setUp.institution ? setUp.institution->pavad : QString());
    line(SetUpStep::Administrator, setUp.administrator.has_value(),
         setUp.administrator ? setUp.administrator->name : QString());
    const bool municipalityChosen = setUp.institution && setUp.institution->savivaldybe;
    for (const SetUpStep step : standardSteps)
        line(step,
             setUp.standard.contains(step) || (step == SetUpStep::Municipalities && municipalityChosen));
    line(SetUpStep::StartOfWork, setUp.startOfWork.has_value(),
         setUp.startOfWork ? PeriodText(TDateTime(*setUp.startOfWork)) : QString());
    return lines;
}
