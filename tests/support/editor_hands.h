#pragma once

#include "tests/support/message_box.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

// What a user does with an editor; a test class has it as a base.
struct EditorHands {
    // The line that the column is typed in, also inside a control of several parts.
    static QLineEdit *edit(QWidget &dialog, const char *column)
    {
        auto *found = dialog.findChild<QWidget *>(column);
        auto *line = qobject_cast<QLineEdit *>(found);
        return line || !found ? line : found->findChild<QLineEdit *>();
    }
    static void save(QWidget &dialog) { pressButton(dialog, "Išsaugoti"); }
    static void leaveUnsaved(QDialog &dialog) { dialog.reject(); }
    // Saves and expects to be refused; the dialog stays open.
    static QString refusal(QWidget &dialog)
    {
        NextBoxes told{QMessageBox::Ok};
        save(dialog);
        EXPECT_TRUE(dialog.isVisible());
        return told.at(0).text;
    }
};
