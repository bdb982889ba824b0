#pragma once
// The checked way to turn an image path into the path a document stores: relative to the document's
// file, which is a hard rule of the format. An image that can't be reached relatively (it lies on
// another drive) is copied beside the document when the user agrees; otherwise the save is refused.

#include "base/dual_string.h"
#include "base/prompt.h"

namespace kovra {

// Makes `path` relative to the document file `target` into `out`; an empty path stays empty. `label`
// names the image in the messages. False, after telling the user why, when the save must not go on.
bool MakeRelative(const aurel::DualString& path, const aurel::DualString& target,
                  const aurel::DualString& label, aurel::DualString& out, aurel::Prompt& window);

}  // namespace kovra
