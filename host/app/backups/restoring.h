#pragma once

class TMainWindow;

// Shows the backups of the open books. What the user chooses to restore takes their place: all documents and
// both sessions are closed, velmora-db restores, the books are opened again, whichever they are then, and he
// logs in anew. The window closes when he gives that up or no books can be opened.
void showBackups(TMainWindow &window);
