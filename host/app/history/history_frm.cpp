#include "host/app/history/history_frm.h"

#include "host/app/table_names.h"
#include "toolkit/text/datetime.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/guard.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int helpTopic = 126;
constexpr int dayEnd = 10; // of yyyy-mm-dd hh:mm:ss.zzz
constexpr int secondsEnd = 19;
const QString nobody = u"-"_s; // no login is called so

TBrowseDescription historyList(const QString &caption, TSession session)
{
    return {
        .name = u"THistoryFrm"_s,
        .caption = caption,
        .help = helpTopic,
        .session = session,
        .keyColumn = u"IST_ID"_s,
        .columns = {{u"IST_LAIKAS"_s, u"Laikas"_s, 140},
                    {u"IST_LOGIN"_s, u"Asmuo"_s, 100},
                    {u"IST_STOTIS"_s, u"Kompiuteris"_s, 100},
                    {.field = u"IST_LENTELE"_s,
                     .title = u"Sąrašas"_s,
                     .width = 170,
                     .text = [](const Variant &name) { return tableName(name.toString()); }},
                    {u"IST_RAKTAS"_s, u"Eilutė"_s, 160},
                    {.field = u"IST_VEIKSMAS"_s,
                     .title = u"Veiksmas"_s,
                     .width = 80,
                     .text = [](const Variant &sign) { return THistoryWords::operation(sign.toString()); }},
                    {u"IST_YRA"_s, u"Kas pakeista"_s, 420}},
        .titleOrder = false,
        .editing = TEditing::Never};
}

// One by one through the index: the persons are few, their records many.
QStringList personsIn(TDatabase &book)
{
    QStringList names;
    for (QString last;;) {
        last = book.fieldResult(u"select min(ist_login) from bd_istorija where ist_login > :po"_s,
                                {{u"po"_s, last}})
                   .toString();
        if (last.isEmpty())
            return names;
        names.append(last);
    }
}

// Today, or the day of the newest record where the clock was set back since.
QDate lastDay(TDatabase &book)
{
    const QString newest = book.fieldResult(u"select max(ist_laikas) from bd_istorija"_s).toString();
    const QDate today = Date().date();
    return qMax(today, QDate::fromString(newest.first(qMin(dayEnd, int(newest.size()))), Qt::ISODate));
}

QString equals(const QString &column, const QString &value)
{
    return u"%1 = %2"_s.arg(column, TDatabase::quoted(value));
}

QString dayText(const QDate &day)
{
    return TDatabase::quoted(day.toString(Qt::ISODate));
}

} // namespace

THistoryFrm::THistoryFrm(QWidget *owner)
    : TBrowseFrm(historyList(u"Pakeitimų istorija"_s, TSession::Main), owner)
{
    addChoices();
}

THistoryFrm::THistoryFrm(QWidget *owner, const TRowOfHistory &aRow)
    : TBrowseFrm(historyList(u"Pakeitimų istorija: "_s + aRow.caption, aRow.session), owner),
      row(aRow)
{
}

void THistoryFrm::FormCreate()
{
    description.prepare = [this](TQuery &query) { showInWords(query); };
    bookChosen();
    TBrowseFrm::FormCreate();
}

// --- what is shown

void THistoryFrm::addChoices()
{
    books = addChoice(u"BookBox"_s, u"Kn&ygos:"_s);
    books->addItem(u"Apskaitos"_s);
    books->addItem(u"Biudžeto"_s);
    tables = addChoice(u"TableBox"_s, u"Sąra&šas:"_s);
    tables->setMaximumWidth(190);
    persons = addChoice(u"PersonBox"_s, u"As&muo:"_s);
    const QDate today = Date().date();
    from = addDay(u"FromEdit"_s, u"N&uo:"_s, today.addMonths(-1));
    to = addDay(u"ToEdit"_s, u"Ik&i:"_s, lastDay(*Database()));
    connectGuarded(books, &QComboBox::activated, this, [this] {
        bookChosen();
        RefreshData({});
    });
}

QComboBox *THistoryFrm::addChoice(const QString &name, const QString &label)
{
    auto *box = new QComboBox;
    box->setObjectName(name);
    addToToolBar(label, box);
    connectGuarded(box, &QComboBox::activated, this, [this, box] {
        if (box != books)
            RefreshData({});
    });
    return box;
}

QDateEdit *THistoryFrm::addDay(const QString &name, const QString &label, const QDate &day)
{
    auto *edit = new QDateEdit(day);
    edit->setObjectName(name);
    edit->setDisplayFormat(u"yyyy.MM.dd"_s);
    edit->setCalendarPopup(true);
    edit->setKeyboardTracking(false);
    addToToolBar(label, edit);
    connectGuarded(edit, &QDateEdit::dateChanged, this, [this] { RefreshData({}); });
    return edit;
}

void THistoryFrm::bookChosen()
{
    if (books)
        description.session = books->currentIndex() == 0 ? TSession::Main : TSession::Budget;
    dataSet()->Close();
    dataSet()->setDatabase(Database());
    words = std::make_unique<THistoryWords>(Database());
    if (books)
        fillChoices();
}

void THistoryFrm::fillChoices()
{
    tables->clear();
    tables->addItem(u"Visi"_s);
    for (const auto &[name, caption] : words->tables())
        tables->addItem(caption, name);
    persons->clear();
    persons->addItem(u"Visi"_s);
    for (const QString &name : personsIn(*Database()))
        persons->addItem(name, name);
    persons->addItem(u"Kita programa"_s, nobody);
}

QString THistoryFrm::condition() const
{
    if (row)
        return equals(u"ist_lentele"_s, row->table) + u" and "_s + equals(u"ist_raktas"_s, row->key);
    QStringList parts{u"ist_laikas >= "_s + dayText(from->date()),
                      u"ist_laikas < "_s + dayText(to->date().addDays(1))};
    const QString table = tables->currentData().toString();
    const QString person = persons->currentData().toString();
    if (!table.isEmpty())
        parts.append(equals(u"ist_lentele"_s, table));
    if (!person.isEmpty())
        parts.append(person == nobody ? u"ist_login is null"_s : equals(u"ist_login"_s, person));
    return parts.join(u" and "_s);
}

void THistoryFrm::RefreshData(const Variant &key)
{
    words->forget();
    description.sql =
        u"select ist_id, ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_buvo, "
        "ist_yra from bd_istorija where %1 order by %2"_s.arg(
            condition(), row ? u"ist_id desc"_s : u"ist_laikas desc, ist_id desc"_s);
    TBrowseFrm::RefreshData(key);
}

void THistoryFrm::showInWords(TQuery &query)
{
    const auto text = [](const TField &field, const QString &name) {
        return field.DataSet()->FieldByName(name)->AsString();
    };
    query.describe(u"IST_RAKTAS"_s, [this, text](TField &field) {
        field.OnGetText = [this, text](TField &shown) {
            return words->row(text(shown, u"IST_LENTELE"_s), text(shown, u"IST_RAKTAS"_s));
        };
    });
    query.describe(u"IST_YRA"_s, [this, text](TField &field) {
        field.OnGetText = [this, text](TField &shown) {
            return words->changes(text(shown, u"IST_LENTELE"_s), text(shown, u"IST_BUVO"_s),
                                  text(shown, u"IST_YRA"_s));
        };
    });
    query.describe(u"IST_LAIKAS"_s, [](TField &field) {
        field.OnGetText = [](TField &shown) {
            return shown.AsString().left(secondsEnd).replace(u'-', FormatSettings().DateSeparator);
        };
    });
    query.describe(u"IST_LOGIN"_s, [text](TField &field) {
        field.OnGetText = [text](TField &shown) {
            if (!shown.IsNull())
                return shown.AsString();
            return text(shown, u"IST_LENTELE"_s) == u"bd_antspaudai" ? u"Programa"_s : u"Kita programa"_s;
        };
    });
}

void showHistoryOfRow(const TRowOfHistory &row)
{
    createForm<THistoryFrm>(QApplication::activeWindow(), row)->ShowModal();
}
