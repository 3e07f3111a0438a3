#include "toolkit/widgets/user_input.h"

#include "toolkit/widgets/db_control.h"
#include "toolkit/widgets/guard.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QTimer>

namespace {

// Runs a handler at a signal that is known only at run time.
class TPropertyEar : public QObject {
    Q_OBJECT
public:
    TPropertyEar(QObject *parent, std::function<void()> toRun) : QObject(parent), handler(std::move(toRun)) {}

public slots:
    void hear() { runGuarded(widgetOf(this), handler); }

private:
    std::function<void()> handler;
};

QMetaProperty valueOf(const QWidget *control)
{
    return control->metaObject()->userProperty();
}

bool hearPlain(QWidget *control, QObject *context, const std::function<void()> &handler)
{
    if (auto *edit = qobject_cast<QLineEdit *>(control))
        connectGuarded(edit, &QLineEdit::textEdited, context, handler);
    else if (auto *combo = qobject_cast<QComboBox *>(control))
        connectGuarded(combo, &QComboBox::activated, context, handler);
    else if (auto *button = qobject_cast<QAbstractButton *>(control))
        connectGuarded(button, &QAbstractButton::clicked, context, handler);
    else if (auto *memo = qobject_cast<QPlainTextEdit *>(control))
        connectGuarded(memo, &QPlainTextEdit::textChanged, context, handler);
    else
        return false;
    return true;
}

} // namespace

void whenEdited(QWidget *control, QObject *context, const std::function<void()> &handler)
{
    if (auto *bound = dynamic_cast<TDBControl *>(control)) {
        bound->whenEdited(context, handler);
        return;
    }
    const bool isPlain = hearPlain(control, context, handler);
    const QMetaProperty value = valueOf(control);
    if (!isPlain && value.isValid() && value.hasNotifySignal()) {
        auto *ear = new TPropertyEar(context, handler);
        QObject::connect(control, value.notifySignal(), ear,
                         ear->metaObject()->method(ear->metaObject()->indexOfSlot("hear()")));
    }
    for (QObject *child : control->children()) {
        if (auto *inner = qobject_cast<QWidget *>(child); inner && !inner->isWindow())
            whenEdited(inner, context, handler);
    }
}

bool showsValue(const QWidget *control)
{
    if (const auto *bound = dynamic_cast<const TDBControl *>(control))
        return bound->showsValue();
    if (const auto *combo = qobject_cast<const QComboBox *>(control))
        return !combo->currentText().trimmed().isEmpty();
    const QMetaProperty value = valueOf(control);
    if (!value.isValid() || value.typeId() == QMetaType::Bool)
        return true;
    const QVariant shown = value.read(control);
    const bool isNumber = shown.typeId() == QMetaType::Double || shown.typeId() == QMetaType::Int;
    return isNumber ? shown.toDouble() != 0 : !shown.toString().trimmed().isEmpty();
}

#include "user_input.moc"
