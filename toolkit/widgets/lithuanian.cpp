#include "toolkit/widgets/lithuanian.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

void speakLithuanian(QCoreApplication *application)
{
    QLocale::setDefault(QLocale(QLocale::Lithuanian, QLocale::Lithuania));
    auto *translator = new QTranslator(application);
    [[maybe_unused]] const bool loaded = translator->load(u":/i18n/qt_lt.qm"_s);
    Q_ASSERT_X(loaded, "speakLithuanian", "the catalogue is not in the library");
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
