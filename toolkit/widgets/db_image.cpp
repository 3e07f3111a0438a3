#include "toolkit/widgets/db_image.h"

#include <QFile>
#include <QPainter>

namespace {

constexpr int emptyHeight = 120;

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
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw EConvertError(QStringLiteral(u"Nepavyksta perskaityti failo „%1“").arg(name));
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw EConvertError(QStringLiteral(u"Nepavyksta perskaityti failo „%1“").arg(name));
    if (QPixmap probe; !probe.loadFromData(content))
        throw EConvertError(QStringLiteral(u"Failas „%1“ nėra paveikslėlis").arg(name));
    if (!canEdit())
        return;
    bytes = content;
    changedByUser();
    commit();
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

void TDBImage::setEditable(bool on)
{
    setProperty("readOnly", !on);
}

QSize TDBImage::sizeHint() const
{
    const int frame = 2 * frameWidth();
    return picture.isNull() ? QSize(emptyHeight, emptyHeight) : picture.size() + QSize(frame, frame);
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
        painter.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap, QStringLiteral(u"Paveikslėlio nėra"));
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
