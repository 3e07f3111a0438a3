#include "src/organisation/Orgatr.h"

#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/lithuanian.h"
#include "toolkit/widgets/own_escape.h"
#include "toolkit/widgets/refused.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace Orgatr {

TUnit unit("OrgAtr");
TOrgFrm *OrgFrm = nullptr;

namespace {

constexpr int companyCodeSigns = 11;
constexpr double largestCompanyCode = 99999999999;
constexpr QSize emblemRoom(322, 242); // that of the largest that is shown: a chosen one moves nothing else

// What must be filled, in this order, and what is said otherwise.
struct TRequired {
    const char *column;
    const char *message;
};
constexpr TRequired required[] = {
    {"org_pavad", "Neužpildytas įmonės pavadinimas!"},
    {"org_adr", "Neužpildytas įmonės adresas!"},
    {"org_i_kod", "Neužpildytas įmonės kodas!"},
};

} // namespace

TOrgFrm::TOrgFrm(QWidget *owner)
    : TDocumentFrm({.name = "TOrgFrm", .caption = "Organizacijos atributai", .help = 3}, owner),
      tbOrg(sessionOf(TSession::Main), "bd_org", {}, this),
      qrySav(sessionOf(TSession::Main), "SELECT * FROM Bd_Savivaldybes ORDER BY Sav_Pavad", this),
      missing(new QLabel("Organizacijos atributai dar neįvesti.", this)),
      municipality(new TDBLookupComboBox(this)),
      emblem(new TDBImage(this))
{
    keepIn(OrgFrm);
    setProperty(ownsEscape, true);
    tbOrg.CachedUpdates = true; // until the transaction went through
    tbOrg.BeforePost = [this](TDataSet &) { tbOrgBeforePost(); };
    describeColumns();
    buildActions();
    setBody(buildBody());
    orderByTab();
    setFocusProxy(form->control("org_pavad"));
    connectGuarded(&tbOrg, &TDataSet::stateChanged, this, [this] { showState(); });
}

// --- building

void TOrgFrm::buildActions()
{
    TEditingActions row =
        editingActions({.mayEdit = [this] { return !CurrentUser().viewOnly && !tbOrg.editing(); },
                        .editing = [this] { return tbOrg.editing(); },
                        .edit = [this] { edit(); },
                        .save = [this] { save(); },
                        .cancel = [this] { cancel(); }});
    row.edit.hint = "Keisti organizacijos atributus";
    acEdit = addFormAction(row.edit);
    acSave = addFormAction(row.save);
    acCancel = addFormAction(row.cancel);
    mnOpen = addFormAction({.name = "mnOpen",
                            .text = "Atidaryti &failą…",
                            .hint = "Paimti ženklą iš paveikslėlio failo",
                            .picture = TIcon::OpenPicture,
                            .keys = {Qt::CTRL | Qt::Key_O},
                            .handler = [this] { emblem->openFile(); },
                            .enabled = [this] { return emblem->canEdit(); },
                            .place = TActionPlace::KeyOnly,
                            .keysIn = emblem});
    mnDel = addFormAction({.name = "mnDel",
                           .text = "Trinti ž&enklą",
                           .picture = TIcon::Delete,
                           .keys = {Qt::Key_Delete},
                           .handler = [this] { mnDelClick(); },
                           .enabled = [this] { return emblem->canEdit() && emblem->showsValue(); },
                           .place = TActionPlace::KeyOnly,
                           .keysIn = emblem});
    acHelp->setText("Pagalba");
    acClose->setText("&Baigti");
}

QWidget *TOrgFrm::buildBody()
{
    form = new TFieldForm({TFieldRow::edit("Pavadi&nimas:", "org_pavad").named("Pavadinimas").width(50),
                           TFieldRow::edit("A&dresas:", "org_adr").named("Adresas"),
                           TFieldRow::edit("Į&monės kodas", "org_i_kod")
                               .digitsTyped()
                               .maxLength(companyCodeSigns)
                               .between(1, largestCompanyCode),
                           TFieldRow::edit("P&VM mok. kodas", "org_pvm_kod").blankIsNull(),
                           TFieldRow::edit("Dra&udėjo kodas", "ORG_DRAUD_KOD").blankIsNull(),
                           TFieldRow::custom("Sav&ivaldybės kodas", "Savivaldybe", buildMunicipality()),
                           TFieldRow::edit("Registro &tvarkytojas", "Org_RejNum").blankIsNull()},
                          &tbOrg, this);
    auto *body = new QWidget(this);
    auto *layout = new QVBoxLayout(body);
    auto *panes = new QHBoxLayout;
    panes->setSpacing(20);
    panes->addWidget(form, 1, Qt::AlignTop);
    panes->addWidget(buildEmblem(), 0, Qt::AlignTop);
    layout->addWidget(missing);
    layout->addLayout(panes, 1);
    return body;
}

QWidget *TOrgFrm::buildMunicipality()
{
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    codeEdit = new TDBEdit(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(municipality, 1);
    layout->addWidget(codeEdit);
    municipality->setObjectName("SavivaldybeBox");
    municipality->setAccessibleName("Savivaldybė");
    municipality->bind(&tbOrg, "Org_Savivaldybe");
    codeEdit->setObjectName("Org_Savivaldybe");
    codeEdit->setAccessibleName("Savivaldybės kodas");
    codeEdit->setOptions({.maxLength = 5, .typed = TEditOptions::Digits});
    codeEdit->setFixedWidth(codeEdit->fontMetrics().averageCharWidth() * 10);
    codeEdit->bind(&tbOrg, "Org_Savivaldybe");
    row->setFocusProxy(municipality);
    return row;
}

QWidget *TOrgFrm::buildEmblem()
{
    auto *side = new QWidget(this);
    auto *layout = new QVBoxLayout(side);
    auto *room = new QWidget(side);
    auto *buttons = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    room->setFixedSize(emblemRoom);
    emblem->setParent(room);
    emblem->setObjectName("org_zenklas");
    emblem->setContextMenuPolicy(Qt::ActionsContextMenu);
    emblem->bind(&tbOrg, "org_zenklas");
    connectGuarded(emblem, &TDBImage::doubleClicked, this, [this] { mnOpen->trigger(); });
    connectGuarded(emblem, &TDBImage::pictureChanged, this, [this] { showPicture(); });
    for (QAction *action : {mnOpen, mnDel})
        buttons->addWidget(buttonOf(action));
    buttons->addStretch();
    layout->addWidget(labelFor("Ženklas", emblem));
    layout->addLayout(buttons);
    layout->addWidget(room);
    layout->addStretch();
    showPicture();
    return side;
}

QWidget *TOrgFrm::buttonOf(QAction *action)
{
    auto *button = new QToolButton(this);
    button->setObjectName(action->objectName() + "Button");
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(plainCaption(action->text()));
    return button;
}

// What stands beside others comes into the order where it is seen.
void TOrgFrm::orderByTab()
{
    const QList<QWidget *> order{form->control("ORG_DRAUD_KOD"),
                                 municipality,
                                 codeEdit,
                                 form->control("Org_RejNum"),
                                 findChild<QWidget *>("mnOpenButton"),
                                 findChild<QWidget *>("mnDelButton"),
                                 emblem};
    for (qsizetype i = order.size() - 1; i > 0; --i)
        setTabOrder(order.first(), order[i]);
}

void TOrgFrm::describeColumns()
{
    for (const char *code : {"org_i_kod", "Org_Savivaldybe"})
        tbOrg.describe(code, [](TField &field) { field.Alignment = TAlignment::taLeftJustify; });
    tbOrg.describe("org_id", [](TField &field) { field.DefaultExpression = 1; }); // there is one row only
    tbOrg.describe("Org_Savivaldybe", [this](TField &field) {
        field.DisplayLabel = "Savivaldybės kodas";
        field.OnValidate = [this](TField &validated, const Variant &code) {
            requireMunicipality(validated, code);
        };
    });
    tbOrg.describe("org_zenklas", [](TField &field) { field.DisplayLabel = "Ženklas"; });
}

// --- rules

void TOrgFrm::requireMunicipality(TField &field, const Variant &code)
{
    if (!code.isNull() && !qrySav.Locate("Sav_Kod", code))
        field.refuse(QString("savivaldybės, kurios kodas „%1“, sąraše nėra.").arg(code.toString()));
}

void TOrgFrm::tbOrgBeforePost() const
{
    for (const auto &[column, message] : required)
        if (tbOrg.FieldByName(column)->AsString().trimmed().isEmpty())
            throw EFieldRefused(message, column);
}

// --- the life of the screen

void TOrgFrm::FormCreate()
{
    municipality->setList(&qrySav, "Sav_Kod", "Sav_Pavad");
    RefreshData();
    TDocumentFrm::FormCreate();
}

void TOrgFrm::RefreshData()
{
    tbOrg.Close();
    tbOrg.Open();
    showState();
}

bool TOrgFrm::FormClose()
{
    return mayLeave() && TDocumentFrm::FormClose();
}

bool TOrgFrm::mayLeave()
{
    if (!tbOrg.editing())
        return true;
    const int answer =
        StdMsgBox(mkQuestionCancel, "Jūs uždarote langą neišsaugojus informacija, ar išsaugoti dabar?");
    if (answer == mrYes)
        save();
    else if (answer == mrNo)
        cancel();
    return answer == mrYes || answer == mrNo;
}

void TOrgFrm::showState()
{
    missing->setVisible(tbOrg.State() == dsBrowse && tbOrg.IsEmpty());
    judgeActions();
}

// --- editing

// What another station stored meanwhile is what is edited.
void TOrgFrm::edit()
{
    RefreshData();
    tbOrg.Edit();
    form->focusFirst();
}

void TOrgFrm::save()
{
    try {
        while (!write()) {
        }
    } catch (const Exception &error) {
        focusRefused(this, error);
        throw;
    }
    OrganisationChanged();
    RefreshData();
}

// False: another station changed the row, and the user's own values shall stand. Whatever fails, the row is
// in edit again as it was typed.
bool TOrgFrm::write()
{
    try {
        TTransaction transaction(tbOrg.Database());
        tbOrg.ApplyUpdates();
        transaction.commit();
        tbOrg.CommitUpdates();
        return true;
    } catch (const EChangedElsewhere &conflict) {
        tbOrg.Edit();
        return !settleChangedElsewhere(this, tbOrg, conflict);
    } catch (const EUniqueViolation &) {
        tbOrg.Edit();
        throw Exception("Kita darbo vieta tuo tarpu jau įrašė organizacijos atributus. Atšaukite savo "
                        "pakeitimus ir keiskite tai, kas įrašyta.");
    } catch (...) {
        tbOrg.Edit();
        throw;
    }
}

void TOrgFrm::cancel()
{
    tbOrg.Cancel();
    tbOrg.CancelUpdates();
    RefreshData();
}

// The emblem is as high as its picture, scaled down where that is too large.
void TOrgFrm::showPicture()
{
    emblem->setFixedSize(emblem->sizeHint());
    judgeActions();
}

void TOrgFrm::mnDelClick()
{
    emblem->clearPicture();
}

} // namespace Orgatr
