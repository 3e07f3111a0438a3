#include "host/controls/status_panels.h"

using namespace Qt::StringLiterals;

TStatusPanels::TStatusPanels(QWidget *parent)
    : QStatusBar(parent),
      messageLabel(new QLabel(this)),
      progress(new QProgressBar(this))
{
    messageLabel->setAccessibleName(u"Pranešimas"_s);
    messageLabel->setTextFormat(Qt::PlainText);
    progress->setAccessibleName(u"Sąrašas kraunamas"_s);
    progress->setRange(0, 0);
    progress->setFixedWidth(100);
    progress->setMaximumHeight(14);
    progress->hide();
    addWidget(messageLabel, 1);
    addPermanentWidget(progress);
}

void TStatusPanels::addPanel(int width)
{
    auto *label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setMinimumWidth(width);
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    label->setMargin(2);
    insertWidget(int(panels.size()), label);
    panels.push_back(label);
}

void TStatusPanels::setPanel(int index, const QString &text)
{
    QLabel *label = panels.at(size_t(index));
    label->setText(text);
    label->setAccessibleName(text);
    // A long text widens its panel; it is never cut off, nor drawn over the next one.
    label->setMinimumWidth(std::max(label->minimumWidth(), label->sizeHint().width()));
}

QString TStatusPanels::panel(int index) const
{
    return panels.at(size_t(index))->text();
}

void TStatusPanels::setMessage(const QString &text)
{
    messageLabel->setText(text);
}

QString TStatusPanels::message() const
{
    return messageLabel->text();
}

void TStatusPanels::setLoading(bool on)
{
    progress->setVisible(on);
}
