#include "toolkit/widgets/db_image.h"

#include <QBuffer>
#include <QFile>
#include <QFileDialog>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

constexpr int emptyHeight = 120;
constexpr QSize largestHint(320, 240);
constexpr qint64 megabyte = 1024 * 1024;
constexpr qint64 largestFile = 10 * megabyte;
constexpr qint64 mostPixels = 25'000'000; // a page scanned finely; more would take hundreds of megabytes

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    const QString unreadable = u"Nepavyksta perskaityti failo „%1“"_s.arg(name);
    if (!file.open(QIODevice::ReadOnly))
        throw EConvertError(unreadable);
    if (file.size() > largestFile)
        throw EConvertError(
            u"Failas „%1“ per didelis: paveikslėlis gali užimti ne daugiau kaip %2 MB"_s.arg(name).arg(
                largestFile / megabyte));
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw EConvertError(unreadable);
    return content;
}

// The reader takes a picture that is cut off for a whole one. A bitmap tells its own length in its third to
// sixth byte, the others have an end of their own; zeros that a device fills its blocks with may follow it.
bool isCutOff(const QByteArray &format, QByteArray content)
{
    if (format == "bmp")
        return qFromLittleEndian<quint32>(content.constData() + 2) > quint32(content.size());
    while (content.endsWith('\0'))
        content.chop(1);
    return !content.endsWith(format == "png" ? "IEND\xAE\x42\x60\x82" : "\xFF\xD9");
}

// The size is read before the picture is: a small file may unfold to more than the memory holds.
void checkPicture(const QString &name, const QByteArray &content)
{
    QBuffer buffer;
    buffer.setData(content);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (!QList<QByteArray>{"png", "jpeg", "bmp"}.contains(reader.format()))
        throw EConvertError(u"Failas „%1“ nėra PNG, JPEG ar BMP paveikslėlis"_s.arg(name));
    if (qint64(size.width()) * size.height() > mostPixels)
        throw EConvertError(
            u"Paveikslėlis „%1“ per didelis: %2 × %3 taškų"_s.arg(name).arg(size.width()).arg(size.height()));
    if (isCutOff(reader.format(), content) || reader.read().isNull())
        throw EConvertError(u"Failas „%1“ sugadintas: paveikslėlio parodyti negalima"_s.arg(name));
}

} // namespace

TDBImage::TDBImage(QWidget *parent) : QFrame(parent), TDBControl(this)
{
    setFrameStyle(StyledPanel | Sunken);
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void TDBImage::loadFromFile(const QString &name)
{
    const QByteArray content = contentOf(name);
    checkPicture(name, content);
    if (!canEdit())
        return;
    bytes = content;
    picture = {}; // the one that is shown is of other bytes
    changedByUser();
    commit();
}

void TDBImage::openFile()
{
    const QString file = QFileDialog::getOpenFileName(window(), u"Atidaryti paveikslėlį"_s, {},
                                                      u"Paveikslėliai (*.png *.jpg *.jpeg *.bmp)"_s);
    if (!file.isEmpty())
        loadFromFile(file);
}

void TDBImage::clearPicture()
{
    if (!canEdit())
        return;
    bytes.clear();
    changedByUser();
    commit();
}

void TDBImage::showField(TField *field)
{
    const QByteArray shown = field && !field->IsNull() ? field->Value().toByteArray() : QByteArray();
    if (shown == bytes && picture.isNull() == shown.isEmpty())
        return;
    bytes = shown;
    picture = {};
    picture.loadFromData(bytes);
    updateGeometry();
    update();
    emit pictureChanged();
}

void TDBImage::storeField(TField &field)
{
    if (bytes.isEmpty())
        field.Clear();
    else
        field.setValue(bytes);
}

// Its bytes say nothing to people.
QString TDBImage::textFor(const Variant &value)
{
    return value.toByteArray().isEmpty() ? QString() : u"paveikslėlis"_s;
}

void TDBImage::setEditable(bool on)
{
    setProperty("readOnly", !on);
}

QSize TDBImage::sizeHint() const
{
    const int frame = 2 * frameWidth();
    if (picture.isNull())
        return {emptyHeight, emptyHeight};
    const QSize shown = picture.size().boundedTo(picture.size().scaled(largestHint, Qt::KeepAspectRatio));
    return shown + QSize(frame, frame);
}

int TDBImage::heightForWidth(int width) const
{
    const int frame = 2 * frameWidth();
    if (picture.isNull() || picture.width() == 0)
        return emptyHeight;
    const int shown = std::min(std::max(width - frame, 1), picture.width());
    return int(qint64(picture.height()) * shown / picture.width()) + frame;
}

void TDBImage::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QRect inside = contentsRect();
    if (picture.isNull()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap,
                         bytes.isEmpty() ? u"Paveikslėlio nėra"_s : u"Paveikslėlio parodyti negalima"_s);
        return;
    }
    const QSize size = picture.size().boundedTo(picture.size().scaled(inside.size(), Qt::KeepAspectRatio));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRect(inside.topLeft(), size), picture);
}

void TDBImage::mouseDoubleClickEvent(QMouseEvent *)
{
    emit doubleClicked();
}
