#pragma once

#include "toolkit/data/database.h"

// The work places in the users' rights: each has a bit of its own. Who may administer users has all of them,
// for every source: he hands out only what he has.

quint16 bitOf(int workPlace); // 1 to 16

// Whether a user who is no administrator has the place.
bool isGivenToOthers(TDatabase *budget, int bit);

// A mask may have had the bit before there was such a place; it is no right of anybody but administrators.
void giveToAdministrators(TDatabase *budget, int bit);
void takeFromAdministrators(TDatabase *budget, int bit);

// Raises in words when all sixteen are taken.
int lowestFreeNumber(TDatabase *budget);
