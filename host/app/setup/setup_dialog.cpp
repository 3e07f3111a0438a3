#include "host/app/setup/setup_dialog.h"

#include "database/history.h"
#include "host/common/msgbox.h"
#include "host/common/waiting.h"
#include "host/data/login.h"
#include "host/data/main_datas.h"
#include "host/data/organisation.h"
#include "toolkit/text/datetime.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr int setUpTopic = 120;

QLabel *paragraph(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

TSetUpDlg::TSetUpDlg(const QSet<SetUpStep> &doneSteps, TWriter writer, QWidget *owner)
    : TDialog(owner),
      done(doneSteps),
      described(setUpPages(doneSteps)),
      write(std::move(writer)),
      pages(new QStackedWidget(this)),
      heading(new QLabel(this)),
      summary(paragraph({}, this))
{
    setObjectName("TSetUpDlg");
    setHelpTopic(setUpTopic);
    describe(
        "Įstaigos parengimas", {}, nullptr,
        {{"Atga&l", TDialogButton::Action, false, [this] { goTo(pages->currentIndex() - 1); }, "BackBtn"},
         {"&Toliau", TDialogButton::Action, true, [this] { goOn(); }, "NextBtn"},
         {"Į&rašyti", TDialogButton::Save, false, {}, "SaveBtn"},
         {"Atšau&kti", TDialogButton::Cancel, false, {}, {}},
         {"Pa&galba", TDialogButton::Help, false, {}, {}}});
    heading->setObjectName("heading");
    QFont large = heading->font();
    large.setPointSizeF(large.pointSizeF() * 1.2);
    large.setBold(true);
    heading->setFont(large);
    for (const TSetUpPage &page : described)
        addPage(page);
    summary->setObjectName("summary");
    summary->setAlignment(Qt::AlignTop);
    summary->setTextInteractionFlags(Qt::TextSelectableByMouse);
    pages->addWidget(summary);
    bodyLayout()->insertWidget(0, heading);
    bodyLayout()->insertWidget(1, pages);
    preset();
    goTo(0);
}

void TSetUpDlg::addPage(const TSetUpPage &page)
{
    auto *whole = new QWidget(pages);
    auto *layout = new QVBoxLayout(whole);
    layout->setContentsMargins({});
    layout->addWidget(paragraph(page.done ? "Jau įrašyta: čia nieko daryti nereikia." : page.told, whole));
    auto *form = new TFieldForm(page.rows, nullptr, whole);
    form->setEnabled(!page.done);
    layout->addWidget(form);
    layout->addStretch(1);
    pages->addWidget(whole);
    forms << form;
}

// What most institutions want: everything that the program brings, from this month on. The boxes are ticked
// as the user would, so that what depends on them follows.
void TSetUpDlg::preset()
{
    for (auto *box : pages->findChildren<QCheckBox *>())
        box->click();
    const QDate today = Date().date();
    pages->findChild<QLineEdit *>("YearEdit")->setText(QString::number(today.year()));
    pages->findChild<QComboBox *>("MonthBox")->setCurrentIndex(today.month() - 1);
}

bool TSetUpDlg::onSummary() const
{
    return pages->currentIndex() == described.size();
}

void TSetUpDlg::goTo(int page)
{
    pages->setCurrentIndex(page);
    heading->setText(QString("%1 iš %2. %3")
                         .arg(page + 1)
                         .arg(pages->count())
                         .arg(onSummary() ? "Santrauka" : described.at(page).title));
    if (onSummary())
        summary->setText(summaryOf(setUp(), done).join('\n'));
    button("BackBtn")->setEnabled(page > 0);
    button("NextBtn")->setVisible(!onSummary());
    saveButton()->setVisible(onSummary());
    button("NextBtn")->setDefault(!onSummary());
    saveButton()->setDefault(onSummary());
    if (onSummary())
        saveButton()->setFocus();
    else
        forms.at(page)->focusFirst();
}

// A page is checked when it is left forwards, so that what is wrong is told where it was typed.
void TSetUpDlg::goOn()
{
    const int page = pages->currentIndex();
    const TSetUpPage &left = described.at(page);
    if (left.check && !left.done)
        left.check(*forms.at(page));
    goTo(page + 1);
}

TSetUp TSetUpDlg::setUp() const
{
    TSetUp taken;
    for (qsizetype i = 0; i < described.size(); ++i)
        if (!described.at(i).done)
            described.at(i).take(*forms.at(i), taken);
    return taken;
}

void TSetUpDlg::Save()
{
    const TWaiting waiting;
    write(setUp());
}

bool haveUsers()
{
    return MainDatas()->mnRavl()->fieldResult("select count(*) from bd_usr").toLongLong() > 0;
}

bool setUpOpenBooks(QWidget *owner)
{
    TDatabase &fin = *MainDatas()->mnFin_Db();
    TDatabase &ravl = *MainDatas()->mnRavl();
    const QSet<SetUpStep> done = doneSteps(fin, ravl);
    const QList<TSetUpPage> pages = setUpPages(done);
    if (std::ranges::all_of(pages, &TSetUpPage::done)) {
        StdMsgBox(mkInformation, "Knygos jau parengtos: čia nebėra ko įrašyti.");
        return false;
    }
    if (CurrentUser().id == 0) { // before there is a user nobody can log in
        for (TDatabase *book : {&fin, &ravl})
            keepHistory(*book, {"parengimas", QSysInfo::machineHostName()});
    }
    TSetUpDlg dialog(
        done, [&](const TSetUp &chosen) { setUpBooks(fin, ravl, chosen); }, owner);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    GetPeriod();
    RefreshRights();
    OrganisationChanged();
    return true;
}
