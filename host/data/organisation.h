#pragma once

#include <QObject>

// Tells that the institution's own record is another one than before; lives as long as the program.
class TOrganisationNotifier : public QObject {
    Q_OBJECT
signals:
    void organisationChanged();
};
TOrganisationNotifier &organisationNotifier();

// To be called after the record was stored: whoever shows something of it reads it anew.
void OrganisationChanged();
