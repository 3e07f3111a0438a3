#include "tests/src/walk.h"

#include "tests/support/message_box.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

namespace {

bool takesInput(const QWidget *widget)
{
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QAbstractButton *>(widget) ||
           qobject_cast<const QComboBox *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget) ||
           qobject_cast<const QAbstractItemView *>(widget);
}

// Parts of a composed control belong to the control; only the outermost counts.
bool isPart(const QWidget *widget, const QWidget &window)
{
    for (const QWidget *owner = widget->parentWidget(); owner && owner != &window;
         owner = owner->parentWidget())
        if (takesInput(owner) || owner->inherits("QHeaderView") || owner->inherits("QCalendarWidget"))
            return true;
    return widget->objectName().startsWith("qt_");
}

QList<QWidget *> controls(QWidget &window)
{
    QList<QWidget *> found;
    for (auto *widget : window.findChildren<QWidget *>())
        if (takesInput(widget) && widget->isVisible() && !isPart(widget, window))
            found << widget;
    return found;
}

QString caption(const QWidget *control)
{
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    return button ? button->text() : QString();
}

QLabel *labelOf(const QWidget *control, const QWidget &window)
{
    for (auto *label : window.findChildren<QLabel *>())
        if (label->buddy() == control)
            return label;
    return nullptr;
}

QString describe(const QWidget *control)
{
    return QString("%1 %2 %3")
        .arg(control->metaObject()->className(), control->objectName(), caption(control));
}

bool hasKeyOfItsOwn(const QWidget *control)
{
    if (caption(control).contains(u'&'))
        return true;
    const auto *tool = qobject_cast<const QToolButton *>(control);
    return tool && tool->defaultAction() && !tool->defaultAction()->shortcuts().isEmpty();
}

} // namespace

void lookAtEntry(const TPackageEntry &entry, const std::function<void(QWidget &)> &look)
{
    if (entry.kind == TPackageEntry::Kind::Function) {
        OnNextDialog<QDialog> first([&look](QDialog &window) {
            look(window);
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        entry.call();
        return;
    }
    const std::unique_ptr<QWidget> window(entry.create(nullptr));
    window->show();
    QCoreApplication::processEvents();
    look(*window);
    EXPECT_TRUE(window->close());
}

QStringList controlsWithoutName(QWidget &window)
{
    QStringList nameless;
    for (const QWidget *control : controls(window))
        if (caption(control).isEmpty() && control->accessibleName().isEmpty() && !labelOf(control, window))
            nameless << describe(control);
    return nameless;
}

QStringList controlsOutOfReach(QWidget &window)
{
    QStringList unreachable;
    for (const QWidget *control : controls(window)) {
        const bool byTab = control->focusPolicy() & Qt::TabFocus;
        if (control->isEnabled() && !byTab && !hasKeyOfItsOwn(control))
            unreachable << describe(control);
    }
    return unreachable;
}

QStringList repeatedAccelerators(QWidget &window)
{
    QHash<QChar, int> uses;
    const auto count = [&uses](const QString &text) {
        const qsizetype at = text.indexOf(u'&');
        if (at >= 0 && at + 1 < text.size() && text[at + 1] != u'&')
            ++uses[text[at + 1].toUpper()];
    };
    for (const QWidget *control : controls(window)) {
        count(caption(control));
        if (const QLabel *label = labelOf(control, window))
            count(label->text());
    }
    QStringList repeated;
    for (auto use = uses.cbegin(); use != uses.cend(); ++use)
        if (use.value() > 1)
            repeated << QString(use.key());
    return repeated;
}
