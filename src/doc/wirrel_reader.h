#pragma once
// The .ske reader, in two passes over the bytes of a whole file. ReadWirrel fills the tables and the
// image records from the chunks it knows, skipping the others by their size and checking every chunk's
// size; ReadEditorData walks the chunks again and reads the records of the editor chunk. Neither trusts
// a number from the file: every count is checked against the bytes left before anything is allocated,
// so that a damaged file is refused, never followed.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "doc/wirrel.h"
#include "doc/wirrel_file.h"
#include "settings/bin_stream.h"

namespace kovra {

// The file version of a document head (1, 2 or 3), or 0 when the bytes don't begin with one.
int WirrelVersion(std::span<const std::uint8_t> file);

// Replaces the tables and the image records by those of the file. False for a file of version 1, a
// chunk of a version it doesn't know, a text that doesn't fit, a chunk whose size is wrong, or a file
// that ends before its end chunk.
bool ReadWirrel(Wirrel& wirrel, std::vector<WirrelImageRecord>& imagesOut,
                std::span<const std::uint8_t> file);
// The same over everything in the stream.
bool ReadWirrel(Wirrel& wirrel, std::vector<WirrelImageRecord>& imagesOut, aurel::BinReader& stream);

// Reads the editor chunk's records into `out`, whose defaults stand for what the file doesn't hold.
// False when a record is damaged or the file ends before its end chunk.
bool ReadEditorData(std::span<const std::uint8_t> file, WirrelEditorData& out);

// Reads the whole stream from its start; false for a stream larger than any document.
bool ReadAllBytes(aurel::BinReader& stream, std::vector<std::uint8_t>& out);

// Reads a document file whole. The file must be a regular one, its head is checked from its first bytes
// before the rest is read, and a file larger than ske::kFileLimit is refused unread. On false, `why`
// gets the reason when the file itself was refused; it stays empty when the bytes aren't a document.
bool ReadDocumentFile(const aurel::DualString& path, std::vector<std::uint8_t>& out, std::string* why);

}  // namespace kovra
