#pragma once

#include <QString>

// The password of the environment variable VELMORA_PASSWORD, else the first line of the standard input, asked
// for and typed unseen when that is a terminal. It never stands among the words of the command, which every
// user of the machine can read.
QString readPassword();
