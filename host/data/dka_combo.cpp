#include "host/data/dka_combo.h"

#include "host/data/main_datas.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/invalid_mark.h"

#include <QLineEdit>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int offeredAtMost = 50;
constexpr int pauseMs = 200;

const QString gone = u"Įmonės registre nebėra"_s;
const QString several = u"Tokių įmonių registre yra kelios: pasirinkite iš sąrašo (F4)"_s;

TDatabase *books()
{
    Q_ASSERT(MainDatas());
    return MainDatas()->mnFin_Db();
}

bool sameColumn(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

TDKAComboBox::TDKAComboBox(const TDKAColumns &described, QWidget *parent)
    : TSearchEdit(Typing::Searches, u"Pasirinkti iš registro"_s, parent),
      columns(described),
      pause(new QTimer(this))
{
    row()->setStretchFactor(line(), 1);
    pause->setSingleShot(true);
    pause->setInterval(pauseMs);
    connectGuarded(pause, &QTimer::timeout, this, [this] { offerFor(line()->text()); });
}

TField &TDKAComboBox::keyField() const
{
    return *DataSet()->FieldByName(columns.id);
}

double TDKAComboBox::value() const
{
    return party ? party->id : 0;
}

double TDKAComboBox::Get_dkaSASID() const
{
    return party ? party->account : 0;
}

bool TDKAComboBox::showsValue() const
{
    return invalidReason().isEmpty() && !line()->text().trimmed().isEmpty();
}

// --- searching

void TDKAComboBox::lookFor(const QString &text)
{
    TInvalidMark::put(line(), {});
    offers()->closeUp();
    if (text.trimmed().isEmpty())
        pause->stop();
    else
        pause->start();
}

void TDKAComboBox::lookNow()
{
    if (pause->isActive())
        offerFor(line()->text());
}

void TDKAComboBox::openPicker()
{
    offerFor(pending() ? line()->text() : QString());
}

void TDKAComboBox::offerFor(const QString &text)
{
    pause->stop();
    QList<TOffer> fitting;
    for (const TParty &each : partiesLike(books(), text, offeredAtMost))
        fitting.append({each.label(), each.id});
    offers()->offer(fitting);
}

// --- the columns

// The counterparty that is meant; nothing for a free text. Raises when none can be told.
std::optional<TParty> TDKAComboBox::settled(const QString &text) const
{
    if (chosen()) {
        const auto found = findParty(books(), *chosen());
        if (!found)
            throw Exception(gone);
        return found;
    }
    if (text.isEmpty())
        return {};
    if (party && party->textOf(columns.shown) == text)
        return party;
    QList<TParty> found = partiesOf(books(), columns.shown, text);
    if (found.isEmpty() && sameColumn(columns.shown, u"dka_i_kod"_s))
        found = partiesOf(books(), u"dka_kod"_s, text);
    if (found.size() > 1)
        throw Exception(several);
    return found.isEmpty() ? std::nullopt : std::optional(found.first());
}

// What a column refuses leaves both as they were.
void TDKAComboBox::storeField(TField &field)
{
    const QString text = line()->text().trimmed();
    if (const auto found = settled(text)) {
        line()->setText(found->textOf(columns.shown));
        storeParty(*found);
    } else {
        field.setEditText(text);
        if (!keyField().IsNull())
            keyField().Clear();
    }
}

void TDKAComboBox::storeParty(const TParty &chosenParty)
{
    keyField().setValue(chosenParty.id);
    for (TDKAComboBox *each : onSameKey()) {
        TField *free = each->Field();
        if (free && !free->IsNull())
            free->Clear();
    }
}

QList<TDKAComboBox *> TDKAComboBox::onSameKey()
{
    QList<TDKAComboBox *> found;
    for (TDBControl *control : allIn(window())) {
        auto *other = dynamic_cast<TDKAComboBox *>(control);
        if (other && other->DataSet() == DataSet() && sameColumn(other->columns.id, columns.id))
            found.append(other);
    }
    return found;
}

// A counterparty chosen here may have been deleted by another station meanwhile.
void TDKAComboBox::commit()
{
    pause->stop();
    TSearchEdit::commit();
    if (!party || !canEdit() || keyField().Value() == keyField().OldValue())
        return;
    if (!findParty(books(), party->id)) {
        markInvalid(gone);
        throw Exception(gone);
    }
}

// --- showing

void TDKAComboBox::showField(TField *field)
{
    pause->stop();
    const double key = field ? keyField().AsFloat() : 0;
    if (key != shownKey) {
        party = key > 0 ? findParty(books(), key) : std::nullopt;
        shownKey = key;
        heard();
        emit changed();
    }
    if (key > 0)
        showText(party ? party->textOf(columns.shown) : QString());
    else
        showText(field ? field->editText() : QString());
    if (invalidReason().isEmpty())
        TInvalidMark::put(line(), key > 0 && !party ? gone : QString());
}

// What was read is read anew with the record.
void TDKAComboBox::setEditable(bool on)
{
    shownKey.reset();
    TSearchEdit::setEditable(on);
}
