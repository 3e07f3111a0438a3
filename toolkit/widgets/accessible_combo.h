#pragma once

// Lets readers of the screen call a drop-down list by its accessible name. Qt gives its contents for the name
// where accessibility is that of X11 and Wayland, so that a filled list is nameless. To be called before the
// lists are used; any further call does nothing.
void nameComboBoxes();
