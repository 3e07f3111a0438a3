#pragma once

#include <QPushButton>

// A button of a dialog. With the focus it wears a frame of its own, so that the default button looks
// different with and without it, in every style.
class TPushButton : public QPushButton {
    Q_OBJECT
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent *event) override;
};
