#include "host/controls/browse_private.h"
#include "host/controls/row_history.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/guard.h"

#include <QAction>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {
// One action of every list: where it is kept, how it looks, the keys that reach it, what it does.
struct Described {
    QAction *TBrowseFrm::*action;
    const char *name;
    QString text;
    QString hint;
    std::optional<TIcon> icon;
    QList<QKeySequence> keys;
    void (TBrowseFrm::*handler)();
    bool onGridOnly = false; // its keys mean something else while the user types elsewhere
};

const std::vector<Described> &everyAction()
{
    using F = TBrowseFrm;
    static const std::vector<Described> table = {
        {&F::acNew, "acNew", u"&Naujas"_s, u"Naujas įrašas"_s, TIcon::New, {Qt::Key_Insert}, &F::NewBtnClick},
        {&F::acEdit,
         "acEdit",
         u"&Keisti"_s,
         u"Keisti įrašą"_s,
         TIcon::Edit,
         {Qt::Key_Enter, Qt::Key_Return},
         &F::EditBtnClick,
         true},
        {&F::acDelete,
         "acDelete",
         u"&Trinti"_s,
         u"Ištrinti įrašą"_s,
         TIcon::Delete,
         {Qt::Key_Delete, Qt::CTRL | Qt::Key_Delete},
         &F::DelBtnClick,
         true},
        {&F::acRefresh,
         "acRefresh",
         u"&Atnaujinti"_s,
         u"Perskaityti sąrašą iš naujo"_s,
         TIcon::Refresh,
         {Qt::Key_F5},
         &F::RefreshBtnClick},
        {&F::acFirst,
         "acFirst",
         u"&Pirmas"_s,
         u"Pirmas įrašas"_s,
         TIcon::First,
         {Qt::CTRL | Qt::Key_Home},
         &F::FirstBtnClick,
         true},
        {&F::acPrev,
         "acPrev",
         u"&Ankstesnis"_s,
         u"Ankstesnis įrašas"_s,
         TIcon::Previous,
         {Qt::ALT | Qt::Key_Up},
         &F::PrevBtnClick},
        {&F::acNext,
         "acNext",
         u"&Kitas"_s,
         u"Kitas įrašas"_s,
         TIcon::Next,
         {Qt::ALT | Qt::Key_Down},
         &F::NextBtnClick},
        {&F::acLast,
         "acLast",
         u"Pa&skutinis"_s,
         u"Paskutinis įrašas"_s,
         TIcon::Last,
         {Qt::CTRL | Qt::Key_End},
         &F::LastBtnClick,
         true},
        {&F::acFind,
         "acFind",
         u"&Ieškoti"_s,
         u"Ieškoti stulpelyje"_s,
         TIcon::Find,
         {Qt::Key_F7, Qt::CTRL | Qt::Key_F},
         &F::FindBtnClick},
        {&F::acFindNext,
         "acFindNext",
         u"Ieškoti t&oliau"_s,
         u"Kitas rastas įrašas"_s,
         std::nullopt,
         {Qt::Key_F3},
         &F::FindNextBtnClick},
        {&F::acOrder,
         "acOrder",
         u"&Rikiuoti pagal stulpelį"_s,
         u"Rikiuoti pagal stulpelį"_s,
         TIcon::Order,
         {Qt::CTRL | Qt::Key_R},
         &F::OrderBtnClick},
        {&F::acCopy,
         "acCopy",
         u"K&opijuoti eilutes"_s,
         u"Kopijuoti pažymėtas eilutes"_s,
         TIcon::Copy,
         {Qt::CTRL | Qt::Key_C},
         &F::CopyBtnClick,
         true},
        {&F::acPrint,
         "acPrint",
         u"&Spausdinti"_s,
         u"Spausdinti sąrašą"_s,
         TIcon::Print,
         {Qt::CTRL | Qt::Key_P},
         &F::PrintBtnClick},
    };
    return table;
}

// The key of the current row as the history has it. Raises where the list does not hold all of it.
QString historyKey(TQuery &query, const QString &table)
{
    QStringList values;
    for (const QString &column : query.Database()->keyOf(table)) {
        const TField *field = query.FindField(column);
        if (!field || field->IsNull())
            throw Exception(u"Sąraše nėra viso šios eilutės rakto, todėl jos pakeitimai neatskiriami."_s);
        const bool whole =
            field->DataType() == TFieldType::ftInteger || field->DataType() == TFieldType::ftFloat;
        values.append(whole ? QString::number(field->AsFloat(), 'f', 0) : field->AsString());
    }
    return values.join(u'|');
}

QBoxLayout *addLine(QBoxLayout *lines)
{
    auto *line = new QHBoxLayout;
    line->setSpacing(6);
    lines->addLayout(line);
    return line;
}
} // namespace

void TBrowseFrm::addActions()
{
    for (const Described &each : everyAction())
        this->*each.action = addFormAction({.name = QString::fromLatin1(each.name),
                                            .text = each.text,
                                            .hint = each.hint,
                                            .picture = each.icon,
                                            .keys = each.keys,
                                            .handler = [this, handler = each.handler] { (this->*handler)(); },
                                            .place = TActionPlace::KeyOnly,
                                            .keysIn = each.onGridOnly ? d->grid : nullptr});
    acOrder->setVisible(description.titleOrder);
    const auto showHistory = [this] {
        const QString table = description.table.toLower();
        rowHistoryOpener()({description.session, table, historyKey(d->query, table), windowTitle()});
    };
    QAction *history =
        addFormAction({.name = u"acHistory"_s,
                       .text = u"Pak&eitimų istorija"_s,
                       .keys = {Qt::CTRL | Qt::Key_H},
                       .handler = showHistory,
                       .enabled = [this] { return acFirst->isEnabled(); },
                       .visible = [this] { return rowHistoryOpener() && !description.table.isEmpty(); },
                       .place = TActionPlace::KeyOnly});
    addButtonGroup({acNew, acEdit, acDelete});
    d->afterEditing = addButtonGroup({acFirst, acPrev, acNext, acLast});
    addButtonGroup({acRefresh, acFind, acPrint});
    addMenuGroup({acNew, acEdit, acDelete});
    addMenuGroup({acRefresh, acFind, acFindNext, acOrder, acCopy, acPrint});
    addMenuGroup({history});
    addSubmenu(u"Ei&ti į įrašą"_s, {acFirst, acPrev, acNext, acLast});
    offerMenu(d->grid);
}

QAction *TBrowseFrm::addListAction(const TFormAction &described)
{
    QAction *action = addFormAction(described);
    if (described.place == TActionPlace::DeleteMenu) {
        addToDeleteMenu(acDelete, action);
        addMenuGroup({action});
    }
    return action;
}

void TBrowseFrm::addSearchLine(QBoxLayout *layout)
{
    d->findLabel = new QLabel;
    d->findLabel->setTextFormat(Qt::PlainText);
    d->findEdit = new QLineEdit;
    d->findEdit->setObjectName(u"FindEdit"_s);
    d->findEdit->setClearButtonEnabled(true);
    d->findEdit->setMaximumWidth(320);
    d->findLabel->setBuddy(d->findEdit);
    d->searchLines = new QVBoxLayout;
    d->searchLines->setContentsMargins(6, 3, 6, 3);
    d->searchLines->setSpacing(6);
    layout->addLayout(d->searchLines);
    d->pickLine = addLine(d->searchLines);
    d->pickLine->addWidget(d->findLabel);
    d->pickLine->addWidget(d->findEdit);
    d->pickLine->addStretch();
    connectGuarded(d->findEdit, &QLineEdit::textChanged, this, [this] { findTextChanged(); });
    connectGuarded(d->findEdit, &QLineEdit::returnPressed, this, [this] { d->grid->setFocus(); });
}

// The first stands beside the search; more of them would leave no room for it on a small screen.
void TBrowseFrm::addToToolBar(const QString &label, QWidget *control)
{
    d->pickLine->addWidget(labelFor(label, control));
    d->pickLine->addWidget(control);
    if (d->searchLines->count() > 1)
        return;
    d->pickLine = addLine(d->searchLines);
    d->pickLine->addStretch();
}
