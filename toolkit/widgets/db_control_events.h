#pragma once

#include "toolkit/widgets/db_control.h"

// The Qt side of a data-aware control: hears the control's events and owns its connections.
class TDBControlEvents : public QObject {
    Q_OBJECT
public:
    explicit TDBControlEvents(TDBControl *owner);
    bool eventFilter(QObject *watched, QEvent *event) override;

    TDBControl *control;

signals:
    void edited();
};
