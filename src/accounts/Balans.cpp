#include "src/accounts/Balans.h"

#include "src/accounts/Checksas.h"
#include "src/accounts/balance_editor.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QScopeGuard>

namespace Balans {

TUnit unit("Balans");
TBalFrm *BalFrm = nullptr;

namespace {

constexpr unsigned char listOfAccounts = 2;
constexpr int positionWidth = 190;
constexpr int leastHeight = 320; // of the sheet: some twenty lines
constexpr QKeyCombination saveKey = Qt::ALT | Qt::Key_N;

const QStringList sideNames{"Aktyvas", "Pasyvas", "Užbalansinė"};

// The first line in which two forms differ, in words.
QString firstDifference(const TBalForm &one, const TBalForm &other)
{
    for (std::size_t side = 0; side < one.size(); ++side) {
        const auto [mine, theirs] = std::ranges::mismatch(one[side], other[side]);
        const bool isAtMyEnd = mine == one[side].end();
        const bool isAtTheirEnd = theirs == other[side].end();
        if (isAtMyEnd && isAtTheirEnd)
            continue;
        const auto next = isAtMyEnd ? mine : std::next(mine);
        const bool isGone = isAtTheirEnd || (next != one[side].end() && next->text == theirs->text);
        return QString(isGone ? "%1: nebėra „%2“" : "%1: „%2“")
            .arg(sideNames.at(qsizetype(side)), (isGone ? mine : theirs)->text);
    }
    return {};
}

} // namespace

TBalFrm::TBalFrm(QWidget *owner)
    : TDocumentFrm({.name = "TBalFrm", .caption = "Balanso forma", .help = 11}, owner),
      BalList(new TBalEdit(this)),
      ActBox(new QComboBox),
      TypeBox(new QComboBox),
      TopBtn(new QPushButton("Suminė eilutė viršuje")),
      BottomBtn(new QPushButton("Suminė eilutė apašioje"))
{
    auto *body = new QWidget(this);
    auto *parts = new QVBoxLayout(body);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(0);
    parts->addWidget(attributeBar());
    parts->addWidget(BalList);
    setBody(body);
    addPanel(positionWidth);
    addActions();
    connectEditor();
    setFocusProxy(BalList);
    keepIn(BalFrm);
}

QWidget *TBalFrm::attributeBar()
{
    ActBox->setObjectName("ActBox");
    ActBox->addItems(sideNames);
    TypeBox->setObjectName("TypeBox");
    TypeBox->addItems({"Aktyvo/Pasyvo suminė eilutė", "Grupės suminė eilutė", "Detali eilutė"});
    TopBtn->setObjectName("TopBtn");
    BottomBtn->setObjectName("BottomBtn");
    BalList->setObjectName("BalList");
    BalList->setAccessibleName("Balanso formos eilutės");
    BalList->setMinimumHeight(leastHeight);
    auto *bar = new QWidget(this);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(6, 4, 6, 4);
    row->addWidget(labelFor("&Balanso", ActBox));
    row->addWidget(ActBox);
    row->addSpacing(8);
    row->addWidget(labelFor("&Tipas", TypeBox));
    row->addWidget(TypeBox);
    row->addSpacing(8);
    row->addWidget(TopBtn);
    row->addWidget(BottomBtn);
    row->addStretch();
    return bar;
}

void TBalFrm::addActions()
{
    acSave = addFormAction({.name = "acSave",
                            .text = "&Išsaugoti",
                            .hint = "Išsaugoti visas tris puses",
                            .picture = TIcon::Save,
                            .keys = {saveKey},
                            .handler = [this] { NewBtnClick(); }});
    addFormAction({.name = "acCheck",
                   .text = "Patikrinti",
                   .hint = "Patikrinti sąskaitų planą",
                   .picture = TIcon::Find,
                   .keys = {Qt::CTRL | Qt::Key_T},
                   .handler = [this] { CheckBtnClick(); }});
    // The key saves also where the button is not shown; two actions with one key would both be deaf.
    addFormAction({.name = "acSaveByKey",
                   .keys = {saveKey},
                   .handler = [this] { NewBtnClick(); },
                   .enabled = [this] { return !acSave->isEnabled(); },
                   .place = TActionPlace::KeyOnly});
    connectGuarded(ActBox, &QComboBox::currentIndexChanged, this, &TBalFrm::ActBoxChange);
    connectGuarded(TypeBox, &QComboBox::activated, this, &TBalFrm::TypeBoxChange);
    connectGuarded(TopBtn, &QPushButton::clicked, this, &TBalFrm::TopBtnClick);
    connectGuarded(BottomBtn, &QPushButton::clicked, this, &TBalFrm::BottomBtnClick);
}

void TBalFrm::connectEditor()
{
    BalList->pickAccount = [this] { return pickAccount(); };
    BalList->accountsForPaste = [this] {
        const TKnowsAccount known = knownAccounts();
        return known ? known : [](const QString &) { return true; };
    };
    connectGuarded(BalList, &QTextEdit::cursorPositionChanged, this, &TBalFrm::UpdateCursorPos);
    connectGuarded(BalList, &QTextEdit::textChanged, this, &TBalFrm::judgeLine);
    connectGuarded(BalList, &QTextEdit::textChanged, this, [this] { setMessage({}); });
    connectGuarded(BalList, &TBalEdit::charactersLeftOut, this, [this](int count) {
        setMessage(QString("Praleista ženklų, kuriems čia ne vieta: %1").arg(count));
    });
}

void TBalFrm::InitializeBal(bool second)
{
    Q_ASSERT(!store);
    store.emplace(sessionOf(second ? TSession::Budget : TSession::Main), second);
    if (second) {
        addPanel();
        setPanel(1, "Biudžeto duomenų bazė");
    }
    if (!mayWrite()) {
        BalList->setReadOnly(true);
        BalList->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    }
    stored = form = store->ReadList();
    RefreshData();
    judgeActions();
}

bool TBalFrm::mayWrite() const
{
    return store && !CurrentUser().viewOnly;
}

void TBalFrm::CheckToolButtons()
{
    acSave->setVisible(store && !store->isSecond());
    acSave->setEnabled(acSave->isVisible() && mayWrite());
}

QString TBalFrm::pickAccount()
{
    const double id = OpenSasModal(false, listOfAccounts);
    return id > 0 ? GetSasById(id, true).section(' ', 0, 0) : QString();
}

TKnowsAccount TBalFrm::knownAccounts() const
{
    return store->isSecond() ? TKnowsAccount() : TAccountIds(*sessionOf(TSession::Main)).known();
}

// --- sides and saving

void TBalFrm::RefreshData()
{
    BalList->setSheet(decodeSheet(shown, form[std::size_t(shown)]));
    UpdateCursorPos();
}

// A user who may only look has typed nothing.
void TBalFrm::SaveToList()
{
    const TBalSheet sheet = BalList->sheet();
    if (!sheet.empty() && mayWrite())
        form[std::size_t(shown)] = encodeSheet(shown, sheet, knownAccounts());
}

void TBalFrm::ActBoxChange()
{
    const auto chosen = TBalSide(ActBox->currentIndex());
    if (chosen == shown)
        return;
    const auto tellShown = qScopeGuard([this] { ActBox->setCurrentIndex(int(shown)); });
    SaveToList();
    shown = chosen;
    RefreshData();
}

void TBalFrm::NewBtnClick()
{
    if (!mayWrite())
        return;
    while (!saveOver(stored)) {
        const TBalForm theirs = store->ReadList();
        if (!mayReplace(theirs))
            return;
        stored = theirs;
    }
    setMessage("Balanso forma išsaugota");
}

// False, and nothing is written, when the database has another form than expected. What is saved in the main
// database is shown as it comes back from there; the second one keeps other texts than those typed.
bool TBalFrm::saveOver(const TBalForm &expected)
{
    TTransaction transaction(store->database());
    store->lock();
    SaveToList();
    if (store->ReadList() != expected)
        return false;
    store->SaveBal(form, TAccountIds(*sessionOf(TSession::Main)));
    const TBalForm written = store->ReadList();
    transaction.commit();
    stored = written;
    if (!store->isSecond()) {
        form = written;
        BalList->settle(decodeSheet(shown, form[std::size_t(shown)]));
    }
    return true;
}

bool TBalFrm::mayReplace(const TBalForm &theirs)
{
    const QString question = "Balanso formą tuo metu pakeitė kita darbo vieta (%1).\n\n"
                             "Jei išsaugosite savąją, kitos darbo vietos pakeitimai dings. Ar išsaugoti?";
    return StdMsgBox(mkQuestion, question.arg(firstDifference(stored, theirs))) == mrYes;
}

void TBalFrm::CheckBtnClick()
{
    Checksas::OpenSasChecker();
}

// --- the line of the caret

void TBalFrm::TypeBoxChange()
{
    BalList->changeKind(TBalKind(TypeBox->currentIndex()));
    judgeLine();
}

void TBalFrm::TopBtnClick()
{
    BalList->moveTotalToTop();
    UpdateCursorPos();
}

void TBalFrm::BottomBtnClick()
{
    BalList->moveTotalToBottom();
    UpdateCursorPos();
}

void TBalFrm::UpdateCursorPos()
{
    setPanel(0, QString("Eilutė: %1   Kolonėlė: %2")
                    .arg(BalList->textCursor().blockNumber() + 1, 3)
                    .arg(BalList->caretLine().column, 3));
    judgeLine();
}

void TBalFrm::judgeLine()
{
    const TCaretLine caret = BalList->caretLine();
    const bool isTotal = caret.line.kind == TBalKind::SideTotal || caret.line.kind == TBalKind::GroupTotal;
    TypeBox->setCurrentIndex(caret.line.kind == TBalKind::None ? -1 : int(caret.line.kind));
    TypeBox->setEnabled(mayWrite() && caret.accountsColumn() == 0);
    TopBtn->setEnabled(mayWrite() && isTotal);
    BottomBtn->setEnabled(mayWrite() && isTotal);
}

} // namespace Balans
