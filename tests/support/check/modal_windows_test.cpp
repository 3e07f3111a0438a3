#include "tests/support/message_box.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
int ask(QMessageBox::Icon icon, const QString &text, QMessageBox::StandardButtons buttons)
{
    QMessageBox box(icon, u"Velmora"_s, text, buttons);
    return box.exec();
}

// A dialog that asks before it closes.
class NameDialog : public QDialog {
public:
    NameDialog()
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(&edit);
        layout->addWidget(&ok);
        connect(&ok, &QPushButton::clicked, this, [this] {
            if (ask(QMessageBox::Question, u"Ar tikrai?"_s, QMessageBox::Yes | QMessageBox::No) ==
                QMessageBox::Yes)
                accept();
        });
    }
    QLineEdit edit{u"senas"_s};
    QPushButton ok{u"&Taip"_s};
};

void askTwice()
{
    NextBoxes one{QMessageBox::Ok};
    ask(QMessageBox::Warning, u"pirmas"_s, QMessageBox::Ok);
    ask(QMessageBox::Warning, u"antras"_s, QMessageBox::Ok);
}

void expectTooMuch()
{
    NextBoxes two{QMessageBox::Ok, QMessageBox::Ok};
    ask(QMessageBox::Warning, u"vienintelis"_s, QMessageBox::Ok);
}

void pressWhatIsNotThere()
{
    NextBoxes box{QMessageBox::Yes};
    ask(QMessageBox::Information, u"tik gerai"_s, QMessageBox::Ok);
}
} // namespace

TEST(ModalWindows, BoxIsRecordedAndTheGivenButtonPressed)
{
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Cancel, QMessageBox::Ok};
    EXPECT_EQ(ask(QMessageBox::Question, u"Ištrinti?"_s, QMessageBox::Yes | QMessageBox::No),
              QMessageBox::Yes);
    EXPECT_EQ(
        ask(QMessageBox::Question, u"Išsaugoti?"_s, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel),
        QMessageBox::Cancel);
    ask(QMessageBox::Critical, u"Klaida"_s, QMessageBox::Ok);
    EXPECT_EQ(boxes.texts(), QStringList({u"Ištrinti?"_s, u"Išsaugoti?"_s, u"Klaida"_s}));
    EXPECT_EQ(boxes.at(0).kind, 18);
    EXPECT_EQ(boxes.at(1).kind, 99);
    EXPECT_EQ(boxes.at(2).kind, 81);
    EXPECT_EQ(boxes.at(0).buttons.size(), 2);
}

TEST(ModalWindows, DialogIsFilledInAndItsOwnQuestionAnswered)
{
    NameDialog dialog;
    QString question;
    OnNextDialog<NameDialog> answer([&question](NameDialog &shown) {
        NextBoxes inner{QMessageBox::Yes};
        type(&shown.edit, u"naujas"_s);
        pressButton(shown, u"Taip"_s);
        question = inner.at(0).text;
    });
    NextBoxes outer{QMessageBox::Ok};
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(outer.count(), 0);
    ask(QMessageBox::Information, u"Baigta"_s, QMessageBox::Ok);
    EXPECT_EQ(dialog.edit.text(), u"naujas"_s);
    EXPECT_EQ(question, u"Ar tikrai?"_s);
    EXPECT_EQ(outer.texts(), QStringList{u"Baigta"_s});
}

TEST(ModalWindows, UnexpectedMissingAndWrongBoxesFailTheTest)
{
    EXPECT_NONFATAL_FAILURE(askTwice(), "nobody expects");
    EXPECT_NONFATAL_FAILURE(expectTooMuch(), "fewer message boxes");
    EXPECT_NONFATAL_FAILURE(pressWhatIsNotThere(), "no such button");
}

TEST(Isolation, SettingsOfThePersonAreNotTouched)
{
    const QSettings settings(u"Velmora"_s, u"Velmora"_s);
    EXPECT_FALSE(settings.fileName().startsWith(QDir::homePath() + u"/.config"_s));
}
