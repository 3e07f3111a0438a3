#include "host/app/home/home_section.h"

#include "host/app/home/link.h"
#include "toolkit/widgets/guard.h"

#include <QLabel>
#include <QVBoxLayout>

THomeSection::THomeSection(const QString &name, const QString &heading, QWidget *parent)
    : QFrame(parent),
      layout(new QVBoxLayout(this))
{
    setObjectName(name);
    setAccessibleName(heading);
    setFrameShape(StyledPanel);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::Text);
    setAutoFillBackground(true);
    auto *title = new QLabel(heading, this);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    title->setForegroundRole(QPalette::Text);
    title->setMargin(TLink::padding(*this));
    layout->addWidget(title);
    layout->addStretch(1);
}

void THomeSection::show(const QList<THomeLine> &lines)
{
    if (lines == shown)
        return;
    const qsizetype focused = widgets.indexOf(focusWidget());
    const bool hadKeyboard = focused >= 0 && widgets.at(focused)->hasFocus();
    for (QWidget *widget : std::as_const(widgets)) {
        layout->removeWidget(widget);
        widget->hide();
        widget->deleteLater();
    }
    widgets.clear();
    shown = lines;
    for (const THomeLine &line : lines)
        add(line);
    if (hadKeyboard && !widgets.isEmpty())
        widgets.at(qMin(focused, widgets.size() - 1))->setFocus();
}

void THomeSection::add(const THomeLine &line)
{
    if (line.isLink()) {
        auto *link = new TLink(line.text, this);
        connectGuarded(link, &QAbstractButton::clicked, this, [this, line] { emit chosen(line); });
        widgets << link;
    } else {
        auto *label = new QLabel(line.text, this);
        label->setTextFormat(Qt::PlainText);
        label->setForegroundRole(QPalette::Text);
        label->setWordWrap(true);
        label->setMargin(TLink::padding(*this));
        widgets << label;
    }
    layout->insertWidget(layout->count() - 1, widgets.last());
    widgets.last()->show();
}
