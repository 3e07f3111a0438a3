#pragma once

#include "host/app/close_check/close_check_run.h"
#include "host/app/home/home_section.h"
#include "host/common/package.h"

#include <QScrollArea>

class QGridLayout;

// What the main window shows while no document is open: institution and month, what speaks against closing
// it, the last close, backup and changes, and the screens that are used most. Everything that has a place
// leads there.
//
// It reads nothing before it is seen, and then one part after another. A part that cannot be read says so in
// words. Seen again, it reads anew what it read without anybody noticing, and the rest when the period is
// another one or the window of checks has made them.
class THomePage : public QScrollArea {
    Q_OBJECT
public:
    THomePage(const TPackageEntries &entries, QWidget *parent);
    ~THomePage() override;

    // The books are open and somebody is logged in.
    void begin();
    using QWidget::show;

signals:
    void chosen(const THomeLine &line);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *buildPage();
    void follow();
    THomeSection *section(const QString &name, const QString &heading);
    void show(THomeSection &section, const QList<THomeLine> &lines);
    void readAnew();
    void readNext();
    void showHeading();
    void showUsed();
    void check();
    void showChecks();

    const TPackageEntries &entries;
    QGridLayout *grid;
    QLabel *institution;
    QLabel *period;
    THomeSection *checks, *used, *closed, *changes;
    std::shared_ptr<TCloseCheckRun> run;
    std::vector<std::function<void()>> parts;
    std::size_t nextPart = 0;
    QTimer pause;
    bool entered = false;
};
