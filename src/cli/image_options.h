#pragma once
// What the subcommands that read or write pictures share: the image library, started for the length of
// one run, and the answer to the colour-key question given on the command line.

#include <CLI/CLI.hpp>

namespace kovra::cli {

// The image library with its resource limits, from construction to destruction.
class ImageLibrary {
public:
    ImageLibrary();
    ~ImageLibrary();
    ImageLibrary(const ImageLibrary&) = delete;
    ImageLibrary& operator=(const ImageLibrary&) = delete;
};

// Adds --colorkey yes|no to `app`; `convert` is set on yes and stays false otherwise.
void AddColorKeyOption(CLI::App& app, bool& convert);

}  // namespace kovra::cli
