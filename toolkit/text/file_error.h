#pragma once

#include "toolkit/text/errors.h"

// A file of the disk that cannot be read or written; the message names the file and the reason.
class EFileError : public Exception {
public:
    using Exception::Exception;
};

// What an error number of the system (errno) means to the user, in words that end a sentence: "Nepavyko
// įrašyti failo: diske nebeliko vietos".
QString systemTrouble(int code);
