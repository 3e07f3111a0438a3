#include "toolkit/widgets/db_date.h"

#include "toolkit/text/format.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"

#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLocale>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

void nameButton(const QCalendarWidget *calendar, const char *name, const QString &text)
{
    if (auto *button = calendar->findChild<QToolButton *>(QLatin1String(name))) {
        button->setAccessibleName(text);
        button->setToolTip(text);
    }
}

QCalendarWidget *makeCalendar(QWidget *parent)
{
    auto *calendar = new QCalendarWidget(parent);
    calendar->setLocale(QLocale(QLocale::Lithuanian, QLocale::Lithuania));
    calendar->setFirstDayOfWeek(Qt::Monday);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setAccessibleName(u"Kalendorius"_s);
    nameButton(calendar, "qt_calendar_prevmonth", u"Ankstesnis mėnuo"_s);
    nameButton(calendar, "qt_calendar_nextmonth", u"Kitas mėnuo"_s);
    nameButton(calendar, "qt_calendar_monthbutton", u"Mėnuo"_s);
    nameButton(calendar, "qt_calendar_yearbutton", u"Metai"_s);
    return calendar;
}

QDate typedDate(const TDateEdit *edit)
{
    try {
        return edit->date();
    } catch (const EConvertError &) {
        return {};
    }
}

} // namespace

TDateEdit::TDateEdit(QWidget *parent) : QLineEdit(parent)
{
    open = addAction(icon(TIcon::Calendar), TrailingPosition);
    open->setText(u"Pasirinkti datą"_s);
    open->setToolTip(open->text());
    connectGuarded(open, &QAction::triggered, this, &TDateEdit::showCalendar);
}

QDate TDateEdit::date() const
{
    const QString typed = text().trimmed();
    return typed.isEmpty() ? QDate() : StrToDate(typed).date();
}

void TDateEdit::setDate(QDate date)
{
    setText(date.isValid() ? DateToStr(TDateTime(date)) : QString());
}

void TDateEdit::showCalendar()
{
    if (isReadOnly())
        return;
    auto *popup = new QFrame(this, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setAccessibleName(u"Kalendorius"_s);
    auto *layout = new QVBoxLayout(popup);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *calendar = makeCalendar(popup);
    layout->addWidget(calendar);
    const QDate current = typedDate(this);
    calendar->setSelectedDate(current.isValid() ? current : Date().date());
    const auto take = [this, popup](QDate picked) {
        // Before the focus comes back: coming back shows what the column has.
        setDate(picked);
        emit chosen(picked);
        popup->close();
        setFocus(Qt::PopupFocusReason);
    };
    connectGuarded(calendar, &QCalendarWidget::clicked, this, take);
    connectGuarded(calendar, &QCalendarWidget::activated, this, take);
    popup->move(mapToGlobal(QPoint(0, height())));
    popup->show();
    calendar->setFocus(Qt::PopupFocusReason);
}

void TDateEdit::step(int days)
{
    const QDate current = typedDate(this);
    const QDate next = current.isValid() ? current.addDays(days) : Date().date();
    setDate(next);
    emit chosen(next);
}

void TDateEdit::keyPressEvent(QKeyEvent *event)
{
    const bool opens =
        event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier);
    if (opens)
        runGuarded(this, [this] { showCalendar(); });
    else if (!isReadOnly() && event->key() == Qt::Key_Up)
        runGuarded(this, [this] { step(1); });
    else if (!isReadOnly() && event->key() == Qt::Key_Down)
        runGuarded(this, [this] { step(-1); });
    else
        QLineEdit::keyPressEvent(event);
}

TDBDateTimePicker::TDBDateTimePicker(QWidget *parent) : TDateEdit(parent), TDBControl(this)
{
    setReadOnly(true);
    connect(this, &QLineEdit::textEdited, this, [this] { changedByUser(); });
    connect(this, &TDateEdit::chosen, this, [this] { chosenByUser(); });
}

void TDBDateTimePicker::showField(TField *field)
{
    setDate(field && !field->IsNull() ? field->AsDate() : QDate());
}

void TDBDateTimePicker::storeField(TField &field)
{
    field.setEditText(text().trimmed());
}

void TDBDateTimePicker::setEditable(bool on)
{
    setReadOnly(!on);
}
