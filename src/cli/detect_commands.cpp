// The subcommands that bring image files in: detect, which shows what adding one image to a new document
// finds on it, and import, which adds images to a document and saves it.

#include <algorithm>
#include <memory>

#include "cli/doc_commands.h"
#include "cli/image_options.h"
#include "cli/stderr_prompt.h"
#include "cli/subcommand.h"
#include "textures/image_commands.h"

namespace kovra::cli {

namespace {

// Adds the image at `path` to `doc` as a new image, with detection; false after the failure was told.
bool AddImage(WirrelDoc& doc, const std::string& path, aurel::Prompt& prompt) {
    SelectionTracker textureSelection;
    SelectionTracker imageSelection;
    const CommandImgLoad load(doc, {AbsolutePath(path)}, prompt, textureSelection, imageSelection,
                              kImgLoadAdd, false);
    return load.succeeded;
}

Json Marks(const std::vector<TexMark>& marks) {
    Json list = Json::array();
    for (const auto& [u, v] : marks) {
        list.push_back(Json::array({u, v}));
    }
    return list;
}

// The image of a new document after detection, with its textures in document order.
Json DetectJson(const WirrelDoc& doc) {
    const WirrelTexImage& image = *doc.images.front();
    // Regions are labelled 1, 2, ... in the order found, so the highest label counts them all, the ones
    // the filters dropped included.
    const std::vector<std::uint32_t>& cells = image.mask.cells;
    const std::uint32_t regions = cells.empty() ? 0 : *std::max_element(cells.begin(), cells.end());
    Json textures = Json::array();
    const std::vector<WirrelTexture>& list = doc.Wirrel().textures;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const WirrelTexture& t = list[i];
        const auto marks = image.marks.find(static_cast<std::int32_t>(i));
        textures.push_back({{"x", t.x},
                            {"y", t.y},
                            {"w", t.width},
                            {"h", t.height},
                            {"marks", marks == image.marks.end() ? Json::array() : Marks(marks->second)}});
    }
    return {{"width", image.surface.Width()},
            {"height", image.surface.Height()},
            {"colorKey", image.colorKey},
            {"regions", regions},
            {"textures", textures}};
}

}  // namespace

Subcommand AddDetect(CLI::App& tool) {
    CLI::App* app = tool.add_subcommand(
        "detect", "print the textures that adding IMAGE to a new document finds on it, as one JSON object");
    struct Arguments {
        std::string image;
        bool colorKey = false;
    };
    auto arguments = std::make_shared<Arguments>();
    app->add_option("IMAGE", arguments->image, "the picture to read")->required();
    AddColorKeyOption(*app, arguments->colorKey);
    return {app, [arguments] {
                const ImageLibrary library;
                ColorKeyPrompt prompt(arguments->colorKey);
                WirrelDoc doc;
                if (!AddImage(doc, arguments->image, prompt)) {
                    return 1;
                }
                PrintJson(DetectJson(doc));
                return 0;
            }};
}

Subcommand AddImport(CLI::App& tool) {
    CLI::App* app = tool.add_subcommand(
        "import", "add each IMAGE to IN as a new image with its textures detected, and save it to OUT");
    struct Arguments {
        std::string in;
        std::string out;
        std::vector<std::string> images;
        bool colorKey = false;
    };
    auto arguments = std::make_shared<Arguments>();
    app->add_option("IN", arguments->in, "the document to read")->required();
    app->add_option("OUT", arguments->out, "the document to write")->required();
    app->add_option("IMAGE", arguments->images, "the pictures to add, in order")->required();
    AddColorKeyOption(*app, arguments->colorKey);
    return {app, [arguments] {
                const ImageLibrary library;
                ColorKeyPrompt prompt(arguments->colorKey);
                WirrelDoc doc;
                std::vector<WirrelImageRecord> records;
                if (!LoadDocument(arguments->in, doc, records, prompt)) {
                    return 1;
                }
                // One command a picture, so that each is asked the colour-key question on its own.
                for (const std::string& image : arguments->images) {
                    if (!AddImage(doc, image, prompt)) {
                        return 1;
                    }
                }
                return SaveDocument(doc, arguments->out, prompt) ? 0 : 1;
            }};
}

}  // namespace kovra::cli
