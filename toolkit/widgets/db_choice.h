#pragma once

#include "toolkit/widgets/db_control.h"

#include <QCheckBox>
#include <QGroupBox>

class QButtonGroup;

// A check box over a column with two values. Null, and any other value, reads as not checked.
class TDBCheckBox : public QCheckBox, public TDBControl {
    Q_OBJECT
public:
    explicit TDBCheckBox(QWidget *parent = nullptr);
    explicit TDBCheckBox(const QString &text, QWidget *parent = nullptr);

    // 1 and 0 unless told otherwise.
    void setValues(const QVariant &whenChecked, const QVariant &whenUnchecked);

    bool showsValue() const override { return true; }
    QString textFor(const Variant &value) override;

protected:
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;
    void nextCheckState() override;

private:
    QVariant valueChecked = 1;
    QVariant valueUnchecked = 0;
};

// Radio buttons over a column, one for each value. Any other value checks none of them.
class TDBRadioGroup : public QGroupBox, public TDBControl {
    Q_OBJECT
public:
    explicit TDBRadioGroup(const QString &title = {}, QWidget *parent = nullptr);

    // Text with its accelerator, and value.
    void setChoices(const TChoices &choices);

    bool showsValue() const override;
    QString textFor(const Variant &value) override;

protected:
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;

private:
    QButtonGroup *buttons;
    QVariantList values;
};
