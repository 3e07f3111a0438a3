// Every list of the catalogues with as many rows as the register, and both measured in one run: opening,
// reading to the end, a row found by typing, a name edited and saved.
//
//   bench_catalogues [--rows N] [--engine sqlite|postgresql]

#include "bench/bench_main.h"
#include "bench/party_books.h"
#include "host/app/host_entries.h"
#include "host/controls/browse_frm.h"
#include "host/controls/record_dialog.h"
#include "host/controls/value_dialog.h"
#include "host/data/main_datas.h"
#include "src/departments/Laikymovietos.h"
#include "src/frame/registry.h"
#include "toolkit/widgets/db_grid.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// The first entry is what the others are compared with.
struct TMeasured {
    const char *screen;
    const char *column; // of the name that is found and edited
    const char *insert; // rows by their number i; empty: the books have them
    TSession session = TSession::Main;
};

// Three signs hold 62 to the power of three codes.
constexpr char code[] =
    "substr('0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz', i / 3844 % 62 + "
    "1, 1) || substr('0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz', i / 62 "
    "% 62 + 1, 1) || substr('0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz', "
    "i % 62 + 1, 1)";

constexpr TMeasured screens[] = {
    {"TDbKrFrm", "DKA_KOD", ""},
    {"TVTarnFrm", "TRN_PAVAD", "bd_tarn (trn_id, trn_pavad, trn_koef) select i, 'Pavadinimas ' || i, 1.5"},
    {"TDrbKlasFrm", "kla_pavad", "du_drbklas (kla_kodas, kla_pavad) select i, 'Pavadinimas ' || i"},
    {"TPareigFrm", "PRG_PAVAD",
     "bd_prg (prg_id, prg_pavad, prg_subord, prg_kla_kod, prg_trnid) select i, 'Pavadinimas ' || i, 1, i, i"},
    {"TVeiklFrm", "VKL_PAVAD", "du_veikl (vkl_id, vkl_kodas, vkl_pavad) select i, i, 'Pavadinimas ' || i"},
    {"TSkyriaiFrm", "PAD_PAVAD",
     "bd_pad (pad_id, pad_pavad, pad_vklid, pad_sasid) select i, 'Pavadinimas ' || i, i, 1"},
    {"TLaikymoVietosFrm", "LV_PAV",
     "bd_laikymo_vieta (lv_id, lv_padid, lv_pav) select i, 1, 'Pavadinimas ' || i"},
    {"TAtsAsmFrm", "ats_pav",
     "bd_atsasm (ats_id, ats_pav, ats_asm_kod, ats_sasid, ats_prgid) select i, 'Pavadinimas ' || i, i, 1, i"},
    {"TMatAsmFrm", "MAT_PAVAD",
     "bd_matasm (mat_id, mat_pavad, mat_asm_kod, mat_padid, mat_prgid) select i, 'Pavadinimas ' || i, i, i, "
     "i"},
    {"TKasosFrm", "KAS_PAVAD", "bd_kasos (kas_id, kas_sasid, kas_pavad) select i, 1, 'Pavadinimas ' || i"},
    {"TEinSasFrm", "EIN_NR",
     "bd_einsas (ein_id, ein_nr, ein_sasid, ein_bank_pav) select i, 'Pavadinimas' || i, 1, 'Bankas'"},
    {"TBankaiFrm", "BNK_PAVAD", "bd_bankai (bnk_kodas, bnk_pavad) select i, 'Pavadinimas ' || i"},
    {"TFinListFrm", "fin_pavad", "bd_fin (fin_pavad, fin_dir) select 'Pavadinimas ' || i, i",
     TSession::Budget},
    {"TObjektFrm", "obj_pavad", "bd_objektai (obj_id, obj_pavad) select i, 'Pavadinimas ' || i"},
    {"TPardTipFrm", "pat_pav", "it_pardtip (pat_id, pat_pav) select i, 'Pavadinimas ' || i"},
    {"TPirkTipFrm", "pit_pav",
     "it_pirktip (pit_id, pit_pav, pit_tipas, pit_pozymis) select i, 'Pavadinimas ' || i, 0, 0"},
    {"TPajamuRusiuKodaiFrm", "Paj_Pavad",
     "bd_pajamurusiukodai (paj_kod, paj_pavad, paj_nedrbsant) select %code, 'Pavadinimas ' || i, 0"},
    {"TImokosFrm", "IMO_PAVAD", "pp_imok (imo_kod, imo_pavad) select %code, 'Pavadinimas ' || i"},
    {"TNuomFrm", "NUOM_PAVAD",
     "bd_nuomasm (nuom_id, nuom_kod, nuom_pavad, nuom_sasid, nuom_sasid2) "
     "select i, i, 'Pavadinimas ' || i, 1, 1"},
    // Two levels: two hundred rows with the others below them.
    {"TSasPlanFrm", "SAS_PAVAD",
     "bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip, sas_tevid) select 10 + i, 1000000 + i, "
     "'Pavadinimas ' || i, case when i > 200 then 'D' else 'S' end, case when i > 200 then 11 + i % 200 end"},
    {"TMazgaiFrm", "JVE_PAVAD",
     "bd_jve (jve_id, jve_islid, jve_kodas, jve_pavad, jve_duom, jve_tevid) select 10 + i, 1, i, "
     "'Pavadinimas ' || i, case when i > 200 then 1 else 0 end, case when i > 200 then 11 + i % 200 end"},
};

struct TTimes {
    double opened = 0, whole = 0, found = 0, saved = 0;
};

double since(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

QString numbers(Engine engine, int rows)
{
    return engine == Engine::Sqlite ? u"(with recursive n(i) as (select 1 union all select i + 1 from n "
                                      u"where i < %1) select i from "
                                      "n) n"_s.arg(rows)
                                    : u"generate_series(1, %1) n(i)"_s.arg(rows);
}

void fill(TSession session, int rows)
{
    TDatabase &books = *sessionOf(session);
    TTransaction tran(&books);
    if (session == TSession::Main)
        books.nativeExec(u"insert into bd_asgisl (isl_id, isl_pavad) values (1, 'Knyga')"_s);
    for (const TMeasured &screen : screens) {
        QString insert = QString::fromLatin1(screen.insert);
        if (screen.session == session && !insert.isEmpty())
            books.nativeExec(u"insert into "_s + insert.replace(u"%code"_s, QString::fromLatin1(code)) +
                             u" from "_s + numbers(books.engine(), rows));
    }
    tran.commit();
    books.nativeExec(u"analyze"_s);
}

// The storage places are opened from their department.
QWidget *opened(const TPackageEntries &entries, const QString &screen)
{
    if (screen != u"TLaikymoVietosFrm")
        return std::ranges::find(entries, screen, &TPackageEntry::name)->create(nullptr);
    Laikymovietos::PadID = 1;
    return createForm<Laikymovietos::TLaikymoVietosFrm>(u"Skyrius"_s, nullptr);
}

// Milliseconds from the press of the save button to the list that stands on the row again.
double saveOne(TBrowseFrm &list)
{
    QElapsedTimer timer;
    QTimer hands;
    QObject::connect(&hands, &QTimer::timeout, [&] {
        auto *dialog = dynamic_cast<TDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        hands.stop();
        for (auto *edit : dialog->findChildren<QLineEdit *>()) {
            const bool isName = edit->text().startsWith(u'P') || edit->text().startsWith(u'Į');
            if (!edit->isVisible() || !edit->isEnabled() || !isName)
                continue;
            edit->setFocus();
            edit->end(false);
            QTest::keyClick(edit, edit->text().endsWith(u"11"_s) ? Qt::Key_Backspace : Qt::Key_1);
            break;
        }
        timer.start();
        if (!dialog->trySave())
            std::printf("  not saved: %s\n", qPrintable(dialog->windowTitle()));
    });
    hands.start(0);
    list.EditBtnClick();
    return timer.isValid() ? since(timer) : 0;
}

double findByTyping(TBrowseFrm &list, const QString &column, const QString &text)
{
    QElapsedTimer timer;
    list.FirstBtnClick();
    timer.start();
    list.SetFindStr(text, list.dataSet()->FieldByName(column));
    while (list.searching())
        QCoreApplication::processEvents();
    return since(timer);
}

TTimes measure(const TPackageEntries &entries, const TMeasured &screen, int rows)
{
    TTimes times;
    QElapsedTimer timer;
    timer.start();
    const std::unique_ptr<QWidget> window(opened(entries, QString::fromLatin1(screen.screen)));
    auto &list = dynamic_cast<TBrowseFrm &>(*window);
    list.show();
    QCoreApplication::processEvents();
    times.opened = since(timer);
    while (list.loading())
        QCoreApplication::processEvents();
    times.whole = since(timer);
    const QString named = &screen == screens ? u"K%1"_s : u"Pavadinimas %1"_s;
    times.found = findByTyping(list, QString::fromLatin1(screen.column), named.arg(rows - 1));
    constexpr int saves = 10;
    for (int i = 0; i < saves; ++i)
        times.saved += saveOne(list) / saves;
    return times;
}

void measureAll(Engine engine, int rows)
{
    const PartyBooks books(engine, rows);
    auto datas = std::make_unique<TMainDatas>(books.books().fin, books.books().ravl);
    datas->Open();
    setMainDatas(std::move(datas));
    for (const TSession session : {TSession::Main, TSession::Budget})
        fill(session, rows);
    std::printf("%s, %d rows each; milliseconds, and the ratio to the register\n", nameOf(engine), rows);
    const TPackageEntries entries = withHostEntries(packageEntries());
    TTimes first;
    for (const TMeasured &screen : screens) {
        const TTimes times = measure(entries, screen, rows);
        if (&screen == screens)
            first = times;
        std::printf("  %-22s open %5.0f (%.2f)  whole %6.0f (%.2f)  find %6.0f (%.2f)  save %6.1f (%.2f)\n",
                    screen.screen, times.opened, times.opened / first.opened, times.whole,
                    times.whole / first.whole, times.found, times.found / first.found, times.saved,
                    times.saved / first.saved);
        std::fflush(stdout);
    }
    setMainDatas(nullptr);
}

} // namespace

int main(int argc, char *argv[])
{
    needNoScreen();
    const QApplication application(argc, argv);
    return benchMain({{u"rows"_s, u"Rows of each list"_s, 100000}},
                     [](Engine engine, const QList<int> &n) { measureAll(engine, n[0]); });
}
