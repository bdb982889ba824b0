#pragma once
// Recovery copies of the document being edited, so that a crash loses at most the work since the last
// copy. Each editing session writes its copy atomically into the recovery folder as "<session>.ske",
// with "<session>.path" beside it holding the document's own path (empty for a document never saved),
// and holds a lock on "<session>.lock" for as long as it lives. A clean save or close removes the three.
// Copies whose lock nobody holds were left by a session that ended without removing them: a crash.
//
// The editor writes a copy every two minutes while the document has unsaved changes, removes it on a
// clean save or close, and at start-up offers the leftovers: Restore loads one as an unsaved document
// that remembers its original path for Save; Discard deletes it.

#include <string>
#include <vector>

#include "base/prompt.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// $XDG_STATE_HOME/Kovra/recovery, or ~/.local/state/Kovra/recovery when that variable is unset or empty.
std::string RecoveryFolder();

// A copy left by a session that ended without removing it.
struct RecoveryCopy {
    std::string file;          // the copy itself, a document
    std::string originalPath;  // where the document was saved before; empty when it never was
};

class RecoveryStore {
public:
    explicit RecoveryStore(std::string folder = RecoveryFolder());
    ~RecoveryStore();
    RecoveryStore(const RecoveryStore&) = delete;
    RecoveryStore& operator=(const RecoveryStore&) = delete;

    // Writes this session's copy of `doc`, replacing the one before; the document itself is unchanged.
    // `window` answers the questions a save may ask (an image that can't be reached relatively): the
    // editor passes one that answers safely without showing anything. On false, `why` gets the reason.
    bool Write(const WirrelDoc& doc, aurel::Prompt& window, std::string* why = nullptr);

    // Removes this session's copy, after the document was saved or closed cleanly.
    void Remove();

    // The copies that sessions which are no longer running left behind, oldest first.
    std::vector<RecoveryCopy> Leftovers() const;

    // Loads a leftover copy into `doc` as an unsaved document whose path is the original one, with the
    // image records to load as after Open. The copy stays until it is discarded.
    static bool Restore(const RecoveryCopy& copy, WirrelDoc& doc, aurel::Prompt& window,
                        std::vector<WirrelImageRecord>& imagesOut);
    static void Discard(const RecoveryCopy& copy);

    const std::string& Folder() const { return folder_; }

private:
    std::string File(const std::string& extension) const;

    std::string folder_;
    std::string session_;
    int lock_ = -1;
};

}  // namespace kovra
