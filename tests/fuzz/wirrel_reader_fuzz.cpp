// Feeds arbitrary bytes to both passes of the document reader. Whatever the bytes, the reader must end,
// without touching memory it doesn't own and without allocating more than the input can account for.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "doc/wirrel_reader.h"
#include "doc/wirrel_writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::uint8_t> bytes(data, data + size);
    kovra::Wirrel wirrel;
    std::vector<kovra::WirrelImageRecord> images;
    aurel::MemoryStream stream(bytes);
    const bool tables = kovra::ReadWirrel(wirrel, images, stream);
    kovra::WirrelEditorData editor;
    if (kovra::ReadEditorData(bytes, editor) && tables) {
        // What was read, once written, reads back to the same bytes.
        const std::vector<std::uint8_t> written = kovra::WriteWirrel(wirrel, images, editor);
        kovra::WirrelEditorData editorAgain;
        if (!kovra::ReadWirrel(wirrel, images, written) || !kovra::ReadEditorData(written, editorAgain) ||
            kovra::WriteWirrel(wirrel, images, editorAgain) != written) {
            __builtin_trap();
        }
    }
    return 0;
}
