#pragma once

#include "database/standard/standard.h"

// What the victim sets up, all of it.
inline TSetUp newBooks()
{
    using namespace Qt::StringLiterals;
    using enum SetUpStep;
    return {.institution = TInstitution{.pavad = u"Šilų mokykla"_s, .savivaldybe = 13},
            .administrator = TAdministrator{.name = u"rasa"_s, .password = u"Raktas 1"_s},
            .standard = {Municipalities, Accounts, Classification, Functions, WorkPlaces, Sources, Banks},
            .startOfWork = QDate(2026, 1, 1)};
}
