#include "src/accounts/Opr.h"

#include "toolkit/widgets/column_lookup.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/own_escape.h"

#include <QAction>
#include <QGroupBox>
#include <QSplitter>

namespace Opr {

TUnit unit("Opr");
TOprFrm *OprFrm = nullptr;

namespace {

constexpr unsigned char accountsByNumber = 2;

QString linesOf(const QString &side)
{
    return QString("select * from bd_OprSasKor where osk_oprid=:oprid and osk_db_kr=\"%1\" and osk_1_2=\"1\"")
        .arg(side);
}

// What was typed up to its first blank is the number of an account; anything else leaves the cell as it was.
Variant accountOf(const TField &field, const QString &typed)
{
    const double id = GetSasByNr(typed.section(' ', 0, 0));
    return id > 0 ? Variant(id) : field.Value();
}

} // namespace

void TToldQuery::write(TRecordChange &change)
{
    try {
        TQuery::write(change);
    } catch (const EChangedElsewhere &conflict) {
        if (!editing() || !settleChangedElsewhere(widgetOf(this), *this, conflict))
            throw;
        for (const TChangedColumn &column : conflict.columns)
            change.before[size_t(FieldByName(column.field)->index())] = column.theirs;
        write(change);
    } catch (const Exception &error) {
        if (OnWriteError)
            OnWriteError(error);
        throw;
    }
}

TOprFrm::TList::TList(const QString &sql, TOprFrm *screen)
    : query(sessionOf(TSession::Main), sql, screen),
      grid(new TDBGrid(screen))
{
    query.RequestLive = true;
}

TOprFrm::TOprFrm(QWidget *owner)
    : TDocumentFrm({.name = "TOprFrm", .caption = "Operacijos", .help = 78}, owner),
      operations("select opr_id, opr_pavad from bd_opr", this),
      debit(linesOf("D"), this),
      credit(linesOf("K"), this),
      accounts(std::make_shared<TColumnLookup>(
          [](const QVariant &id) { return GetSasById(id.toDouble(), true); })),
      entry(new QGroupBox("Pirminis įrašas", this))
{
    keepIn(OprFrm);
    setProperty(ownsEscape, true);
    buildActions();
    prepareOperations();
    prepareLines(debit, "D");
    prepareLines(credit, "K");
    setBody(buildBody());
    setFocusProxy(operations.grid);
    activate(operations);
}

// --- building

void TOprFrm::buildActions()
{
    const auto editing = [this] { return active->query.editing(); };
    const auto onRow = [this] { return mayStart() && !active->query.IsEmpty(); };
    TEditingActions row = editingActions({.mayEdit = onRow,
                                          .editing = editing,
                                          .edit = [this] { active->query.Edit(); },
                                          .save = [this] { active->query.Post(); },
                                          .cancel = [this] { active->query.Cancel(); }});
    row.edit.keys = {Qt::Key_Return, Qt::Key_Enter};
    row.save.separated = true;
    row.cancel.text = "Atšaukti";
    row.cancel.keys += QKeySequence(Qt::ALT | Qt::Key_Escape);
    acNew = addFormAction(
        {.name = "acNew",
         .text = "&Naujas",
         .hint = "Naujas įrašas",
         .picture = TIcon::New,
         .keys = {Qt::Key_Insert},
         .handler = [this] { active->query.Insert(); },
         .enabled = [this] { return mayStart() && (active == &operations || !operations.query.IsEmpty()); }});
    acEdit = addFormAction(row.edit);
    acDelete = addFormAction({.name = "acDelete",
                              .text = "&Trinti",
                              .hint = "Ištrinti įrašą",
                              .picture = TIcon::Delete,
                              .keys = {Qt::CTRL | Qt::Key_Delete},
                              .handler = [this] { active->query.Delete(); },
                              .enabled = onRow});
    acRefresh = addFormAction({.name = "acRefresh",
                               .text = "Atnaujinti",
                               .hint = "Perskaityti operacijas iš naujo",
                               .picture = TIcon::Refresh,
                               .keys = {Qt::CTRL | Qt::Key_A},
                               .handler = [this] { RefreshData(); },
                               .enabled = [editing] { return !editing(); },
                               .separated = true});
    acSave = addFormAction(row.save);
    acCancel = addFormAction(row.cancel);
    acHelp->setText("Pagalba");
}

QWidget *TOprFrm::buildBody()
{
    auto *body = new QSplitter(Qt::Vertical, this);
    auto *sides = new QHBoxLayout(entry);
    sides->addLayout(buildLines("DEBETAS", debit));
    sides->addLayout(buildLines("KREDITAS", credit));
    body->addWidget(operations.grid);
    body->addWidget(entry);
    body->setChildrenCollapsible(false);
    body->setStretchFactor(0, 3);
    body->setStretchFactor(1, 2);
    return body;
}

QLayout *TOprFrm::buildLines(const QString &title, TList &lines)
{
    auto *layout = new QVBoxLayout;
    layout->addWidget(labelFor(title, lines.grid));
    layout->addWidget(lines.grid);
    return layout;
}

// What all three lists have in common.
void TOprFrm::prepare(TList &list)
{
    list.grid->setDataSet(&list.query);
    list.grid->setMultiSelect(false);
    list.grid->setEditsInPlace(true);
    offerMenu(list.grid);
    connectGuarded(&list.query, &TDataSet::stateChanged, this, [this] { showState(); });
    connectGuarded(&list.query, &TDataSet::scrolled, this, [this] { judgeActions(); });
    connectGuarded(list.grid, &TDBGrid::rowActivated, this, [this] { acEdit->trigger(); });
    connectGuarded(list.grid, &TDBGrid::left, this, [this, &list] { leave(list); });
    connectGuarded(list.grid, &TDBGrid::entered, this, [this, &list] { activate(list); });
}

void TOprFrm::prepareOperations()
{
    TToldQuery &query = operations.query;
    operations.grid->setObjectName("Operacijos");
    operations.grid->setAccessibleName("Operacijos");
    operations.grid->setColumns({{.field = "opr_pavad", .title = "Operacijos pavadinimas"}});
    query.describe("opr_id", [](TField &field) { field.DisplayLabel = "Operacijos numeris"; });
    query.describe("opr_pavad", [](TField &field) { field.DisplayLabel = "Operacijos pavadinimas"; });
    query.BeforeInsert = [this](TDataSet &set) { pendingId = set.FieldByName("opr_id")->AsFloat() + 1; };
    query.BeforePost = [this](TDataSet &set) {
        if (pendingId)
            set.FieldByName("opr_id")->setAsFloat(*pendingId);
    };
    query.AfterPost = [this](TDataSet &) {
        if (pendingId)
            readOperations(*std::exchange(pendingId, std::nullopt));
    };
    query.AfterCancel = [this](TDataSet &) { pendingId.reset(); };
    query.OnWriteError = [this](const Exception &) { pendingId.reset(); };
    connectGuarded(&query, &TDataSet::scrolled, this, [this] { showLines(); });
    prepare(operations);
}

void TOprFrm::prepareLines(TList &lines, const QString &side)
{
    TToldQuery &query = lines.query;
    lines.grid->setObjectName(side == "D" ? "Debetas" : "Kreditas");
    lines.grid->setColumns({{.field = "OSK_SASID",
                             .title = "Sąskaitos pavadinimas",
                             .stretch = true,
                             .edit = {.typed = TEditOptions::Digits},
                             .lookup = accounts,
                             .browse = [this, &lines] { pickAccount(lines); }}});
    query.describe("OSK_SASID", [](TField &field) {
        field.DisplayLabel = "Sąskaita";
        field.Required = true;
        field.OnSetText = accountOf;
    });
    query.BeforePost = [this, side](TDataSet &set) {
        // The cursor may be on its way to another operation.
        set.FieldByName("OSK_OPRID")->setValue(shownOperation.value_or(Variant()));
        set.FieldByName("OSK_DB_KR")->setValue(side);
        set.FieldByName("OSK_1_2")->setValue("1");
    };
    query.AfterPost = [this, &lines](TDataSet &) {
        openLines(lines);
        lines.query.Last();
    };
    query.OnWriteError = [](const Exception &error) {
        if (dynamic_cast<const EUniqueViolation *>(&error))
            throw EConstraintError("Neįmanoma įrašyti vienodų sąskaitų");
    };
    prepare(lines);
}

// --- the life of the screen

void TOprFrm::FormCreate()
{
    operations.query.Open();
    TDocumentFrm::FormCreate();
}

// What is being typed is stored; where that is refused the window stays.
bool TOprFrm::FormClose()
{
    for (TList *list : {&debit, &credit, &operations})
        postOrDrop(*list);
    return TDocumentFrm::FormClose();
}

// --- reading

void TOprFrm::RefreshData()
{
    for (TList *lines : {&debit, &credit})
        postOrDrop(*lines);
    readOperations(operations.query.IsEmpty() ? Variant() : operations.query.FieldByName("opr_id")->Value());
}

void TOprFrm::readOperations(const Variant &id)
{
    shownOperation.reset();
    operations.query.Close();
    operations.query.Open();
    operations.query.Locate("opr_id", id);
}

// The accounts of the operation that became current. Those that are being typed are stored first; where that
// is refused their operation is current again.
void TOprFrm::showLines()
{
    if (!operations.query.Active())
        return;
    const Variant id = operations.query.FieldByName("opr_id")->Value();
    if (shownOperation && sameKey(id, *shownOperation))
        return;
    for (TList *lines : {&debit, &credit}) {
        if (runGuarded(this, [this, lines] { postOrDrop(*lines); }))
            continue;
        const auto goBack = [this, lines] {
            operations.query.Locate("opr_id", shownOperation.value_or(Variant()));
            lines->grid->setFocus();
        };
        QMetaObject::invokeMethod(this, guarded(this, goBack), Qt::QueuedConnection);
        return;
    }
    shownOperation = id;
    openLines(debit);
    openLines(credit);
}

void TOprFrm::openLines(TList &lines)
{
    lines.query.Close();
    lines.query.setParam("oprid", operations.query.FieldByName("opr_id")->Value());
    lines.query.Open();
}

// --- actions

bool TOprFrm::mayStart() const
{
    return !CurrentUser().viewOnly && active->query.Active() && !active->query.editing();
}

// Its row alone is marked as the one that the actions are about.
void TOprFrm::activate(TList &list)
{
    active = &list;
    for (const TList *each : {&operations, &debit, &credit}) {
        QPalette colours = palette();
        if (each != active) {
            colours.setBrush(QPalette::Highlight, colours.brush(QPalette::Midlight));
            colours.setBrush(QPalette::HighlightedText, colours.brush(QPalette::Text));
        }
        each->grid->setPalette(colours);
    }
    judgeActions();
}

void TOprFrm::showState()
{
    entry->setEnabled(!operations.query.editing());
    judgeActions();
}

void TOprFrm::pickAccount(TList &lines)
{
    lines.query.Edit();
    const double id = OpenSasModal(true, accountsByNumber);
    if (id <= 0)
        throw EAbort();
    lines.query.FieldByName("OSK_SASID")->setEditText(GetSasById(id, true));
}

// --- leaving a list

// An operation is stored even when nothing was typed. What is refused is not left.
void TOprFrm::leave(TList &list)
{
    const auto store = [this, &list] {
        if (&list == &operations)
            list.query.Post();
        else
            postOrDrop(list);
    };
    if (!runGuarded(this, store))
        list.grid->setFocus();
}

// A row that nobody touched goes.
void TOprFrm::postOrDrop(TList &list)
{
    if (!list.query.editing())
        return;
    list.grid->commitCell();
    if (list.query.Modified())
        list.query.Post();
    else
        list.query.Cancel();
}

} // namespace Opr
