#include "database/tool/keeping/keeper.h"

#include "database/demo/demo.h"
#include "database/history.h"
#include "database/schema.h"
#include "database/seals.h"
#include "database/tool/keeping/new_books.h"
#include "toolkit/data/statement.h"
#include "toolkit/export/table_export.h"

using namespace Qt::StringLiterals;

namespace {

TBooks readOnly(TBooks books)
{
    books.fin.readOnly = true;
    books.ravl.readOnly = true;
    return books;
}

// The columns of one of the tables that people fill, in their order.
QStringList columnsOf(TDatabase &db, const QString &table)
{
    const auto found = db.prepare(u"select column_name from syscolumn join systable on "
                                  "syscolumn.table_id = systable.table_id where table_name = :name "
                                  "order by column_id"_s);
    found->bind(u"name"_s, table);
    QStringList columns;
    for (found->exec(); found->next();)
        columns << found->value(0).toString();
    if (columns.isEmpty())
        throw EDatabaseError(u"Lentelės „%1“ biudžeto duomenų bazėje nėra."_s.arg(table));
    return columns;
}

void applySchema(TDatabase &db, Book book, const TProgress &progress)
{
    const QString title = QLatin1String(book == Book::Main ? BooksNames::fin : BooksNames::ravl);
    upgrade(db, book, [&](int number, int last) {
        progress(u"%1: redakcija %2 iš %3…"_s.arg(title).arg(number).arg(last));
    });
}

void createFilledBooks(TStore &store, const TProgress &progress,
                       const std::function<void(TOpenBooks &)> &fill)
{
    store.refuseWhenPresent();
    buildAside(store, [&] {
        TOpenBooks books(store.aside());
        applySchema(books.fin, Book::Main, progress);
        applySchema(books.ravl, Book::Budget, progress);
        fill(books);
    });
    setUpLogins(store, progress);
}

} // namespace

void createBooks(TStore &store, const TProgress &progress)
{
    createFilledBooks(store, progress, [](TOpenBooks &) {});
}

void createStandardBooks(TStore &store, const TSetUp &setUp, const TProgress &progress)
{
    createFilledBooks(store, progress, [&](TOpenBooks &books) {
        progress(u"Rašomi naujos įstaigos duomenys…"_s);
        const THistoryPause finPause(books.fin);
        const THistoryPause ravlPause(books.ravl);
        setUpBooks(books.fin, books.ravl, setUp);
    });
}

void createDemoBooks(TStore &store, int size, const TProgress &progress)
{
    createFilledBooks(store, progress,
                      [&](TOpenBooks &books) { fillDemoBooks(books.fin, books.ravl, size, progress); });
}

void upgradeBooks(TStore &store, const TProgress &progress)
{
    store.refuseWhenMissing();
    {
        TOpenBooks books(store.books());
        applySchema(books.fin, Book::Main, progress);
        applySchema(books.ravl, Book::Budget, progress);
    }
    setUpLogins(store, progress);
}

QStringList checkBooks(TStore &store, const TProgress &progress)
{
    store.refuseWhenMissing();
    TOpenBooks books(readOnly(store.books()));
    return findProblems(books.fin, books.ravl, progress);
}

void acceptBooks(TStore &store, const QString &reason, const TProgress &progress)
{
    if (reason.trimmed().isEmpty())
        throw Exception(u"Parašykite, kodėl duomenys priimami tokie, kokie yra."_s);
    for (const QString &finding : checkBooks(store, progress))
        progress(u"Rasta: "_s + finding);
    TOpenBooks books(store.books());
    for (TDatabase *db : {&books.fin, &books.ravl})
        acceptContents(*db, reason.trimmed());
}

qlonglong exportTableOf(TStore &store, const TTableChoice &choice, const QString &file,
                        const TProgress &progress)
{
    store.refuseWhenMissing();
    refuseExisting(file);
    TDatabase ravl(readOnly(store.books()).ravl);
    ravl.Open();
    const TTableExport table{choice.table, columnsOf(ravl, choice.table), choice.deletesFirst};
    progress(u"Rašoma lentelė „%1“…"_s.arg(choice.table));
    return (choice.escaped ? exportForReplay : exportTable)(ravl, table, file);
}
