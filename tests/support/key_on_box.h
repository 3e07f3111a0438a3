#pragma once

#include "tests/support/message_box.h"

#include <QTest>

// Answers the next message box with a key.
class KeyOnBox : public OnNextDialog<QMessageBox> {
public:
    explicit KeyOnBox(Qt::Key key) : OnNextDialog([key](QMessageBox &box) { QTest::keyClick(&box, key); }) {}
};
