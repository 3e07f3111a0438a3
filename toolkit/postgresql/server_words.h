#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

// The words that a session connects with, by their names.
using ServerWords = QMap<QByteArray, QByteArray>;

// The words of a connection text, completed with those by which a station notices a server that froze and,
// for reading only, with the server's own switch. All others reach the client of the server as they are.
// Raises EDatabaseError when the text is none.
ServerWords serverWords(const QString &connInfo, bool readOnly);

// The same for each server of the list alone, in its order.
QList<ServerWords> wordsOfEachServer(const ServerWords &words);

// What a server that let nobody in says, in words for the user; empty when it will let him in, or be reached,
// without anybody's doing.
QString lastingRefusal(const QString &serverText);

// Raises EConnectionLost for a server that let nobody in: what the user, or who keeps the server, can do
// about it. The refusal has no code, only words; these stay in the error's details.
[[noreturn]] void raiseRefusedConnection(const QString &serverText);
