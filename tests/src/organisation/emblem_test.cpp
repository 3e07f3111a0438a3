#include "tests/src/organisation/organisation.h"
#include "tests/support/files.h"

#include <QFileDialog>
#include <QImage>
#include <QTemporaryDir>

namespace {

class Emblem : public Organisation {
protected:
    QString picture(const QString &name, QSize size)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        for (int x = 0; x < size.width(); x += 3)
            image.setPixelColor(x, (x * 7) % size.height(), QColor::fromHsv(x % 360, 200, 200));
        const QString file = folder.filePath(name);
        EXPECT_TRUE(image.save(file));
        return file;
    }
    QString file(const QString &name, const QByteArray &content)
    {
        QFile written(folder.filePath(name));
        EXPECT_TRUE(written.open(QIODevice::WriteOnly) && written.write(content) == content.size());
        return written.fileName();
    }
    void doubleClick() { QTest::mouseDClick(emblem(), Qt::LeftButton); }
    // Double-clicks the emblem and chooses a file.
    void choose(const QString &name)
    {
        OnNextDialog<QFileDialog> dialog([&name](QFileDialog &shown) {
            shown.findChild<QLineEdit *>()->setText(name);
            QMetaObject::invokeMethod(&shown, "accept");
        });
        doubleClick();
    }
    QByteArray storedEmblem() { return books().fieldResult("select org_zenklas from bd_org").toByteArray(); }
    int shownHeight()
    {
        QCoreApplication::processEvents();
        return emblem()->height() - 2 * emblem()->frameWidth();
    }

    QTemporaryDir folder;
};
ON_BOTH_ENGINES(Emblem);

} // namespace

TEST_P(Emblem, ADoubleClickWhileOnlyLookedAtDoesNothing)
{
    open();
    doubleClick();
    EXPECT_EQ(enabled(), QStringList("acEdit"));
}

TEST_P(Emblem, IsTakenFromTheFileByteForByteAndTakenAway)
{
    const QString chosen = picture("zenklas.png", {40, 30});
    open();
    frm->acEdit->trigger();
    choose(chosen);
    EXPECT_EQ(storedEmblem(), QByteArray()) << "saved only with the row";
    frm->acSave->trigger();
    EXPECT_EQ(storedEmblem(), contentOf(chosen));
    frm->acEdit->trigger();
    EXPECT_TRUE(frm->mnDel->isEnabled());
    frm->mnDel->trigger();
    EXPECT_FALSE(frm->mnDel->isEnabled()) << "there is nothing to delete any more";
    frm->acSave->trigger();
    EXPECT_EQ(value(books(), "select org_zenklas from bd_org"), "NULL");
}

TEST_P(Emblem, CancellingBringsItBack)
{
    open();
    frm->acEdit->trigger();
    choose(picture("zenklas.png", {40, 30}));
    EXPECT_TRUE(emblem()->hasPicture());
    press(Qt::Key_Escape);
    EXPECT_FALSE(emblem()->hasPicture());
}

TEST_P(Emblem, ItsHeightFollowsThePicture)
{
    open();
    frm->acEdit->trigger();
    const QSize before = frm->sizeHint();
    choose(picture("aukstas.png", {150, 200}));
    EXPECT_EQ(shownHeight(), 200);
    EXPECT_EQ(frm->sizeHint(), before) << "it has its room";
    choose(picture("zemas.png", {150, 60}));
    EXPECT_EQ(shownHeight(), 60);
    frm->acSave->trigger();
    EXPECT_EQ(shownHeight(), 60);
    frm->acEdit->trigger();
    choose(picture("didelis.png", {3200, 2400}));
    EXPECT_LE(shownHeight(), 240) << "a large one is scaled down";
}

TEST_P(Emblem, AFileThatIsNoPictureIsRefusedInWordsAndTheOldOneStays)
{
    open();
    frm->acEdit->trigger();
    choose(picture("zenklas.png", {40, 30}));
    const QString text = file("tekstas.png", "Tai ne paveikslėlis");
    const QString broken = file("sugadintas.png", contentOf(folder.filePath("zenklas.png")).left(120));
    const QString huge = file("didelis.png", QByteArray(50 * 1024 * 1024, 'x'));
    const QStringList expected{"Failas „" + text + "“ nėra PNG, JPEG ar BMP paveikslėlis",
                               "Failas „" + broken + "“ sugadintas: paveikslėlio parodyti negalima",
                               "Failas „" + huge +
                                   "“ per didelis: paveikslėlis gali užimti ne daugiau kaip 10 MB"};
    QStringList told;
    for (const QString &name : {text, broken, huge}) {
        NextBoxes box{QMessageBox::Ok};
        choose(name);
        told << box.at(0).text;
        EXPECT_TRUE(emblem()->hasPicture());
    }
    EXPECT_EQ(told, expected);
    frm->acSave->trigger();
    EXPECT_EQ(storedEmblem(), contentOf(folder.filePath("zenklas.png")));
}

TEST_P(Emblem, AFileThatIsCutOffAnywhereIsRefused)
{
    open();
    frm->acEdit->trigger();
    for (const QString name : {"visas.png", "visas.jpg", "visas.bmp"}) {
        const QByteArray whole = contentOf(picture(name, {90, 60}));
        choose(file("papildytas." + name, whole + QByteArray(512, '\0')));
        EXPECT_TRUE(emblem()->hasPicture()) << "a block filled up with zeros is whole";
        frm->mnDel->trigger();
        for (const qsizetype length : {whole.size() - 100, whole.size() - 20, whole.size() - 1}) {
            const QString cut = file("nukirstas." + name, whole.left(length));
            NextBoxes told{QMessageBox::Ok};
            choose(cut);
            EXPECT_EQ(told.at(0).text, "Failas „" + cut + "“ sugadintas: paveikslėlio parodyti negalima")
                << length;
            EXPECT_FALSE(emblem()->hasPicture());
        }
    }
}

TEST_P(Emblem, APictureOfTooManyPointsIsRefusedBeforeItIsUnfolded)
{
    open();
    frm->acEdit->trigger();
    QImage blank(5001, 5000, QImage::Format_Mono);
    blank.fill(0);
    const QString large = folder.filePath("platus.png");
    ASSERT_TRUE(blank.save(large));
    NextBoxes told{QMessageBox::Ok};
    choose(large);
    EXPECT_EQ(told.at(0).text, "Paveikslėlis „" + large + "“ per didelis: 5001 × 5000 taškų");
    EXPECT_FALSE(emblem()->hasPicture());
    ASSERT_TRUE(blank.copy(0, 0, 5000, 5000).save(large));
    choose(large);
    EXPECT_TRUE(emblem()->hasPicture()) << "the largest that may be";
}

TEST_P(Emblem, AStoredOneThatCannotBeShownIsSaidSoAndMayBeTakenAway)
{
    books().ExecSQL("update bd_org set org_zenklas = :z", {{"z", QByteArray("ne paveikslėlis")}});
    open();
    const QImage said = emblem()->grab().toImage();
    EXPECT_FALSE(emblem()->hasPicture());
    edited();
    frm->acSave->trigger();
    EXPECT_EQ(storedEmblem(), QByteArray("ne paveikslėlis")) << "what nobody touched stays";
    frm->acEdit->trigger();
    EXPECT_TRUE(frm->mnDel->isEnabled());
    frm->mnDel->trigger();
    EXPECT_NE(emblem()->grab().toImage(), said) << "there is none is something else";
    frm->acSave->trigger();
    EXPECT_EQ(value(books(), "select org_zenklas from bd_org"), "NULL");
}

TEST_P(Emblem, ItsMenuFollowsTheRowAndDeleteIsItsKey)
{
    books().ExecSQL("update bd_org set org_zenklas = :z",
                    {{"z", contentOf(picture("zenklas.png", {40, 30}))}});
    open();
    EXPECT_EQ(emblem()->actions(), QList<QAction *>({frm->mnOpen, frm->mnDel}));
    EXPECT_EQ(enabled(), QStringList("acEdit"));
    frm->acEdit->trigger();
    EXPECT_EQ(enabled(), QStringList({"acSave", "acCancel", "mnOpen", "mnDel"}));
    emblem()->setFocus();
    QTest::keyClick(emblem(), Qt::Key_Delete);
    EXPECT_FALSE(emblem()->hasPicture());
}

TEST_P(Emblem, ThatBothStationsChangedIsToldWithoutItsBytes)
{
    open();
    frm->acEdit->trigger();
    choose(picture("zenklas.png", {40, 30}));
    secondFin()->ExecSQL("update bd_org set org_zenklas = :z",
                         {{"z", contentOf(picture("kitas.png", {20, 30}))}});
    EXPECT_EQ(conflict("&Imti naują reikšmę"),
              "Kita darbo vieta tuo tarpu pakeitė: Ženklas: buvo tuščia, dabar „paveikslėlis“.");
    frm->acSave->trigger();
    EXPECT_EQ(storedEmblem(), contentOf(folder.filePath("kitas.png")));
}
