#include "host/app/institutions_dialog.h"

#include "host/app/add_institution_dialog.h"
#include "host/common/msgbox.h"
#include "toolkit/text/collation.h"
#include "toolkit/widgets/guard.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>

namespace {

constexpr int helpOfInstitutions = 119;
constexpr int placeOfEntry = Qt::UserRole; // its number in the list

QString nameOf(const TKnownBooks &entry)
{
    if (!entry.name.isEmpty())
        return entry.name.simplified();
    return entry.readable() ? "(be pavadinimo)" : "(sugadintas įrašas)";
}

// Its place, or why there is none.
QString told(const TKnownBooks &entry)
{
    return entry.readable() ? placeOf(entry.books) : entry.damage;
}

QTreeWidgetItem *rowOf(const TKnownBooks &entry)
{
    auto *row = new QTreeWidgetItem({nameOf(entry), told(entry)});
    for (int column = 0; column < 2; ++column)
        row->setToolTip(column, row->text(column).toHtmlEscaped());
    if (!entry.readable())
        row->setIcon(0, QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning));
    return row;
}

bool fits(const QTreeWidgetItem &row, const QStringList &foldedWords)
{
    const QString text = foldForSearch(row.text(0) + ' ' + row.text(1));
    return std::all_of(foldedWords.begin(), foldedWords.end(),
                       [&text](const QString &word) { return text.contains(word); });
}

bool movesInList(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

} // namespace

TInstitutionsDlg::TInstitutionsDlg(const QString &listFile, TOpen openBooks, QWidget *owner)
    : TDialog(owner),
      file(listFile),
      open(std::move(openBooks)),
      List(new QTreeWidget(this))
{
    setObjectName("TInstitutionsDlg");
    setHelpTopic(helpOfInstitutions);
    List->setHeaderLabels({"Įstaiga", "Kur jos knygos"});
    List->setRootIsDecorated(false);
    List->setUniformRowHeights(true);
    List->setAllColumnsShowFocus(true);
    describe("Įstaigos",
             {TFieldRow::freeEdit("&Ieškoti:", "FilterEdit").width(40),
              TFieldRow::custom("Įs&taigos:", "List", List)},
             nullptr,
             {{"&Atidaryti", TDialogButton::Save, true, {}, "OpenBtn"},
              {"&Pridėti…", TDialogButton::Action, false, [this] { add(); }, "AddBtn"},
              {"Pa&miršti", TDialogButton::Action, false, [this] { forget(); }, "ForgetBtn"},
              {"A&tšaukti", TDialogButton::Cancel, false, {}, {}},
              {"Pa&galba", TDialogButton::Help, false, {}, {}}});
    FilterEdit = control<QLineEdit>("FilterEdit");
    FilterEdit->installEventFilter(this);
    saveButton()->setIcon({}); // nothing is saved here
    List->setColumnWidth(0, List->fontMetrics().averageCharWidth() * 45);
    connectGuarded(FilterEdit, &QLineEdit::textChanged, this, [this] { showFitting(); });
    connectGuarded(List, &QTreeWidget::itemDoubleClicked, this, [this] { trySave(); });
    resize(List->fontMetrics().averageCharWidth() * 115, List->fontMetrics().height() * 26);
    readList();
}

void TInstitutionsDlg::readList()
{
    known = readKnownBooks(file);
    List->clear();
    for (int i = 0; i < known.size(); ++i) {
        auto *row = rowOf(known[i]);
        row->setData(0, placeOfEntry, i);
        List->addTopLevelItem(row);
    }
    showFitting();
}

// The chosen row stays while it fits; else the first one that does is chosen.
void TInstitutionsDlg::showFitting()
{
    const QStringList words = foldForSearch(FilterEdit->text()).split(' ', Qt::SkipEmptyParts);
    QTreeWidgetItem *first = nullptr;
    for (int i = 0; i < List->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = List->topLevelItem(i);
        row->setHidden(!fits(*row, words));
        if (!first && !row->isHidden())
            first = row;
    }
    QTreeWidgetItem *chosen = List->currentItem();
    choose(chosen && !chosen->isHidden() ? chosen : first);
}

void TInstitutionsDlg::choose(QTreeWidgetItem *item)
{
    List->setCurrentItem(item);
    for (const char *name : {"OpenBtn", "ForgetBtn"})
        button(name)->setEnabled(item);
}

const TKnownBooks *TInstitutionsDlg::current() const
{
    const QTreeWidgetItem *item = List->currentItem();
    return item ? &known[item->data(0, placeOfEntry).toInt()] : nullptr;
}

void TInstitutionsDlg::add()
{
    TAddInstitutionDlg dialog(this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (dialog.isNew()) {
        openNew(dialog.books());
        return;
    }
    rememberBooks(file, {.name = dialog.name(), .books = dialog.books()});
    FilterEdit->clear();
    readList();
    List->setFocus();
}

// Books that are not there yet come on the list when they are: after the first login.
void TInstitutionsDlg::openNew(const TBooksSettings &place)
{
    isNew = true;
    books = place;
    trySave();
    isNew = false;
}

void TInstitutionsDlg::forget()
{
    const TKnownBooks *entry = current();
    const QString question =
        entry->readable()
            ? "Ar pamiršti įstaigą „%1“?\n%2\n\nJos knygos lieka, kur yra; ją galėsite vėl pridėti."
            : "Ar pašalinti įrašą „%1“ iš įstaigų sąrašo?\n%2";
    if (StdMsgBox(mkQuestion, question.arg(nameOf(*entry), told(*entry))) != mrYes)
        return;
    const int row = List->indexOfTopLevelItem(List->currentItem());
    forgetBooks(file, *entry);
    readList();
    if (QTreeWidgetItem *next = List->topLevelItem(std::min(row, List->topLevelItemCount() - 1)))
        choose(next->isHidden() ? List->currentItem() : next);
}

void TInstitutionsDlg::Validate()
{
    if (isNew)
        return;
    const TKnownBooks *entry = current();
    if (!entry)
        throw EAbort();
    requireThere(*entry);
    books = entry->books;
}

void TInstitutionsDlg::Save()
{
    open(books, this);
}

bool TInstitutionsDlg::eventFilter(QObject *watched, QEvent *event)
{
    const bool forList = watched == FilterEdit && event->type() == QEvent::KeyPress &&
                         movesInList(static_cast<QKeyEvent *>(event)->key());
    return forList ? QCoreApplication::sendEvent(List, event) : TDialog::eventFilter(watched, event);
}
