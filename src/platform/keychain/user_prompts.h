#pragma once

#include <vector>

#include "platform/async/task.h"
#include "platform/keychain/glib_handles.h"

namespace orvane {

// What the service asks the user about, in a dialog of its own. Each ends when the user has
// answered or the service is gone; cancelling ends the waiting and leaves the dialog. Whether
// anything has come of it shows when the items or the collection are looked for again.

/// An item or a collection, for a prompt about it.
template <class T>
GRef<GDBusProxy> asProxy(const GRef<T>& object) {
  return GRef<GDBusProxy>::adopt(g_object_ref(object.get()));
}

/// Items or collections to be unlocked, in one dialog where they belong together.
[[nodiscard]] Task<void> askToUnlock(std::vector<GRef<GDBusProxy>> objects);

/// A new collection for the items of every program, with a password of the user's choice.
[[nodiscard]] Task<void> askForDefaultCollection();

}  // namespace orvane
