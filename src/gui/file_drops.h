#pragma once
// Files dropped on a window: each dropped local file's path goes to the listeners. The root of the gui
// tree takes drops for the main window; any other window can take them for itself.

#include "base/dual_string.h"
#include "base/listener_list.h"

class QEvent;

namespace kestrel2::win {

class IGuiWindow;

using DropListeners = aurel::ListenerList<const aurel::DualString&>;

// Takes a drag carrying files and, at the drop, calls the listeners with each local file; true when the
// event was one of the two.
bool HandleFileDrop(QEvent* event, DropListeners& listeners);

// Lets the window's native window take file drops, for as long as it exists.
void AcceptFileDrops(IGuiWindow& window, DropListeners& listeners);

}  // namespace kestrel2::win
