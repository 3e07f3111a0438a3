#include "toolkit/widgets/lithuanian.h"

#include "toolkit/widgets/lithuanian_words.h"

#include <QCoreApplication>
#include <QHash>
#include <QLibraryInfo>
#include <QLocale>

namespace {

const QHash<QByteArrayView, QString> &dictionary()
{
    static const QHash<QByteArrayView, QString> words = [] {
        QHash<QByteArrayView, QString> result;
        for (const TLithuanianWord &word : lithuanianWords())
            result.insert(QByteArrayView(word.english), QString::fromUtf8(word.lithuanian));
        return result;
    }();
    return words;
}

// The same text may stand with an accelerator elsewhere than the table has it.
QByteArray withoutAccelerator(QByteArrayView text)
{
    QByteArray plain = text.toByteArray();
    plain.replace('&', "");
    return plain;
}

// Paper is called by its size; only the words around it are translated: "Envelope C5" is "Vokas C5".
QString paperName(const char *english)
{
    static constexpr std::pair<const char *, const char *> parts[] = {
        {"Double Postcard", "Dvigubas atvirukas"},
        {"Postcard", "Atvirukas"},
        {"Envelope", "Vokas"},
        {"Personal", "asmeninis"},
        {"Invite", "kvietimo"},
        {"Italian", "itališkas"},
        {"Small", "(mažas)"},
        {"Extra", "(padidintas)"},
        {"Plus", "(pailgintas)"},
        {"Big", "(didelis)"},
    };
    QString name = QString::fromUtf8(english);
    for (const auto &[word, lithuanian] : parts)
        name.replace(QLatin1String(word), QString::fromUtf8(lithuanian));
    return name;
}

} // namespace

QString TLithuanianTranslator::translate(const char *context, const char *sourceText,
                                         const char *disambiguation, int n) const
{
    if (!sourceText)
        return {};
    const auto &words = dictionary();
    if (const auto found = words.constFind(QByteArrayView(sourceText)); found != words.constEnd())
        return *found;
    if (qstrcmp(context, "QPageSize") == 0)
        return paperName(sourceText);
    // Words installed beside Qt, for the dialogs that are rarely seen.
    QString installed = QTranslator::translate(context, sourceText, disambiguation, n);
    if (!installed.isEmpty())
        return installed;
    const QByteArray plain = withoutAccelerator(sourceText);
    const auto found = words.constFind(QByteArrayView(plain));
    return found != words.constEnd() ? *found : QString();
}

void speakLithuanian(QCoreApplication *application)
{
    QLocale::setDefault(QLocale(QLocale::Lithuanian, QLocale::Lithuania));
    auto *translator = new TLithuanianTranslator(application);
    // Its absence is no failure: the table has every text that the screens show.
    [[maybe_unused]] const bool loaded =
        translator->load(QStringLiteral("qt_lt"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    QCoreApplication::installTranslator(translator);
}

QString plainCaption(const QString &caption)
{
    QString plain;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size())
            break;
        plain += caption[i];
    }
    while (plain.endsWith(u':'))
        plain.chop(1);
    return plain;
}
