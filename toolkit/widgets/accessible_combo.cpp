#include "toolkit/widgets/accessible_combo.h"

#include <QAccessibleWidget>
#include <QComboBox>

namespace {

class TAccessibleCombo : public QAccessibleWidget {
public:
    explicit TAccessibleCombo(QComboBox *combo) : QAccessibleWidget(combo, QAccessible::ComboBox) {}

    QString text(QAccessible::Text which) const override
    {
        if (which == QAccessible::Value)
            return combo()->currentText();
        return QAccessibleWidget::text(which);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        state.editable = combo()->isEditable();
        return state;
    }

    QStringList actionNames() const override
    {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &action) override
    {
        if (action == showMenuAction())
            combo()->showPopup();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    QComboBox *combo() const { return static_cast<QComboBox *>(widget()); }
};

QAccessibleInterface *makeInterface(const QString &kind, QObject *object)
{
    auto *combo = kind == QLatin1String("QComboBox") ? qobject_cast<QComboBox *>(object) : nullptr;
    return combo ? new TAccessibleCombo(combo) : nullptr;
}

} // namespace

void nameComboBoxes()
{
    static const bool once = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(once);
}
