#include "tests/support/message_box.h"
#include "toolkit/widgets/lithuanian.h"
#include "toolkit/widgets/lithuanian_words.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPageSize>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

class Lithuanian : public testing::Test {
protected:
    static void SetUpTestSuite() { QCoreApplication::installTranslator(&translator()); }
    static void TearDownTestSuite() { QCoreApplication::removeTranslator(&translator()); }
    static TLithuanianTranslator &translator()
    {
        static TLithuanianTranslator made;
        return made;
    }
};

// The texts of a window's labels, buttons and actions without accelerators.
QStringList visibleTexts(const QWidget &window)
{
    QStringList texts{window.windowTitle()};
    for (const auto *button : window.findChildren<QAbstractButton *>())
        texts << button->text() << button->toolTip();
    for (const auto *label : window.findChildren<QLabel *>())
        texts << label->text();
    for (const auto *action : window.findChildren<QAction *>())
        texts << action->text() << action->toolTip();
    QStringList plain;
    for (QString text : texts) {
        text.remove(u'&');
        if (!text.isEmpty())
            plain << text;
    }
    return plain;
}

// What the table translates from, without accelerators; words that are the same in both languages are left
// out.
QSet<QString> englishWords()
{
    QSet<QString> words;
    for (const TLithuanianWord &word : lithuanianWords()) {
        const QString english = QString::fromUtf8(word.english).remove(u'&');
        if (english != QString::fromUtf8(word.lithuanian).remove(u'&'))
            words << english;
    }
    return words;
}

void expectLithuanian(const QWidget &window)
{
    const QSet<QString> english = englishWords();
    for (const QString &text : visibleTexts(window))
        EXPECT_FALSE(english.contains(text)) << text.toStdString();
}

} // namespace

TEST_F(Lithuanian, StandardButtons)
{
    QDialogButtonBox box(QDialogButtonBox::StandardButtons(0x0fffffc00));
    QStringList texts;
    for (const QAbstractButton *button : box.buttons())
        texts << button->text().remove(u'&');
    for (const QString &wanted : {u"Gerai"_s, u"Atšaukti"_s, u"Taip"_s, u"Ne"_s, u"Išsaugoti"_s, u"Pagalba"_s,
                                  u"Užverti"_s, u"Taip viskam"_s, u"Ne viskam"_s, u"Kartoti"_s})
        EXPECT_TRUE(texts.contains(wanted)) << wanted.toStdString();
    expectLithuanian(box);
}

TEST_F(Lithuanian, TheMenuOfALineEdit)
{
    QLineEdit edit(u"tekstas"_s);
    const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
    QStringList texts;
    for (const QAction *action : menu->actions()) {
        if (!action->isSeparator())
            texts << action->text().remove(u'&').section(u'\t', 0, 0);
    }
    EXPECT_EQ(texts, QStringList({u"Atšaukti"_s, u"Grąžinti"_s, u"Iškirpti"_s, u"Kopijuoti"_s, u"Įklijuoti"_s,
                                  u"Ištrinti"_s, u"Pažymėti viską"_s}));
}

TEST_F(Lithuanian, DialogsForFilesAndPrinting)
{
    QFileDialog files;
    files.setOption(QFileDialog::DontUseNativeDialog);
    expectLithuanian(files);
    QPrintPreviewDialog preview;
    expectLithuanian(preview);
}

TEST_F(Lithuanian, WordsAreFoundWhereverTheAcceleratorStands)
{
    EXPECT_EQ(QCoreApplication::translate("Anything", "Can&cel"), u"Atšaukti"_s);
    EXPECT_EQ(QCoreApplication::translate("Anything", "Fahrvergnügen"), QString::fromUtf8("Fahrvergnügen"));
}

TEST_F(Lithuanian, PaperIsCalledByItsSize)
{
    EXPECT_EQ(QPageSize::name(QPageSize::A4), u"A4"_s);
    EXPECT_EQ(QPageSize::name(QPageSize::EnvelopeC5), u"Vokas C5"_s);
    EXPECT_EQ(QPageSize::name(QPageSize::DoublePostcard), u"Dvigubas atvirukas"_s);
}
