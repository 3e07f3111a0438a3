#include "toolkit/widgets/lithuanian.h"

#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QCommandLineParser>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTranslator>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

// Words that an English dialog cannot do without, and a Lithuanian one never has.
const QSet<QString> &englishWords()
{
    static const QString words =
        u"about advanced all and apply are be bottom byte bytes cancel cannot choose close color computer "
        "copies copy custom cut date delete details directory discard do don't down drive error file files "
        "find folder forward from go grayscale height help hide ignore is kind landscape layout left link "
        "list local location look margins maximize minimize modified move name new next no none not odd of "
        "off ok on open option options order orientation output page pages paper parent paste portrait "
        "preview previous print printer properties range redo remove rename reset restore retry reverse "
        "right save scroll select selection set settings setup show side size source stay step the this to "
        "top type undo unknown up value view was what width with yes you your zoom"_s;
    static const QStringList list = words.split(u' ');
    static const QSet<QString> set(list.begin(), list.end());
    return set;
}

// The texts of a window that a user reads or hears. Names of files are no texts of the window.
QStringList visibleTexts(const QWidget &window)
{
    QStringList texts{window.windowTitle()};
    for (const auto *each : window.findChildren<QWidget *>())
        texts << each->toolTip() << each->accessibleName() << each->accessibleDescription();
    for (const auto *button : window.findChildren<QAbstractButton *>())
        texts << button->text();
    for (const auto *label : window.findChildren<QLabel *>())
        texts << label->text();
    for (const auto *box : window.findChildren<QGroupBox *>())
        texts << box->title();
    for (const auto *action : window.findChildren<QAction *>())
        texts << action->text() << action->toolTip();
    for (const auto *edit : window.findChildren<QLineEdit *>())
        texts << edit->placeholderText();
    for (const auto *bar : window.findChildren<QTabBar *>())
        for (int tab = 0; tab < bar->count(); ++tab)
            texts << bar->tabText(tab);
    for (const auto *box : window.findChildren<QComboBox *>())
        for (int item = 0; item < box->count(); ++item)
            texts << box->itemText(item);
    for (const auto *header : window.findChildren<QHeaderView *>())
        for (int section = 0; header->model() && section < header->count(); ++section)
            texts << header->model()->headerData(section, header->orientation()).toString();
    texts.removeIf([](const QString &text) { return text.isEmpty() || text.startsWith(u'/'); });
    return texts;
}

// Those of the texts that hold an English word. Names of paper and of keys stay what they are.
QStringList englishAmong(const QStringList &texts)
{
    static const QRegularExpression apart(u"[^\\p{L}']+"_s);
    QStringList english;
    for (QString text : texts) {
        const QString plain = text.remove(u'&').section(u'\t', 0, 0);
        for (const QString &word : plain.toLower().split(apart, Qt::SkipEmptyParts))
            if (englishWords().contains(word)) {
                english << text;
                break;
            }
    }
    return english;
}

QStringList textsOf(const QMenu *menu)
{
    QStringList texts;
    for (const QAction *action : menu->actions())
        if (!action->isSeparator())
            texts << action->text().remove(u'&').section(u'\t', 0, 0);
    return texts;
}

// Every standard window that the program can show, each with its texts.
QMap<QString, QStringList> standardWindows()
{
    QMap<QString, QStringList> all;
    QMessageBox box(QMessageBox::Question, u"Klausimas"_s, u"Ar?"_s,
                    QMessageBox::StandardButtons(0x0fffffc00));
    box.setDetailedText(u"Smulkiau"_s);
    all[u"message box"_s] = visibleTexts(box);
    for (const auto mode : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave}) {
        const QTemporaryDir folder;
        QFileDialog files(nullptr, {}, folder.path());
        files.setOption(QFileDialog::DontUseNativeDialog);
        files.setAcceptMode(mode);
        all[mode == QFileDialog::AcceptOpen ? u"open"_s : u"save"_s] = visibleTexts(files);
    }
    QPrinter printer;
    QPrintDialog print(&printer);
    all[u"print"_s] = visibleTexts(print);
    QPageSetupDialog page(&printer);
    all[u"page setup"_s] = visibleTexts(page);
    QProgressDialog progress(u"Skaitoma"_s, {}, 0, 1);
    progress.setCancelButton(new QPushButton(QProgressDialog::tr("Cancel")));
    all[u"progress"_s] = visibleTexts(progress);
    QLineEdit edit(u"tekstas"_s);
    all[u"line edit"_s] = textsOf(std::unique_ptr<QMenu>(edit.createStandardContextMenu()).get());
    QTextBrowser browser;
    browser.setHtml(u"<a href='x'>nuoroda</a>"_s);
    all[u"text"_s] = textsOf(std::unique_ptr<QMenu>(browser.createStandardContextMenu()).get());
    QMdiSubWindow document;
    all[u"document"_s] = textsOf(document.systemMenu());
    return all;
}

// The program's language, for as long as it lives.
class Speaking {
public:
    Speaking() { speakLithuanian(qApp); }
    ~Speaking()
    {
        for (auto *translator : qApp->findChildren<QTranslator *>()) {
            QCoreApplication::removeTranslator(translator);
            delete translator;
        }
        QLocale::setDefault(before);
    }
    Speaking(const Speaking &) = delete;
    Speaking &operator=(const Speaking &) = delete;

private:
    QLocale before;
};

class Lithuanian : public testing::Test {
protected:
    Speaking speaking;
};

} // namespace

TEST_F(Lithuanian, NoStandardWindowHasAnEnglishWord)
{
    const auto windows = standardWindows();
    for (auto window = windows.cbegin(); window != windows.cend(); ++window)
        EXPECT_EQ(englishAmong(*window), QStringList()) << window.key().toStdString();
}

// The control: the same walk finds the English of every window that is not translated.
TEST(LithuanianWalk, FindsEnglishInEveryStandardWindow)
{
    const auto windows = standardWindows();
    for (auto window = windows.cbegin(); window != windows.cend(); ++window)
        EXPECT_FALSE(englishAmong(*window).isEmpty()) << window.key().toStdString();
}

TEST_F(Lithuanian, TheButtonsOfAQuestion)
{
    QMessageBox box;
    const auto caption = [&box](QMessageBox::StandardButton button) { return box.addButton(button)->text(); };
    EXPECT_EQ(caption(QMessageBox::Yes), u"&Taip"_s);
    EXPECT_EQ(caption(QMessageBox::No), u"&Ne"_s);
    EXPECT_EQ(plainCaption(caption(QMessageBox::Ok)), u"Gerai"_s);
    EXPECT_EQ(plainCaption(caption(QMessageBox::Cancel)), u"Atšaukti"_s);
    EXPECT_EQ(plainCaption(caption(QMessageBox::Retry)), u"Kartoti"_s);
}

TEST_F(Lithuanian, TheMenuOfALineEdit)
{
    QLineEdit edit(u"tekstas"_s);
    EXPECT_EQ(textsOf(std::unique_ptr<QMenu>(edit.createStandardContextMenu()).get()),
              QStringList({u"Atšaukti"_s, u"Grąžinti"_s, u"Iškirpti"_s, u"Kopijuoti"_s, u"Įklijuoti"_s,
                           u"Ištrinti"_s, u"Pažymėti viską"_s}));
}

TEST_F(Lithuanian, PaperIsCalledByItsSize)
{
    EXPECT_EQ(QPageSize::name(QPageSize::A4), u"A4"_s);
    EXPECT_EQ(QPageSize::name(QPageSize::EnvelopeC5), u"Vokas C5"_s);
    EXPECT_EQ(QPageSize::name(QPageSize::DoublePostcard), u"Dvigubas atvirukas"_s);
}

TEST_F(Lithuanian, AnErrorOfAFileOrOfAnOptionIsTold)
{
    QFile none(u"/tokio/aplanko/nera"_s);
    EXPECT_FALSE(none.open(QIODevice::ReadOnly));
    EXPECT_EQ(none.errorString(), u"Tokio failo ar aplanko nėra"_s);
    QCommandLineParser parser;
    EXPECT_FALSE(parser.parse({u"programa"_s, u"--kitaip"_s}));
    EXPECT_EQ(parser.errorText(), u"Nežinoma parinktis „kitaip“."_s);
}

TEST_F(Lithuanian, KeysAreCalledAsOnTheKeyboard)
{
    EXPECT_EQ(QKeySequence(Qt::CTRL | Qt::Key_Delete).toString(QKeySequence::NativeText), u"Ctrl+Del"_s);
    EXPECT_EQ(QKeySequence(Qt::ALT | Qt::Key_Space).toString(QKeySequence::NativeText), u"Alt+Tarpas"_s);
}

// What stands in the place of a name or number, and the letter under Alt, must survive the translation.
TEST(LithuanianCatalogue, KeepsPlacesAndAccelerators)
{
    static const QRegularExpression place(u"%L?[0-9n]+"_s);
    const auto placesIn = [](const QString &text) {
        QStringList places;
        for (const auto &match : place.globalMatch(text))
            places << match.captured();
        places.sort();
        return places;
    };
    const QByteArray content = contentOf(sourceFolder() + u"/toolkit/widgets/qt_lt.ts"_s);
    QXmlStreamReader catalogue(content);
    QString source;
    int messages = 0;
    while (!catalogue.atEnd()) {
        if (catalogue.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (catalogue.name() == u"source") {
            source = catalogue.readElementText();
        } else if (catalogue.name() == u"translation") {
            const QString text = catalogue.readElementText();
            ++messages;
            EXPECT_FALSE(text.isEmpty()) << source.toStdString();
            EXPECT_EQ(placesIn(text), placesIn(source)) << source.toStdString();
            EXPECT_EQ(text.count(u'&'), source.count(u'&')) << source.toStdString();
        }
    }
    EXPECT_FALSE(catalogue.hasError()) << catalogue.errorString().toStdString();
    EXPECT_GT(messages, 600);
}
