#pragma once

#include <QString>

// Books, and whatever is copied out of them, are readable by their owner alone: files 0600, folders 0700.

// Makes the folder with those above it that are missing; folders that exist stay as they are. False when it
// could not be made.
bool makePrivateFolder(const QString &folder);

// Makes an empty file for the engine to fill: what the engine keeps beside a database gets the database's own
// rights. A file that exists stays as it is. False when it could not be made.
bool makePrivateFile(const QString &file);

// Every file and folder that this program makes from now on is its owner's alone.
void keepNewFilesPrivate();
