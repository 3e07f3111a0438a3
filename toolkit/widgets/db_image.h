#pragma once

#include "toolkit/widgets/db_control.h"

#include <QFrame>
#include <QPixmap>

// The picture of a blob column. It is scaled down to the control's width, and its height follows the picture.
class TDBImage : public QFrame, public TDBControl {
    Q_OBJECT
public:
    explicit TDBImage(QWidget *parent = nullptr);

    // Puts the content of a picture file (PNG, JPEG, BMP) into the column, byte for byte. Raises
    // EConvertError when the file cannot be read, is no such picture, or is larger than a picture in the
    // books may be; the column stays as it was then.
    void loadFromFile(const QString &file);
    // Asks the user for the file.
    void openFile();
    // Empties the column.
    void clearPicture();

    bool hasPicture() const { return !picture.isNull(); }
    bool showsValue() const override { return !bytes.isEmpty(); }
    QString textFor(const Variant &value) override;
    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

signals:
    void doubleClicked();
    void pictureChanged();

protected:
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;
    void paintEvent(QPaintEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    QPixmap picture;
    QByteArray bytes;
};
