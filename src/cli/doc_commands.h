#pragma once
// The document subcommands of kovra-cli (new, dump, resave and check) and the document loading and
// dumping that other subcommands share.

#include <string>
#include <vector>

#include "base/prompt.h"
#include "cli/json_text.h"
#include "doc/wirrel_doc.h"

namespace kovra::cli {

// The absolute form of a path given on the command line; documents store paths relative to their own.
std::string AbsolutePath(const std::string& path);

// Reads `file` into `doc`, with the records of its images; when the file can't be read, one line on
// stderr says so and the answer is false.
bool ReadDocument(const std::string& file, WirrelDoc& doc, std::vector<WirrelImageRecord>& images,
                  aurel::Prompt& prompt);

// Loads `file` as the editor opens a document, with its image slots filled from the records (paths
// only: the tool loads no pictures). The load's own messages go to `prompt`; when the file can't be
// loaded, one line on stderr says so and the answer is false.
bool LoadDocument(const std::string& file, WirrelDoc& doc, std::vector<WirrelImageRecord>& images,
                  aurel::Prompt& prompt);

// Saves `doc` to `file`, image paths made relative to it; when that fails, one line on stderr says why and
// the answer is false. An existing file is replaced only by a whole document.
bool SaveDocument(WirrelDoc& doc, const std::string& file, aurel::Prompt& prompt);

// Everything a document holds, as one JSON object.
Json DumpJson(const WirrelDoc& doc, const std::vector<WirrelImageRecord>& images);

}  // namespace kovra::cli
