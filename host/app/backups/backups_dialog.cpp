#include "host/app/backups/backups_dialog.h"

#include "host/app/backups/tool.h"
#include "host/common/months.h"
#include "host/common/msgbox.h"
#include "host/data/backups.h"
#include "host/data/known_books.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/guard.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr int helpOfBackups = 127;
constexpr int placeOfBackup = Qt::UserRole; // its number in the list

QString reasonOf(const TBackup &backup)
{
    switch (backup.kind) {
    case BackupKind::Day:
        return "Dienos kopija";
    case BackupKind::Close:
        return "Prieš periodo uždarymą";
    case BackupKind::RollBack:
        return "Prieš periodo atsukimą";
    case BackupKind::StartOfWork:
        return "Prieš darbo pradžios keitimą";
    case BackupKind::ByHand:
        break;
    }
    return "Naudotojo padaryta";
}

QString momentOf(const TBackup &backup)
{
    return backup.made.toString("yyyy.MM.dd HH:mm:ss");
}

// Empty where the books had no month or the backup does not tell it.
QString monthOf(const TBackup &backup)
{
    const QDate month = QDate::fromString(backup.holds.month, "yyyy-MM");
    return month.isValid() ? PeriodText(TDateTime(month)) : QString();
}

QString sizeOf(const TBackup &backup)
{
    return QLocale(QLocale::Lithuanian).formattedDataSize(backup.size, 1, QLocale::DataSizeTraditionalFormat);
}

QString onServer(const QString &words)
{
    return QString("Šios knygos yra serveryje. Jų kopijas daro ir atkuria serverio administratorius:\n"
                   "velmora-db keep diena --into APLANKAS --server \"%1\"\n"
                   "velmora-db restore FAILAS --server \"%1\"\n"
                   "Jei kopijas turi daryti ir ši darbo vieta, parinkite joms aplanką.")
        .arg(words);
}

} // namespace

TBackupsDlg::TBackupsDlg(QWidget *owner)
    : TDialog(owner),
      Place(new QLabel(this)),
      List(new QTreeWidget(this))
{
    setObjectName("TBackupsDlg");
    setHelpTopic(helpOfBackups);
    List->setHeaderLabels({"Padaryta", "Kodėl", "Įstaiga", "Paskutinis mėnuo", "Dydis", "Būklė"});
    List->setRootIsDecorated(false);
    List->setUniformRowHeights(true);
    List->setAllColumnsShowFocus(true);
    QList<TDialogButton> buttons{
        {"&Kurti dabar", TDialogButton::Action, false, [this] { make(); }, "MakeBtn"},
        {"A&tkurti…", TDialogButton::Action, false, [this] { restore(); }, "RestoreBtn"},
        {"T&ikrinti", TDialogButton::Action, true, [this] { verify(); }, "VerifyBtn"},
        {"&Rodyti aplanką", TDialogButton::Action, false, [this] { showFolder(); }, "FolderBtn"},
        {"&Uždaryti", TDialogButton::Cancel, false, {}, "CloseBtn"},
        {"Pa&galba", TDialogButton::Help, false, {}, {}}};
    if (!openBooksSettings().isEmbedded()) {
        buttons.insert(
            4, {"Parinkti apl&anką…", TDialogButton::Action, false, [this] { chooseFolder(); }, "ChooseBtn"});
        buttons.insert(
            5, {"&Nedaryti čia", TDialogButton::Action, false, [this] { forgetFolder(); }, "ForgetBtn"});
    }
    describe("Atsarginės kopijos", {TFieldRow::custom("Ko&pijos:", "List", List)}, nullptr, buttons);
    Place->setObjectName("Place");
    Place->setTextFormat(Qt::PlainText);
    Place->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Place->setWordWrap(true);
    bodyLayout()->insertWidget(0, Place);
    connectGuarded(List, &QTreeWidget::currentItemChanged, this, [this] { enableButtons(); });
    resize(List->fontMetrics().averageCharWidth() * 150, List->fontMetrics().height() * 26);
    readFolder();
}

void TBackupsDlg::readFolder()
{
    const QString folder = backupFolder();
    const QString before = current() ? current()->file : QString();
    backups = folder.isEmpty() ? QList<TBackup>() : backupsIn(folder);
    List->clear();
    for (int i = 0; i < backups.size(); ++i) {
        const TBackup &backup = backups[i];
        const QString state = backup.sound() ? "Patikrinta kuriant" : backup.damage;
        auto *row =
            new QTreeWidgetItem({momentOf(backup), reasonOf(backup), backup.holds.institution,
                                 monthOf(backup), sizeOf(backup), verdicts.value(backup.file, state)});
        row->setTextAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
        row->setToolTip(5, row->text(5).toHtmlEscaped());
        if (!backup.sound())
            row->setIcon(5, QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning));
        row->setData(0, placeOfBackup, i);
        List->addTopLevelItem(row);
        if (backup.file == before)
            List->setCurrentItem(row);
    }
    if (!List->currentItem())
        List->setCurrentItem(List->topLevelItem(0));
    for (int column = 0; column < List->columnCount(); ++column)
        List->resizeColumnToContents(column);
    showPlace();
    enableButtons();
}

void TBackupsDlg::showPlace()
{
    const QString folder = backupFolder();
    const TBooksSettings books = openBooksSettings();
    if (folder.isEmpty())
        Place->setText(onServer(placeOf(books)));
    else if (books.isEmbedded())
        Place->setText(
            QString("Aplanke %1 programa pati laiko dvylika naujausių dienos kopijų ir visas kitas.")
                .arg(QDir::toNativeSeparators(folder)));
    else
        Place->setText(
            QString("Serverio knygų kopijos daromos aplanke %1. Atkuria serverio administratorius:\n"
                    "velmora-db restore FAILAS --server \"%2\"")
                .arg(QDir::toNativeSeparators(folder), placeOf(books)));
}

void TBackupsDlg::enableButtons()
{
    const bool hasFolder = !backupFolder().isEmpty();
    const bool writes = !CurrentUser().viewOnly;
    button("MakeBtn")->setEnabled(hasFolder && writes);
    button("RestoreBtn")
        ->setEnabled(current() && current()->sound() && writes && openBooksSettings().isEmbedded());
    button("VerifyBtn")->setEnabled(current() && writes);
    button("FolderBtn")->setEnabled(hasFolder);
    if (openBooksSettings().isEmbedded())
        return;
    button("ChooseBtn")->setEnabled(writes);
    button("ForgetBtn")->setEnabled(hasFolder && writes);
}

const TBackup *TBackupsDlg::current() const
{
    const QTreeWidgetItem *row = List->currentItem();
    return row ? &backups[row->data(0, placeOfBackup).toInt()] : nullptr;
}

void TBackupsDlg::make()
{
    const TToolEnd end =
        runTool({"keep", wordOf(BackupKind::ByHand), "--into", backupFolder()}, "Daroma atsarginė kopija…");
    List->setCurrentItem(nullptr); // the new one is chosen
    readFolder();
    if (!end.done())
        throw Exception(QString("Atsarginės kopijos padaryti nepavyko.\n\n%1").arg(end.trouble));
}

void TBackupsDlg::verify()
{
    const QString file = current()->file;
    const TToolEnd end = runTool({"verify", file}, "Tikrinama atsarginė kopija…");
    verdicts[file] = end.done() ? QString("Patikrinta dabar: tinka atkurti") : end.trouble;
    readFolder();
    if (!end.done())
        throw Exception(QString("Ši atsarginė kopija atkurti netinka.\n\n%1").arg(end.trouble));
    if (const QString notes = notesOf(end); !notes.isEmpty())
        StdMsgBox(
            mkInformation,
            QString("Atsarginė kopija tinka atkurti, bet jos knygose yra neatitikimų:\n\n%1").arg(notes));
}

void TBackupsDlg::restore()
{
    const TBackup &backup = *current();
    const QString whose = backup.holds.institution.isEmpty() ? "nenurodyta" : backup.holds.institution;
    const QString other = backup.holds.institution.isEmpty() || backup.holds.institution == organisationName()
                              ? QString()
                              : "\nDėmesio: tai kitos įstaigos ar kitu pavadinimu vadintos įstaigos knygos!";
    const QString question =
        QString(
            "Ar atkurti knygas, kokios jos buvo %1?\n\nĮstaiga: %2%3\nPaskutinis mėnuo: %4\n\nVisa, kas "
            "įrašyta vėliau, liks tik dabartinėse knygose: jos paliekamos tame pačiame aplanke kitu vardu. "
            "Visi langai bus uždaryti, ir prisijungsite iš naujo.")
            .arg(momentOf(backup), whose, other, monthOf(backup).isEmpty() ? "nėra" : monthOf(backup));
    if (StdMsgBox(mkQuestion, question) != mrYes)
        return;
    chosen = backup;
    accept();
}

void TBackupsDlg::showFolder()
{
    const QString folder = backupFolder();
    if (!QFileInfo::exists(folder))
        throw Exception(QString("Aplanko %1 dar nėra: jis atsiras su pirmąja kopija.")
                            .arg(QDir::toNativeSeparators(folder)));
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        throw Exception(
            QString("Nepavyko parodyti aplanko. Jis yra čia:\n%1").arg(QDir::toNativeSeparators(folder)));
}

void TBackupsDlg::chooseFolder()
{
    const QString aboveIt = backupFolder().isEmpty() ? QString() : QFileInfo(backupFolder()).absolutePath();
    const QString folder = QFileDialog::getExistingDirectory(this, "Serverio knygų kopijų aplankas", aboveIt);
    if (folder.isEmpty())
        return;
    setBackupFolder(folder);
    readFolder();
}

void TBackupsDlg::forgetFolder()
{
    setBackupFolder({});
    readFolder();
}
