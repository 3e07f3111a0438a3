#pragma once

#include "src/frame/host_services.h"
#include "src/frame/registry.h"

// How the parts of the registry word their entries. The name of an entry that is a class is that of the
// class.

template<class Screen> QString classNameOf()
{
    return QString::fromLatin1(Screen::staticMetaObject.className()).section(QStringLiteral("::"), -1);
}

// A list screen that stands in a menu.
template<class Form>
TPackageEntry listScreen(const TUnit &unit, const QStringList &menu, const QString &caption, int help)
{
    return {.name = classNameOf<Form>(),
            .unit = unit.name,
            .kind = TPackageEntry::Kind::ListScreen,
            .menu = menu,
            .caption = caption,
            .help = help,
            .create = [](QWidget *owner) -> QWidget * { return createForm<Form>(owner); }};
}

// A dialog that the host creates by class.
template<class Dialog>
TPackageEntry dialog(const TUnit &unit, const QStringList &menu, const QString &caption, int help)
{
    return {.name = classNameOf<Dialog>(),
            .unit = unit.name,
            .kind = TPackageEntry::Kind::Dialog,
            .menu = menu,
            .caption = caption,
            .help = help,
            .create = [](QWidget *owner) -> QWidget * { return new Dialog(owner); }};
}

// An entry function without arguments.
TPackageEntry function(const char *name, const TUnit &unit, const QStringList &menu, const QString &caption,
                       int help, void (*call)());

// An editor; call opens it on the first row of the books.
TPackageEntry editor(const char *name, const TUnit &unit, int help, const std::function<void()> &call);

// The same of an editor that stands on the row of its list: the list is opened for it.
template<class Form> TPackageEntry editorInList(const char *name, const TUnit &unit, int help)
{
    return editor(name, unit, help, [] {
        const std::unique_ptr<Form> list(createForm<Form>(nullptr));
        list->EditBtnClick();
    });
}

// The entry can do nothing but write.
TPackageEntry onlyWrites(TPackageEntry entry);

// The lowest key of a table: that of the row on which an editor is opened.
double firstKey(TSession session, const char *table, const char *key);
// The same of a key that is a text.
AnsiString firstCode(const char *table, const char *key);

// The parts, each with its screens in the order of the menus and then its editors.
TPackageEntries periodEntries();
TPackageEntries balanceEntries();
TPackageEntries estimateEntries();
TPackageEntries accountsEntries();
TPackageEntries debtorEntries();
TPackageEntries peopleEntries();
TPackageEntries moneyEntries();
TPackageEntries departmentEntries();
TPackageEntries assetEntries();
TPackageEntries catalogueEntries();
TPackageEntries userEntries();
TPackageEntries organisationEntries();
TPackageEntries exportEntries();

namespace Menu {
inline const QString periods = QStringLiteral("Pe&riodas");
inline const QString balances = QStringLiteral("Li&kučiai");
inline const QString estimates = QStringLiteral("&Sąmatos");
inline const QString accounts = QStringLiteral("Sąsk&aitos");
inline const QString catalogues = QStringLiteral("&Žinynai");
} // namespace Menu
