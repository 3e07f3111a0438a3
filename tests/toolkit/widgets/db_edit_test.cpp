#include "tests/toolkit/widgets/window_fixture.h"
#include "toolkit/widgets/db_edit.h"

#include <QLabel>

namespace {

class DbEdit : public InWindow {
protected:
    TDBEdit *edit(const QString &column)
    {
        auto *made = add<TDBEdit>();
        made->bind(set.get(), column);
        return made;
    }
};

} // namespace

TEST_F(DbEdit, ShowsTheDisplayTextAndFollowsTheCursor)
{
    TDBEdit *sum = edit(u"pre_suma"_s);
    TDBEdit *name = edit(u"PRE_PAVAD"_s);
    EXPECT_EQ(sum->text(), u"12.50"_s);
    EXPECT_TRUE(sum->alignment() & Qt::AlignRight);
    set->Next();
    EXPECT_EQ(sum->text(), u"0.01"_s);
    EXPECT_EQ(name->text(), u"Bulvės"_s);
    set->Next();
    EXPECT_EQ(sum->text(), QString());
}

TEST_F(DbEdit, TakesNothingWhileItIsBoundToNothing)
{
    EXPECT_TRUE(add<TDBEdit>()->isReadOnly());
    EXPECT_TRUE(add<TDBMemo>()->isReadOnly());
}

TEST_F(DbEdit, IsReadOnlyUnlessTheSetIsBeingEdited)
{
    TDBEdit *name = edit(u"pre_pavad"_s);
    show(name);
    EXPECT_TRUE(name->isReadOnly());
    typeLetters(name, u"x"_s);
    EXPECT_EQ(name->text(), u"Agurkai"_s);
    set->Edit();
    EXPECT_FALSE(name->isReadOnly());
    set->Cancel();
    EXPECT_TRUE(name->isReadOnly());
}

TEST_F(DbEdit, ShowsTheTextToTypeInWhileItHasTheFocus)
{
    TDBEdit *name = edit(u"pre_pavad"_s);
    TDBEdit *sum = edit(u"pre_suma"_s);
    set->Next();
    set->Edit();
    show(name);
    EXPECT_EQ(sum->text(), u"0.01"_s);
    sum->setFocus();
    EXPECT_EQ(sum->text(), u"0.0051"_s);
    name->setFocus();
    EXPECT_EQ(sum->text(), u"0.01"_s);
}

TEST_F(DbEdit, LeavingCommitsWhatWasTyped)
{
    TDBEdit *sum = edit(u"pre_suma"_s);
    edit(u"pre_pavad"_s);
    show(sum);
    set->Edit();
    typeOver(sum, u"1 000,55"_s);
    EXPECT_EQ(set->FieldByName(u"pre_suma"_s)->AsFloat(), 12.5);
    leave(sum);
    EXPECT_EQ(set->FieldByName(u"pre_suma"_s)->AsFloat(), 1000.55);
    EXPECT_EQ(sum->text(), u"1000.55"_s);
}

TEST_F(DbEdit, PostTakesTheTextThatIsStillBeingTyped)
{
    TDBEdit *name = edit(u"pre_pavad"_s);
    show(name);
    set->Edit();
    typeOver(name, u"Žirniai"_s);
    set->Post();
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Žirniai"_s);
    EXPECT_FALSE(name->pending());
}

TEST_F(DbEdit, ARefusedTextStaysAndWearsItsReason)
{
    TDBEdit *sum = edit(u"pre_suma"_s);
    TDBEdit *name = edit(u"pre_pavad"_s);
    sum->setToolTip(u"suma"_s);
    show(sum);
    set->Edit();
    typeOver(sum, u"abc"_s);
    leave(sum);
    EXPECT_TRUE(name->hasFocus());
    EXPECT_EQ(sum->text(), u"abc"_s);
    EXPECT_TRUE(sum->pending());
    EXPECT_TRUE(sum->toolTip().contains(u"Suma") && sum->toolTip().contains(u"abc")) << str(sum->toolTip());
    EXPECT_EQ(sum->accessibleDescription(), sum->toolTip());
    EXPECT_THROW(set->Post(), EFieldRefused);
    EXPECT_EQ(set->State(), dsEdit);
    typeOver(sum, u"7"_s);
    EXPECT_EQ(sum->toolTip(), u"suma"_s);
    set->Post();
    EXPECT_EQ(stored(u"pre_suma"_s).toDouble(), 7.0);
}

TEST_F(DbEdit, EscBringsBackTheValueFirstAndGoesOnAfterwards)
{
    TDBEdit *name = edit(u"pre_pavad"_s);
    show(name);
    set->Edit();
    typeOver(name, u"kita"_s);
    QTest::keyClick(name, Qt::Key_Escape);
    EXPECT_EQ(name->text(), u"Agurkai"_s);
    EXPECT_FALSE(name->pending());
    EXPECT_FALSE(set->Modified());
}

TEST_F(DbEdit, ALongPasteIsRefusedAndNotCutOff)
{
    TDBEdit *code = edit(u"pre_kodas"_s);
    show(code);
    set->Edit();
    typeOver(code, u"12345"_s);
    typeLetters(code, u"6"_s);
    EXPECT_EQ(code->text(), u"12345"_s);
    code->clear();
    code->insert(u"1234567"_s);
    EXPECT_EQ(code->text(), QString());
}

TEST_F(DbEdit, OptionsOfTyping)
{
    TDBEdit *code = edit(u"pre_kodas"_s);
    show(code);
    set->Edit();
    code->setOptions({.upperCase = true});
    typeOver(code, u"ąž1"_s);
    EXPECT_EQ(code->text(), u"ĄŽ1"_s);
    code->setOptions({.maxLength = 3, .allowed = TEditOptions::Digits});
    typeOver(code, u"1a-2 34"_s);
    EXPECT_EQ(code->text(), u"123"_s);
    code->setOptions({.allowed = TEditOptions::LettersAndDigits});
    typeOver(code, u"a-/9"_s);
    EXPECT_EQ(code->text(), u"a9"_s);
}

TEST_F(DbEdit, AMaskGuidesTheDateAndAnEmptyOneIsNull)
{
    TDBEdit *date = edit(u"pre_data"_s);
    date->setOptions({.mask = u"!9999/99/00;1;_"_s});
    show(date);
    set->Edit();
    EXPECT_EQ(date->text(), u"2005.06.07"_s);
    date->selectAll();
    typeLetters(date, u"20061231"_s);
    date->commit();
    EXPECT_EQ(set->FieldByName(u"pre_data"_s)->AsDate(), QDate(2006, 12, 31));
    date->selectAll();
    QTest::keyClick(date, Qt::Key_Delete);
    date->commit();
    EXPECT_TRUE(set->FieldByName(u"pre_data"_s)->IsNull());
}

TEST_F(DbEdit, ACharacterOutsideTheCodePageIsRefusedInWords)
{
    TDBEdit *name = edit(u"pre_pavad"_s);
    show(name);
    set->Edit();
    name->selectAll();
    name->insert(u"Жуки"_s);
    emit name->textEdited(name->text());
    EXPECT_THROW(set->Post(), EFieldRefused);
    EXPECT_TRUE(name->invalidReason().contains(u"Ж")) << str(name->invalidReason());
}

TEST_F(DbEdit, ControlsOfOneColumnShowTheSame)
{
    TDBEdit *name = edit(u"pre_pavad"_s);
    TDBEdit *again = edit(u"pre_pavad"_s);
    auto *shown = add<TDBText>();
    shown->bind(set.get(), u"pre_pavad"_s);
    show(name);
    set->Edit();
    typeOver(name, u"<i>x</i>"_s);
    name->commit();
    EXPECT_EQ(again->text(), u"<i>x</i>"_s);
    EXPECT_EQ(shown->text(), u"<i>x</i>"_s);
    EXPECT_EQ(shown->textFormat(), Qt::PlainText);
}

TEST_F(DbEdit, AClosedSetShowsNothingAndADestroyedOneDoesNoHarm)
{
    TDBEdit *name = edit(u"pre_pavad"_s);
    set->Close();
    EXPECT_EQ(name->text(), QString());
    set->Open();
    EXPECT_EQ(name->text(), u"Agurkai"_s);
    set.reset();
    EXPECT_EQ(name->Field(), nullptr);
    show(name);
    typeLetters(name, u"x"_s);
}

TEST_F(DbEdit, AnAlwaysReadOnlyControlStaysSo)
{
    TDBEdit *name = edit(u"pre_pavad"_s);
    name->setAlwaysReadOnly(true);
    set->Edit();
    EXPECT_TRUE(name->isReadOnly());
    EXPECT_FALSE(name->canEdit());
}
