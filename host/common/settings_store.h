#pragma once

#include <QSettings>
#include <QString>
#include <QWidget>

// The user's settings store. Paths are written with back slashes.
QString GetRegPath();
// Where windows keep their placement and columns: GetRegPath() + "\\Forms".
QString FormsPath();

// True when settings may be written: the store is writable and was read without damage.
bool CanSave();

// Restores the placement of a window, kept under path and the given name, whether it was maximised, and the
// columns of the grids in it as the user arranged them. Nothing kept, or damaged: false, and the window stays
// as it is. A placement outside every screen, or outside the window around it, is moved back. What is kept
// for other columns leaves a grid as it is.
bool ReadFromReg(QWidget *control, const QString &path, const QString &name);

// Stores the placement; with columns true also how the user arranged the columns of the grids in it, by
// object name: a width that a grid gave itself is none of the user's. Does nothing unless CanSave().
void SaveToReg(QWidget *control, const QString &path, const QString &name, bool columns);

// The store itself: one file per organisation and application name.
QSettings &settingsStore();
