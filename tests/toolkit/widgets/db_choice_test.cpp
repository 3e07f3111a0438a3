#include "tests/support/clock.h"
#include "tests/toolkit/widgets/window_fixture.h"
#include "toolkit/widgets/db_choice.h"
#include "toolkit/widgets/db_combo.h"
#include "toolkit/widgets/db_date.h"
#include "toolkit/widgets/db_image.h"

#include <QBuffer>
#include <QCalendarWidget>
#include <QRadioButton>

namespace {

class DbChoice : public InWindow {
protected:
    template<typename T> T *bound(const QString &column)
    {
        T *control = add<T>();
        control->bind(set.get(), column);
        return control;
    }

    TField &field(const QString &name) { return *set->FieldByName(name); }
};

QString pictureFile(const QTemporaryDir &folder, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QString name = folder.filePath(u"ženklas.png"_s);
    EXPECT_TRUE(image.save(name));
    return name;
}

} // namespace

TEST_F(DbChoice, ACheckBoxStandsForTwoValues)
{
    auto *box = bound<TDBCheckBox>(u"pre_tip"_s);
    box->setValues(u"1"_s, u"0"_s);
    show(box);
    EXPECT_TRUE(box->isChecked());
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_TRUE(box->isChecked()) << "the set is not being edited";
    set->Edit();
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_EQ(field(u"pre_tip"_s).AsString(), u"0"_s);
    set->Post();
    EXPECT_EQ(stored(u"pre_tip"_s), u"0"_s);
    set->RecNo();
    set->Last();
    EXPECT_FALSE(box->isChecked()) << "null reads as not checked";
}

TEST_F(DbChoice, ALookupShowsTheOtherSetAndStoresItsKey)
{
    TQuery groups(db.get(), u"select grp_id, grp_pavad from grupes order by grp_id"_s);
    auto *combo = bound<TDBLookupComboBox>(u"pre_grpid"_s);
    combo->setList(&groups, u"grp_id"_s, u"grp_pavad"_s);
    show(combo);
    EXPECT_EQ(combo->count(), 3);
    EXPECT_EQ(combo->currentText(), u"Kuras"_s);
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(combo->currentText(), u"Kuras"_s) << "the set is not being edited";
    set->Edit();
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(combo->currentText(), u"Žaliavos"_s);
    EXPECT_EQ(field(u"pre_grpid"_s).AsInteger(), 3);
    QTest::keyClick(combo, Qt::Key_Delete);
    EXPECT_TRUE(field(u"pre_grpid"_s).IsNull());
    EXPECT_EQ(combo->currentIndex(), -1);
    set->Cancel();
    EXPECT_EQ(combo->currentText(), u"Kuras"_s);
}

TEST_F(DbChoice, ALookupFollowsItsListWhenThatIsReadAnew)
{
    TQuery groups(db.get(), u"select grp_id, grp_pavad from grupes order by grp_id"_s);
    auto *combo = bound<TDBLookupComboBox>(u"pre_grpid"_s);
    combo->setList(&groups, u"grp_id"_s, u"grp_pavad"_s);
    db->ExecSQL(u"insert into grupes (grp_id, grp_pavad) values (4, 'Vanduo')"_s);
    groups.Close();
    groups.Open();
    EXPECT_EQ(combo->count(), 4);
    EXPECT_EQ(combo->currentText(), u"Kuras"_s);
}

TEST_F(DbChoice, KeysMayBeTexts)
{
    auto *combo = bound<TDBLookupComboBox>(u"pre_kodas"_s);
    combo->setChoices({{u"Pirmas"_s, u"AB1"_s}, {u"Antras"_s, u"CD2"_s}});
    EXPECT_EQ(combo->currentText(), u"Pirmas"_s);
    set->Next();
    EXPECT_EQ(combo->currentText(), u"Antras"_s);
    set->Next();
    EXPECT_EQ(combo->currentIndex(), -1);
    combo->setChoices({{u"Vienas"_s, u"CD2"_s}});
    EXPECT_EQ(combo->count(), 1);
}

TEST_F(DbChoice, AnEditableListTakesItemsAndOtherTexts)
{
    auto *combo = bound<TDBComboBox>(u"pre_pavad"_s);
    combo->setItems({u"Senas"_s});
    combo->setItems({u"Agurkai"_s, u"Morkos"_s});
    EXPECT_EQ(combo->count(), 2);
    show(combo);
    EXPECT_EQ(combo->currentText(), u"Agurkai"_s);
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(combo->currentText(), u"Agurkai"_s) << "the set is not being edited";
    set->Edit();
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(field(u"pre_pavad"_s).AsString(), u"Morkos"_s);
    combo->lineEdit()->selectAll();
    typeLetters(combo->lineEdit(), u"Ropės"_s);
    set->Post();
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Ropės"_s);
}

TEST_F(DbChoice, RadioButtonsStandForValues)
{
    auto *group = bound<TDBRadioGroup>(u"pre_tip"_s);
    group->setChoices({{u"&Taip"_s, u"1"_s}, {u"&Ne"_s, u"0"_s}});
    const auto buttons = group->findChildren<QRadioButton *>();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_TRUE(buttons[0]->isChecked());
    EXPECT_FALSE(buttons[1]->isEnabled());
    set->Edit();
    buttons[1]->click();
    EXPECT_EQ(field(u"pre_tip"_s).AsString(), u"0"_s);
    set->Cancel();
    EXPECT_TRUE(buttons[0]->isChecked());
    set->Last();
    EXPECT_FALSE(buttons[0]->isChecked() || buttons[1]->isChecked());
}

TEST_F(DbChoice, ADateIsTypedClearedAndRefused)
{
    auto *date = bound<TDBDateTimePicker>(u"pre_data"_s);
    show(date);
    EXPECT_EQ(date->text(), u"2005.06.07"_s);
    set->Edit();
    typeOver(date, u"2006.02.28"_s);
    date->commit();
    EXPECT_EQ(field(u"pre_data"_s).AsDate(), QDate(2006, 2, 28));
    typeOver(date, u"2006.02.30"_s);
    EXPECT_THROW(date->commit(), EFieldRefused);
    EXPECT_EQ(date->text(), u"2006.02.30"_s);
    QTest::keyClick(date, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(date, Qt::Key_Delete);
    date->commit();
    EXPECT_TRUE(field(u"pre_data"_s).IsNull());
}

TEST_F(DbChoice, TheCalendarIsLithuanianAndGivesItsDay)
{
    auto *date = bound<TDBDateTimePicker>(u"pre_data"_s);
    show(date);
    set->Edit();
    QTest::keyClick(date, Qt::Key_Down, Qt::AltModifier);
    auto *calendar = date->findChild<QCalendarWidget *>();
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(calendar->selectedDate(), QDate(2005, 6, 7));
    EXPECT_EQ(calendar->locale().language(), QLocale::Lithuanian);
    EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Monday);
    emit calendar->activated(QDate(2005, 6, 20));
    EXPECT_EQ(field(u"pre_data"_s).AsDate(), QDate(2005, 6, 20));
    EXPECT_EQ(date->text(), u"2005.06.20"_s);
}

TEST_F(DbChoice, ArrowsStepTheDateAndStartFromTodayWhenThereIsNone)
{
    const ClockAt today(QDate(2005, 3, 1));
    auto *date = bound<TDBDateTimePicker>(u"pre_data"_s);
    show(date);
    set->Edit();
    QTest::keyClick(date, Qt::Key_Up);
    EXPECT_EQ(field(u"pre_data"_s).AsDate(), QDate(2005, 6, 8));
    field(u"pre_data"_s).Clear();
    EXPECT_EQ(date->text(), QString());
    QTest::keyClick(date, Qt::Key_Down);
    EXPECT_EQ(date->text(), u"2005.03.01"_s);
}

TEST_F(DbChoice, APictureIsLoadedShownAndCleared)
{
    auto *image = bound<TDBImage>(u"pre_zenklas"_s);
    const QString file = pictureFile(folder, QSize(40, 20));
    image->loadFromFile(file);
    EXPECT_FALSE(image->hasPicture()) << "the set is not being edited";
    set->Edit();
    image->loadFromFile(file);
    EXPECT_TRUE(image->hasPicture());
    EXPECT_EQ(image->heightForWidth(400), 20 + 2 * image->frameWidth());
    set->Post();
    EXPECT_GT(db->fieldResult(u"select pre_zenklas from prekes where pre_id = 1"_s).toByteArray().size(), 20);
    set->Next();
    EXPECT_FALSE(image->hasPicture());
    set->First();
    EXPECT_TRUE(image->hasPicture());
    set->Edit();
    image->clearPicture();
    EXPECT_TRUE(field(u"pre_zenklas"_s).IsNull());
}

TEST_F(DbChoice, AFileThatIsNoPictureIsRefused)
{
    auto *image = bound<TDBImage>(u"pre_zenklas"_s);
    QFile file(folder.filePath(u"tekstas.png"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("ne");
    file.close();
    set->Edit();
    EXPECT_THROW(image->loadFromFile(file.fileName()), EConvertError);
    EXPECT_THROW(image->loadFromFile(folder.filePath(u"nėra.png"_s)), EConvertError);
    EXPECT_FALSE(set->Modified());
}
