#pragma once

#include "toolkit/sql/text_kind.h"
#include "toolkit/sql/translator.h"

#include <QSet>

#include <string>

// A catalogue as a session has it, made of the columns that the tests name.
class SampleCatalog : public SqlCatalog {
public:
    ColumnKind kindOf(const QString &column) const override
    {
        const QString name = column.toLower();
        if (dates.contains(name))
            return ColumnKind::Date;
        if (!prefixes.contains(name.section(u'_', 0, 0)) || !name.contains(u'_'))
            return name == u"kla_kodas" ? ColumnKind::Number : ColumnKind::Unknown;
        const QString part = name.section(u'_', 1);
        const bool number = part.endsWith(u"id") || part.startsWith(u"sum") || part.startsWith(u"sam") ||
                            part.endsWith(u"ketv") || numbers.contains(name) || part.endsWith(u"_db") ||
                            part.endsWith(u"_kr");
        return number ? ColumnKind::Number : textKind(column);
    }

    QString joinCondition(const QString &left, const QString &right) const override
    {
        const bool known = left.toLower() == u"bd_isllik" && right.toLower() == u"bd_period";
        return known ? QStringLiteral("sml_perid = per_id") : QString();
    }

    QStringList columnNames(const QString &table) const override
    {
        if (table.toLower() != u"bd_balsas")
            return {};
        return {QStringLiteral("bss_id"), QStringLiteral("bss_balkod"), QStringLiteral("bss_sasid"),
                QStringLiteral("bss_tip")};
    }

    bool isGivenByDatabase(const QString &table, const QString &column) const override
    {
        return table.toLower() == u"bd_balsas" && column.toLower() == u"bss_id";
    }

    bool isRequired(const QString &column) const override
    {
        static const QSet<QString> required{QStringLiteral("dka_kod"), QStringLiteral("kas_pavad"),
                                            QStringLiteral("sas_sasnr")};
        return required.contains(column.toLower());
    }

    bool isRoutine(const QString &name) const override { return name.toLower() == u"knygos_kodas"; }

private:
    const QSet<QString> prefixes{
        QStringLiteral("sas"), QStringLiteral("ssl"),  QStringLiteral("sml"), QStringLiteral("dkl"),
        QStringLiteral("dka"), QStringLiteral("dks"),  QStringLiteral("pad"), QStringLiteral("per"),
        QStringLiteral("kas"), QStringLiteral("ein"),  QStringLiteral("usr"), QStringLiteral("udv"),
        QStringLiteral("kdv"), QStringLiteral("fin"),  QStringLiteral("bel"), QStringLiteral("bss"),
        QStringLiteral("opr"), QStringLiteral("osk"),  QStringLiteral("sam"), QStringLiteral("sak"),
        QStringLiteral("ats"), QStringLiteral("mat"),  QStringLiteral("prg"), QStringLiteral("trn"),
        QStringLiteral("kla"), QStringLiteral("bnk"),  QStringLiteral("sav"), QStringLiteral("lv"),
        QStringLiteral("isl"), QStringLiteral("nuom"), QStringLiteral("vkl")};
    const QSet<QString> numbers{QStringLiteral("kla_kodas"),    QStringLiteral("dka_bank_kod"),
                                QStringLiteral("ein_bank_kod"), QStringLiteral("dkl_i_kod"),
                                QStringLiteral("dka_i_kod"),    QStringLiteral("per_metai"),
                                QStringLiteral("per_menuo"),    QStringLiteral("usr_user_admin"),
                                QStringLiteral("udv_kdv"),      QStringLiteral("bnk_kodas")};
    const QSet<QString> dates{QStringLiteral("dks_nuo"), QStringLiteral("dks_iki"),
                              QStringLiteral("sak_data")};
};

// The wording of a statement for one engine.
inline std::string wording(SqlDialect dialect, const QString &statement)
{
    static const SampleCatalog catalog;
    SqlTranslator translator(dialect, catalog);
    return translator.translate(statement).text.toStdString();
}

inline std::string sqlite(const QString &statement)
{
    return wording(SqlDialect::Sqlite, statement);
}

inline std::string postgres(const QString &statement)
{
    return wording(SqlDialect::PostgreSql, statement);
}

// The message that refuses a statement; empty when it is understood.
inline std::string refusal(const QString &statement, SqlDialect dialect = SqlDialect::PostgreSql)
{
    try {
        wording(dialect, statement);
    } catch (const ESqlNotUnderstood &error) {
        return error.message().toStdString();
    }
    return {};
}
