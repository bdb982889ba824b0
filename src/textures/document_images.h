#pragma once
// The pictures of a document just read from its file: each image record becomes a slot of the image
// list, in order, loaded as an opened document loads its images (its colour key from the record, no
// question asked), and the textures on it get their marks. A slot keeps its place whatever happens to its
// file, so that textures and skins keep pointing at the right image.

#include <vector>

#include "base/prompt.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "doc/wirrel_file.h"

namespace kovra {

// An empty path gives an empty slot. A missing file is told about through `window` and gives an image
// without pixels, which keeps the file's path; so does a file that can't be read.
void LoadDocumentImages(WirrelDoc& document, const std::vector<WirrelImageRecord>& records,
                        aurel::Prompt& window, SelectionTracker& textureSelection,
                        SelectionTracker& imageSelection);

}  // namespace kovra
