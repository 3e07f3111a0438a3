#include "host/data/key_edit.h"

#include "toolkit/widgets/invalid_mark.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>

namespace {

const QColor wrongColor(0xa0, 0x10, 0x10);

// A name longer than its place ends in an ellipsis; the tool tip has it whole.
class TElidedLabel : public QLabel {
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                              shown, foregroundRole());
    }
};

} // namespace

TKeyEdit::TKeyEdit(Typing whatIsTyped, const Words &given, QWidget *parent)
    : TSearchEdit(whatIsTyped, given.pickHint, parent),
      words(given),
      note(new TElidedLabel)
{
    note->setTextFormat(Qt::PlainText);
    note->setMinimumWidth(0);
    note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    if (typingSearches())
        line()->setMinimumWidth(line()->fontMetrics().horizontalAdvance(u'0') * 14);
    row()->setStretchFactor(line(), typingSearches() ? 0 : 1);
    row()->addWidget(note, 1);
    showNote();
}

TKeyEdit::~TKeyEdit() = default;

void TKeyEdit::setValue(double newKey)
{
    if (DataSet()) {
        choose(newKey);
        return;
    }
    const double before = ownValue;
    try {
        ownValue = newKey;
        restore();
    } catch (...) {
        ownValue = before;
        restore();
        throw;
    }
    if (gone)
        ownValue = 0;
}

QString TKeyEdit::textFor(const Variant &value)
{
    const std::optional<TKeyRow> row = rowOf(value.toDouble());
    if (!row)
        return {};
    return row->name.isEmpty() ? row->code : row->code + QStringLiteral("  ") + row->name;
}

// --- searching

std::optional<TKeyRow> TKeyEdit::rowOfText(const QString &)
{
    return {};
}

QList<TOffer> TKeyEdit::offersFor(const QString &)
{
    return {};
}

void TKeyEdit::lookFor(const QString &text)
{
    gone = false;
    TInvalidMark::put(line(), {});
    showNote();
    offers()->offer(text.trimmed().isEmpty() ? QList<TOffer>() : offersFor(text));
}

void TKeyEdit::openPicker()
{
    const double picked = pickFrom(current);
    if (picked > 0)
        setValue(picked);
}

// The code is looked up in the database, not in what was offered: another station may have changed it.
std::optional<TKeyRow> TKeyEdit::found(const QString &text)
{
    if (const auto exact = rowOfText(text))
        return exact;
    return offers()->offerCount() == 1 ? rowOf(offers()->at(0).key) : std::nullopt;
}

// What the user chose or typed; nothing for an empty text. Raises when it is no row's.
std::optional<TKeyRow> TKeyEdit::settled()
{
    const QString text = line()->text().trimmed();
    if (chosen() ? *chosen() <= 0 : text.isEmpty())
        return {};
    const auto row = chosen() ? rowOf(*chosen()) : found(text);
    if (!row)
        throw Exception(chosen() ? words.gone : words.noSuch.arg(text));
    line()->setText(row->code);
    return row;
}

void TKeyEdit::commit()
{
    TSearchEdit::commit();
    if (gone && refusesGone() && canEdit() && isVisible()) {
        markInvalid(words.gone);
        throw Exception(words.gone);
    }
}

// After a refusal the value is that of the column, or none where the text is nobody's.
void TKeyEdit::storeField(TField &field)
{
    std::optional<TKeyRow> row;
    try {
        row = settled();
    } catch (const Exception &) {
        storeNothing(field);
        moveTo(0);
        throw;
    }
    try {
        store(field, row);
    } catch (const Exception &) {
        moveTo(field.AsFloat());
        throw;
    }
}

void TKeyEdit::store(TField &field, const std::optional<TKeyRow> &row)
{
    if (row)
        field.setValue(row->key);
    else
        field.Clear();
}

// OnChange may refuse the row: its value is the former one then, and its text stays as with a column.
void TKeyEdit::commitUnbound()
{
    const QString text = line()->text();
    const bool isChosen = chosen().has_value();
    std::optional<TKeyRow> row;
    try {
        row = settled();
        setValue(row ? row->key : 0);
    } catch (const Exception &error) {
        line()->setText(row && isChosen ? row->code : text);
        changedByUser();
        markInvalid(error.message());
        if (!row) {
            ownValue = 0;
            moveTo(0);
        }
        throw;
    }
}

// --- showing

void TKeyEdit::showField(TField *field)
{
    if (instead > 0)
        showRow(instead);
    else if (DataSet())
        showRow(field ? field->AsFloat() : 0);
    else
        showRow(ownValue);
}

void TKeyEdit::showInstead(double key)
{
    if (key == instead)
        return;
    instead = key;
    restore();
}

bool TKeyEdit::showsValue() const
{
    if (gone || !invalidReason().isEmpty())
        return false;
    if (pending())
        return chosen() ? *chosen() > 0 : !line()->text().trimmed().isEmpty();
    return DataSet() && instead == 0 ? TDBControl::showsValue() : current > 0;
}

void TKeyEdit::showRow(double wanted)
{
    if (wanted != shownKey) {
        shown = wanted > 0 ? rowOf(wanted) : std::nullopt;
        shownKey = wanted;
    }
    gone = wanted > 0 && !shown;
    showText(shown ? shown->code : QString());
    if (invalidReason().isEmpty())
        TInvalidMark::put(line(), gone ? words.gone : QString());
    showNote();
    moveTo(shown ? shown->key : 0);
}

void TKeyEdit::showNote()
{
    const bool wrong = gone || !invalidReason().isEmpty();
    if (!invalidReason().isEmpty())
        note->setText(invalidReason());
    else if (gone)
        note->setText(words.gone);
    else
        note->setText(pending() || !shown ? QString() : shown->name);
    note->setToolTip(note->text());
    note->setVisible(typingSearches() || !note->text().isEmpty());
    QPalette colors;
    if (wrong)
        colors.setColor(QPalette::WindowText, wrongColor);
    note->setPalette(colors);
}

void TKeyEdit::moveTo(double newKey)
{
    if (newKey == current)
        return;
    const double before = current;
    current = newKey;
    try {
        heard();
    } catch (...) {
        current = before;
        throw;
    }
    emit changed();
}

void TKeyEdit::markInvalid(const QString &why)
{
    TSearchEdit::markInvalid(why);
    showNote();
    if (!why.isEmpty())
        tellEdited();
}

// A control without a column belongs to the screen. What was read is read anew with the record.
void TKeyEdit::setEditable(bool on)
{
    shownKey.reset();
    if (DataSet())
        TSearchEdit::setEditable(on && instead == 0);
}
