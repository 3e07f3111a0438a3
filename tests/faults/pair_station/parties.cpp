#include "database/history.h"
#include "host/data/main_datas.h"
#include "host/data/sas_edit.h"
#include "src/debtors/Chdbkr.h"
#include "tests/faults/pair_station/work.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int pauseMs = 5;

void write(QLineEdit *line, const QString &text)
{
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, text);
}

// Somebody who types a counterparty, saves, reads what is told and saves again.
class Bookkeeper : public QObject {
public:
    explicit Bookkeeper(QString theName) : name(std::move(theName)) { lookAgain(); }

private:
    // Each look is a call of its own: what it presses may open a window with a loop of its own. What is typed
    // may ask the server, which may be gone.
    void lookAgain()
    {
        QTimer::singleShot(pauseMs, this, [this] {
            lookAgain();
            try {
                look();
            } catch (const Exception &error) {
                told("klaida", error.message());
            }
        });
    }

    void look()
    {
        QWidget *window = QApplication::activeModalWidget();
        if (auto *box = qobject_cast<QMessageBox *>(window))
            read(*box);
        else if (auto *editor = dynamic_cast<Chdbkr::TEditDbKrDlg *>(window))
            workIn(*editor);
    }

    void read(QMessageBox &box)
    {
        told("klaida", box.text());
        // The save before it did reach the books, though its answer was lost.
        exists = exists || box.text().startsWith(u"Toks įrašas jau yra"_s);
        box.done(QMessageBox::Ok);
    }

    void workIn(Chdbkr::TEditDbKrDlg &editor)
    {
        if (exists) {
            editor.reject();
            return;
        }
        auto *code = editor.findChild<QLineEdit *>(u"DKA_KOD"_s);
        auto *title = editor.findChild<QLineEdit *>(u"DKA_PAVAD"_s);
        if (!typed) {
            write(title, name);
            write(code, name);
            editor.findChild<TSasEdit *>(u"DKA_SASID"_s)->setValue(1);
            typed = true;
        }
        if (code->text() != name || title->text() != name)
            told("dingo", name);
        for (auto *button : editor.findChildren<QAbstractButton *>()) {
            if (button->text().remove(u'&') == u"Išsaugoti" && button->isEnabled())
                return button->click();
        }
    }

    const QString name;
    bool typed = false;
    bool exists = false;
};

} // namespace

Parties::Parties(const TBooks &theBooks) : books(theBooks) {}

Parties::~Parties()
{
    setMainDatas(nullptr);
}

QString Parties::save(const QString &name)
{
    if (!MainDatas()) {
        auto datas = std::make_unique<TMainDatas>(books.fin, books.ravl);
        datas->Open();
        keepHistory(*datas->mnFin_Db(), {u"parties"_s, u"stotis"_s});
        setMainDatas(std::move(datas));
    }
    const Bookkeeper bookkeeper(name);
    double id = 0;
    return Chdbkr::EditDbKr(AnsiString(u"Naujas"_s), true, id) ? name : QString();
}
