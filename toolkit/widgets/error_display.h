#pragma once

#include "toolkit/text/errors.h"

class QWidget;

// The default error display: a message box with the error's message and, for an error of the database, the
// server's own text and the statement as details.
void showErrorBox(QWidget *where, const Exception &error);

// What the details of the error display say; empty when there is nothing beyond the message.
QString errorDetails(const Exception &error);
