// What a row says of its column, and what the form tells of its controls.

#include "tests/toolkit/widgets/window_fixture.h"
#include "toolkit/widgets/form.h"

#include <QBuffer>
#include <QClipboard>
#include <QFileDialog>
#include <QImage>
#include <QSignalSpy>
#include <QToolButton>

namespace {

class FieldRow : public InWindow {
protected:
    // The form over the set, which is opened anew under it, as a dialog does.
    TFieldForm &make(const QList<TFieldRow> &rows)
    {
        set->Close();
        form = add<TFieldForm>(rows, set.get());
        set->Open();
        return *form;
    }
    void edit()
    {
        show();
        set->Edit();
    }
    TField &field(const QString &name) { return *set->FieldByName(name); }

    // What the field says when the control gives it this text.
    QString refusalOf(const QString &column, const QString &text)
    {
        auto *control = form->control<TDBEdit>(column);
        typeOver(control, text);
        try {
            control->commit();
        } catch (const Exception &error) {
            return error.message();
        }
        return {};
    }

    void paste(QLineEdit *edit, const QString &text)
    {
        QApplication::clipboard()->setText(text);
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
    }

    TFieldForm *form = nullptr;
};

// A composite control with a value of its own, as screens bring them along.
class Composite : public QWidget {
    Q_OBJECT
    Q_PROPERTY(double value MEMBER value NOTIFY changed USER true)
public:
    double value = 0;
signals:
    void changed();
};

QByteArray picture(QSize size, const char *format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

} // namespace

TEST_F(FieldRow, LabelsAreWhatTheRefusalsCallTheFields)
{
    make({TFieldRow::edit(u" &Kodas:"_s, u"pre_kodas"_s), TFieldRow::edit(u"Kita"_s, u"pre_suma"_s),
          TFieldRow::edit({}, u"pre_grpid"_s).named(u"Grupė"_s),
          TFieldRow::check(u"&Tinka"_s, u"pre_tip"_s)});
    EXPECT_EQ(field(u"pre_kodas"_s).label(), u"Kodas"_s);
    EXPECT_EQ(field(u"pre_suma"_s).label(), u"Suma"_s) << "the set's own word goes before the row's";
    EXPECT_EQ(field(u"pre_grpid"_s).label(), u"Grupė"_s);
    EXPECT_EQ(form->control(u"pre_grpid"_s)->accessibleName(), u"Grupė"_s);
    EXPECT_EQ(field(u"pre_tip"_s).label(), u"Tinka"_s);
    edit();
    EXPECT_TRUE(refusalOf(u"pre_grpid"_s, u"x"_s).contains(u"\"Grupė\""));
}

TEST_F(FieldRow, ARequiredTextOfBlanksIsEmpty)
{
    make({TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s).required()});
    edit();
    typeOver(form->control(u"pre_pavad"_s), u"  "_s);
    try {
        set->Post();
        ADD_FAILURE() << "a name of blanks was saved";
    } catch (const Exception &error) {
        EXPECT_EQ(error.message(), u"Laukas \"Pavadinimas\" negali būti tuščias!"_s);
    }
    set->Cancel();
}

TEST_F(FieldRow, BlanksBecomeNullWhereTheRowSaysSo)
{
    make({TFieldRow::edit(u"Kodas"_s, u"pre_kodas"_s).blankIsNull(),
          TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s), TFieldRow::edit(u"Kiekis"_s, u"pre_suma"_s)});
    edit();
    EXPECT_EQ(refusalOf(u"pre_kodas"_s, u"   "_s), QString());
    EXPECT_TRUE(field(u"pre_kodas"_s).IsNull());
    EXPECT_EQ(refusalOf(u"pre_pavad"_s, u"   "_s), QString());
    EXPECT_EQ(field(u"pre_pavad"_s).AsString(), u"   "_s) << "elsewhere a text stays as typed";
    EXPECT_EQ(refusalOf(u"pre_suma"_s, u"  "_s), QString()) << "blanks are no wrong number but none";
    EXPECT_TRUE(field(u"pre_suma"_s).IsNull());
}

TEST_F(FieldRow, MoneyHasNoPartsOfACentAndNoPowersOfTen)
{
    make({TFieldRow::edit(u"Suma"_s, u"pre_suma"_s).money()});
    edit();
    EXPECT_EQ(refusalOf(u"pre_suma"_s, u"1000,505"_s),
              u"Laukas \"Suma\" gali turėti tik du skaitmenis po kablelio!"_s);
    EXPECT_EQ(field(u"pre_suma"_s).AsFloat(), 12.5);
    EXPECT_EQ(refusalOf(u"pre_suma"_s, u"1e5"_s), u"Laukas \"Suma\" turi būti suma, o ne „1e5“!"_s);
    EXPECT_EQ(refusalOf(u"pre_suma"_s, u"abc"_s), u"Laukas \"Suma\" turi būti suma, o ne „abc“!"_s);
    EXPECT_EQ(refusalOf(u"pre_suma"_s, u"1 000,50"_s), QString());
    EXPECT_EQ(field(u"pre_suma"_s).AsFloat(), 1000.5);
    EXPECT_EQ(refusalOf(u"pre_suma"_s, u"-0,29"_s), QString());
    EXPECT_EQ(field(u"pre_suma"_s).DisplayText(), u"-0.29"_s);
    set->Cancel();
    set->Next();
    set->Edit();
    field(u"pre_pavad"_s).setValue(u"kita"_s);
    EXPECT_NO_THROW(set->Post()) << "an amount that is stored with parts of a cent does not stop a save";
}

TEST_F(FieldRow, FormatDefaultAndTheFirstOfAListForANewRecord)
{
    make({TFieldRow::edit(u"Suma"_s, u"pre_suma"_s).format(u"0.0000"_s).defaultValue(7),
          TFieldRow::pick(u"Grupė"_s, u"pre_grpid"_s,
                          u"select grp_pavad, grp_id from grupes order by grp_pavad desc"_s)
              .firstPreselected(),
          TFieldRow::choices(u"Tipas"_s, u"pre_tip"_s, {{u"Taip"_s, u"1"_s}})});
    EXPECT_EQ(form->control<TDBEdit>(u"pre_suma"_s)->text(), u"12.5000"_s);
    EXPECT_EQ(form->control<QComboBox>(u"pre_grpid"_s)->currentText(), u"Kuras"_s);
    set->Append();
    EXPECT_EQ(field(u"pre_suma"_s).AsFloat(), 7);
    EXPECT_EQ(form->control<QComboBox>(u"pre_grpid"_s)->currentText(), u"Žaliavos"_s);
    EXPECT_EQ(field(u"pre_grpid"_s).AsInteger(), 3);
    EXPECT_TRUE(field(u"pre_tip"_s).IsNull());
    EXPECT_FALSE(set->Modified());
    set->Cancel();
}

TEST_F(FieldRow, ARecordThatWasBegunBeforeTheFormIsPresetToo)
{
    set->Append();
    set->FieldByName(u"pre_grpid"_s)->setValue(1);
    form = add<TFieldForm>(QList<TFieldRow>{TFieldRow::edit(u"Suma"_s, u"pre_suma"_s).defaultValue(7),
                                            TFieldRow::edit(u"Grupė"_s, u"pre_grpid"_s).defaultValue(9)},
                           set.get());
    EXPECT_EQ(form->control<TDBEdit>(u"pre_suma"_s)->text(), u"7.00"_s);
    EXPECT_EQ(field(u"pre_grpid"_s).AsInteger(), 1) << "what is there already stays";
    set->Cancel();
}

TEST_F(FieldRow, AListOfAStatementStoresTheKeyAndASuggestionItsText)
{
    make({TFieldRow::pick(u"Grupė"_s, u"pre_grpid"_s, db.get(),
                          u"select grp_pavad, grp_id from grupes order by grp_id"_s),
          TFieldRow::suggest(u"Pavadinimas"_s, u"pre_pavad"_s,
                             u"select distinct pre_pavad, 1 from prekes order by pre_pavad"_s)});
    edit();
    auto *groups = form->control<TDBLookupComboBox>(u"pre_grpid"_s);
    groups->setFocus();
    QTest::keyClick(groups, Qt::Key_Down);
    EXPECT_EQ(field(u"pre_grpid"_s).AsInteger(), 3);
    auto *names = form->control<TDBComboBox>(u"pre_pavad"_s);
    ASSERT_EQ(names->count(), 3);
    EXPECT_EQ(names->itemText(1), u"Bulvės"_s);
    EXPECT_EQ(names->currentText(), u"Agurkai"_s);
    typeOver(names->lineEdit(), u"Ropės"_s);
    set->Post();
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Ropės"_s);
}

TEST_F(FieldRow, ATypingFilterLetsAPasteThroughAndAnOnlyFilterDoesNot)
{
    make({TFieldRow::edit(u"Rašoma"_s, u"pre_pavad"_s).digitsTyped(),
          TFieldRow::edit(u"Tik"_s, u"pre_kodas"_s).digitsOnly(),
          TFieldRow::freeEdit(u"Raidės"_s, u"raides"_s).lettersAndDigitsTyped(),
          TFieldRow::freeEdit(u"Tik raidės"_s, u"tik"_s).lettersAndDigitsOnly()});
    edit();
    const auto shown = [&](const QString &name) { return form->control<QLineEdit>(name); };
    struct {
        QString name, typed, pasted;
    } const cases[] = {{u"pre_pavad"_s, u"12"_s, u"1-a2"_s},
                       {u"pre_kodas"_s, u"12"_s, u"12"_s},
                       {u"raides"_s, u"1a2"_s, u"1-a2"_s},
                       {u"tik"_s, u"1a2"_s, u"1a2"_s}};
    for (const auto &each : cases) {
        typeOver(shown(each.name), u"1-a2"_s);
        EXPECT_EQ(shown(each.name)->text(), each.typed) << str(each.name);
        paste(shown(each.name), u"1-a2"_s);
        EXPECT_EQ(shown(each.name)->text(), each.pasted) << str(each.name);
    }
    QInputMethodEvent composed;
    composed.setCommitString(u"č"_s);
    shown(u"pre_pavad"_s)->clear();
    QApplication::sendEvent(shown(u"pre_pavad"_s), &composed);
    EXPECT_EQ(shown(u"pre_pavad"_s)->text(), QString()) << "a composed letter is a typed one";
    QTest::keyClick(shown(u"pre_pavad"_s), Qt::Key_7);
    QTest::keyClick(shown(u"pre_pavad"_s), Qt::Key_Backspace);
    EXPECT_EQ(shown(u"pre_pavad"_s)->text(), QString());
}

TEST_F(FieldRow, EveryKeystrokeAndChoiceOfTheUserIsTold)
{
    auto *own = new Composite;
    TFieldForm &made =
        make({TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s),
              TFieldRow::check(u"Tinka"_s, u"pre_tip"_s, u"1"_s, u"0"_s),
              TFieldRow::choices(u"Grupė"_s, u"pre_grpid"_s, {{u"A"_s, 1}, {u"B"_s, 2}}),
              TFieldRow::freeEdit(u"Pastaba"_s, u"pastaba"_s), TFieldRow::freeCheck(u"Rodyti"_s, u"rodyti"_s),
              TFieldRow::freeList(u"Mėnuo"_s, u"menuo"_s, {u"Sausis"_s, u"Vasaris"_s}),
              TFieldRow::custom(u"Sava"_s, u"sava"_s, own)});
    edit();
    QSignalSpy edits(&made, &TFieldForm::edited);
    // Once or more: a choice is told when it is made and when the column has it.
    const auto told = [&] {
        const bool any = edits.count() > 0;
        edits.clear();
        return any;
    };
    typeLetters(made.control(u"pre_pavad"_s), u"a"_s);
    EXPECT_TRUE(told());
    EXPECT_FALSE(told()) << "a control";
    typeLetters(made.control(u"pre_pavad"_s), u"b"_s);
    EXPECT_TRUE(told());
    QTest::keyClick(made.control(u"pre_tip"_s), Qt::Key_Space);
    EXPECT_TRUE(told());
    QTest::keyClick(made.control(u"pre_grpid"_s), Qt::Key_Up);
    EXPECT_TRUE(told());
    typeLetters(made.control(u"pastaba"_s), u"x"_s);
    EXPECT_TRUE(told());
    QTest::keyClick(made.control(u"rodyti"_s), Qt::Key_Space);
    EXPECT_TRUE(told());
    QTest::keyClick(made.control(u"menuo"_s), Qt::Key_Down);
    EXPECT_TRUE(told());
    emit own->changed();
    EXPECT_TRUE(told());
    set->FieldByName(u"pre_pavad"_s)->setValue(u"programa"_s);
    made.control<QLineEdit>(u"pastaba"_s)->setText(u"programa"_s);
    EXPECT_FALSE(told()) << "only the user edits";
}

TEST_F(FieldRow, AControlIsFilledWhenItShowsMoreThanBlanks)
{
    auto *own = new Composite;
    make({TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s).required(),
          TFieldRow::choices(u"Grupė"_s, u"pre_grpid"_s, {{u"A"_s, 1}, {u"B"_s, 2}}).required(),
          TFieldRow::radio(u"Tipas"_s, u"pre_tip"_s, {{u"Taip"_s, u"1"_s}, {u"Ne"_s, u"0"_s}}),
          TFieldRow::date(u"Data"_s, u"pre_data"_s), TFieldRow::freeEdit(u"Pastaba"_s, u"pastaba"_s),
          TFieldRow::custom(u"Sava"_s, u"sava"_s, own)});
    edit();
    EXPECT_TRUE(form->isFilled(u"pre_pavad"_s));
    EXPECT_TRUE(form->requiredFilled());
    typeOver(form->control(u"pre_pavad"_s), u"  "_s);
    EXPECT_FALSE(form->isFilled(u"pre_pavad"_s)) << "blanks, still being typed";
    EXPECT_FALSE(form->requiredFilled());
    typeLetters(form->control(u"pre_pavad"_s), u"x"_s);
    EXPECT_TRUE(form->requiredFilled());
    QTest::keyClick(form->control(u"pre_grpid"_s), Qt::Key_Up);
    EXPECT_TRUE(form->isFilled(u"pre_grpid"_s));
    field(u"pre_grpid"_s).Clear();
    EXPECT_FALSE(form->isFilled(u"pre_grpid"_s));
    EXPECT_FALSE(form->requiredFilled());
    form->setRowVisible(u"pre_grpid"_s, false);
    EXPECT_TRUE(form->requiredFilled()) << "nobody can fill what is hidden";
    EXPECT_TRUE(form->isFilled(u"pre_tip"_s));
    field(u"pre_tip"_s).Clear();
    EXPECT_FALSE(form->isFilled(u"pre_tip"_s));
    EXPECT_TRUE(form->isFilled(u"pre_data"_s));
    field(u"pre_data"_s).Clear();
    EXPECT_FALSE(form->isFilled(u"pre_data"_s));
    EXPECT_FALSE(form->isFilled(u"pastaba"_s));
    typeLetters(form->control(u"pastaba"_s), u"x"_s);
    EXPECT_TRUE(form->isFilled(u"pastaba"_s));
    EXPECT_FALSE(form->isFilled(u"sava"_s)) << "0 is no key";
    own->value = 5;
    EXPECT_TRUE(form->isFilled(u"sava"_s));
}

TEST_F(FieldRow, ConditionsFollowEveryChange)
{
    const auto named = [](const TFieldForm &asked) { return asked.isFilled(u"pre_pavad"_s); };
    make({TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s),
          TFieldRow::edit(u"Kodas"_s, u"pre_kodas"_s).enabledWhen(named)});
    edit();
    EXPECT_TRUE(form->control(u"pre_kodas"_s)->isEnabled());
    typeOver(form->control(u"pre_pavad"_s), QString());
    EXPECT_FALSE(form->control(u"pre_kodas"_s)->isEnabled());
    typeLetters(form->control(u"pre_pavad"_s), u"x"_s);
    EXPECT_TRUE(form->control(u"pre_kodas"_s)->isEnabled());
    set->Cancel();
    form->control(u"pre_kodas"_s)->setEnabled(false); // as for somebody who may only look
    set->Next();
    EXPECT_FALSE(form->control(u"pre_kodas"_s)->isEnabled());
}

TEST_F(FieldRow, OptionsOfTypingReachAFreeEditAsWell)
{
    make({TFieldRow::freeEdit(u"Kodas"_s, u"kodas"_s).upperCase(),
          TFieldRow::freeEdit(u"Trys"_s, u"trys"_s).maxLength(3),
          TFieldRow::combo(u"Pavadinimas"_s, u"pre_pavad"_s, {u"Morkos"_s, u"Ropės"_s})});
    show();
    typeOver(form->control(u"kodas"_s), u"ąb"_s);
    EXPECT_EQ(form->control<QLineEdit>(u"kodas"_s)->text(), u"ĄB"_s);
    typeOver(form->control(u"trys"_s), u"1234"_s);
    EXPECT_EQ(form->control<QLineEdit>(u"trys"_s)->text(), u"123"_s);
    EXPECT_EQ(form->control<QComboBox>(u"pre_pavad"_s)->count(), 2);
}

TEST_F(FieldRow, AControlFromOutsideIsBoundLikeTheOthers)
{
    make({TFieldRow::bound(u"Pavadinimas"_s, u"pre_pavad"_s,
                           [](QWidget *parent) { return new TDBMemo(parent); })});
    EXPECT_EQ(form->control<TDBMemo>(u"pre_pavad"_s)->toPlainText(), u"Agurkai"_s);
}

TEST_F(FieldRow, AMisspeltColumnIsAssertedWhenTheSetOpens)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    set->Close();
    TFieldForm misspelt({TFieldRow::edit(u"Kodas"_s, u"pre_kodaas"_s)}, set.get());
    EXPECT_DEATH(set->Open(), "pre_kodaas");
}

TEST_F(FieldRow, ARefusedControlWearsItsReasonUntilItIsEdited)
{
    make(
        {TFieldRow::edit(u"Pavadinimas"_s, u"pre_pavad"_s), TFieldRow::freeEdit(u"Pastaba"_s, u"pastaba"_s)});
    form->control(u"pastaba"_s)->setToolTip(u"laisvai"_s);
    edit();
    const QList<std::pair<QString, QString>> tips{{u"pre_pavad"_s, QString()}, {u"pastaba"_s, u"laisvai"_s}};
    for (const auto &[name, own] : tips) {
        QWidget *control = form->control(name);
        form->refuse(name, u"negerai"_s);
        EXPECT_TRUE(control->hasFocus()) << str(name);
        EXPECT_EQ(control->toolTip(), u"negerai"_s);
        EXPECT_EQ(control->accessibleDescription(), u"negerai"_s);
        typeLetters(control, u"x"_s);
        EXPECT_EQ(control->toolTip(), own);
        EXPECT_EQ(control->accessibleDescription(), QString());
    }
}

// --- pictures

class PictureRow : public FieldRow {
protected:
    void SetUp() override
    {
        FieldRow::SetUp();
        make({TFieldRow::picture(u"Ženklas"_s, u"pre_zenklas"_s)});
    }
    TDBImage *image() { return form->control<TDBImage>(u"pre_zenklas"_s); }
    QAbstractButton *button(int which)
    {
        return qobject_cast<QAbstractButton *>(form->browseButton(u"pre_zenklas"_s, which));
    }
    QString file(const QString &name, const QByteArray &content)
    {
        QFile made(folder.filePath(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        EXPECT_EQ(made.write(content), content.size());
        return made.fileName();
    }
    // Presses the button that opens, and chooses this file.
    void open(const QString &name)
    {
        const OnNextDialog<QFileDialog> chooses([&](QFileDialog &dialog) {
            dialog.selectFile(name);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        button(0)->click();
    }
    QString refusal(const QString &name, const QByteArray &content)
    {
        try {
            image()->loadFromFile(file(name, content));
        } catch (const EConvertError &error) {
            return error.message();
        }
        return {};
    }
};

TEST_F(PictureRow, OpensAFileKeepsItsBytesAndDeletesIt)
{
    EXPECT_FALSE(button(0)->isEnabled() || button(1)->isEnabled()) << "the set is not being edited";
    edit();
    for (const char *format : {"png", "jpg", "bmp"}) {
        const QByteArray bytes = picture(QSize(30, 20), format);
        open(file(u"ženklas."_s + QLatin1String(format), bytes));
        EXPECT_EQ(field(u"pre_zenklas"_s).Value().toByteArray(), bytes) << format;
        EXPECT_TRUE(form->isFilled(u"pre_zenklas"_s));
    }
    button(1)->click();
    EXPECT_TRUE(field(u"pre_zenklas"_s).IsNull());
    EXPECT_FALSE(form->isFilled(u"pre_zenklas"_s));
    EXPECT_TRUE(button(0)->accessibleName().contains(u"Ženklas"));
    EXPECT_EQ(button(0)->text() + button(1)->text(), u"Atidaryti…Išvalyti"_s);
}

TEST_F(PictureRow, RefusesWhatIsNoPictureOrTooLargeInWords)
{
    edit();
    QByteArray broken = picture(QSize(300, 200), "png");
    EXPECT_EQ(refusal(u"geras.png"_s, broken), QString()) << "a control";
    broken.truncate(broken.size() / 2);
    EXPECT_TRUE(refusal(u"a.png"_s, broken).contains(u"sugadintas"));
    EXPECT_TRUE(refusal(u"b.png"_s, "ne").contains(u"nėra PNG, JPEG ar BMP"));
    QByteArray gif = "GIF89a";
    EXPECT_TRUE(refusal(u"c.gif"_s, gif).contains(u"nėra PNG, JPEG ar BMP"));
    EXPECT_TRUE(refusal(u"d.png"_s, QByteArray(11 * 1024 * 1024, 'x')).contains(u"10 MB"));
    const QString vast = refusal(u"e.png"_s, picture(QSize(6000, 5000), "png"));
    EXPECT_TRUE(vast.contains(u"6000 × 5000")) << str(vast);
}

TEST_F(PictureRow, IsShownScaledDown)
{
    edit();
    image()->loadFromFile(file(u"didelis.png"_s, picture(QSize(2000, 1000), "png")));
    const int frame = 2 * image()->frameWidth();
    EXPECT_EQ(image()->sizeHint(), QSize(320 + frame, 160 + frame));
}

#include "field_row_test.moc"
