#pragma once

#include "host/common/package.h"
#include "tests/support/message_box.h"

#include <QMap>

// Somebody who tries whatever there is to try: changes each control and saves after each change, fills what
// is empty, presses every button, calls every action of a list on its first two rows, and answers every
// question by yes. A dialog is left alone once it was saved.
class TryingHands : public ModalExpectation {
public:
    // Opens what the entry names and tries everything there. What it raises is shown and passed like any
    // other message.
    void tryEntry(const TPackageEntry &entry);

    // Whether nothing came that could write: only dialogs that ask for values, and lists that only show.
    bool metNothingThatWrites() const { return met > 0 && writers == 0; }

    bool awaits(QWidget *window) const override;
    void answer(QWidget *window) override;

private:
    void answerBox(class QMessageBox &box);
    void tryWindow(QWidget &window);
    void tryDocument(class TDocumentFrm &document);
    void tryBook(class TBookFrm &book);
    void tryDialog(QWidget &dialog);

    int depth = 0;
    int boxes = 0;
    int met = 0;
    int writers = 0;
    QMap<QString, int> tried; // windows of a class
};
