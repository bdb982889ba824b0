// The pack subcommand: the textures of some of a document's images move onto new page images, which are
// written to files and take the place of the packed images in the saved document.

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <memory>

#include "cli/doc_commands.h"
#include "cli/image_options.h"
#include "cli/stderr_prompt.h"
#include "cli/subcommand.h"
#include "images/vyl_lib.h"
#include "textures/document_images.h"
#include "textures/pack_command.h"
#include "textures/pack_trial.h"

namespace kovra::cli {

namespace {

// Pages larger than this could not be written by the image library.
constexpr int kMaxPageSide = 16384;

struct PageSize {
    int width = 0;
    int height = 0;
};

// "WxH" with both sides from 1 to kMaxPageSide, the whole text or nothing.
bool ParsePageSize(const std::string& text, PageSize& size) {
    const std::size_t x = text.find('x');
    if (x == std::string::npos) {
        return false;
    }
    const char* begin = text.data();
    const char* end = begin + text.size();
    const auto width = std::from_chars(begin, begin + x, size.width);
    const auto height = std::from_chars(begin + x + 1, end, size.height);
    return width.ec == std::errc() && width.ptr == begin + x && height.ec == std::errc() &&
           height.ptr == end && size.width >= 1 && size.width <= kMaxPageSide && size.height >= 1 &&
           size.height <= kMaxPageSide;
}

CLI::Validator PageSizeText() {
    return CLI::Validator(
        [](std::string& text) {
            PageSize size;
            return ParsePageSize(text, size)
                       ? std::string()
                       : text + " is not a page size WxH from 1x1 to " + std::to_string(kMaxPageSide) + "x" +
                             std::to_string(kMaxPageSide);
        },
        "WxH", "page size");
}

CLI::Validator ImageFileName() {
    return CLI::Validator(
        [](std::string& text) {
            return VylUtilGetFileFormat(text.c_str(), nullptr) != kVylUnknown
                       ? std::string()
                       : text +
                             " does not end in an image extension (bmp, png, tga, jpg, jpeg, gif, pct, psd)";
        },
        "PAGEFILE", "image file name");
}

// One page: the name itself. Several: its folder and stem, the page number, and its extension.
std::vector<std::string> PageFiles(const std::string& name, int pages) {
    if (pages == 1) {
        return {name};
    }
    const std::filesystem::path path(name);
    std::vector<std::string> files;
    for (int n = 0; n < pages; ++n) {
        const std::string file = path.stem().string() + std::to_string(n) + path.extension().string();
        files.push_back((path.parent_path() / file).string());
    }
    return files;
}

struct Arguments {
    std::string in;
    std::string out;
    std::string pageFile;
    std::string size;
    std::vector<std::string> images;
};

// The images to pack, ascending and each once: the listed ones, or every image. False after a line on
// stderr when one is not in the document or its picture could not be read.
bool CheckedImages(const Arguments& arguments, const WirrelDoc& doc, std::vector<int>& checked) {
    const int count = static_cast<int>(doc.images.size());
    checked.clear();
    for (const std::string& text : arguments.images) {
        int index = 0;
        ParseIndex(text, index);
        if (index >= count) {
            Fail("image " + text + " is not one of the " + std::to_string(count) + " images");
            return false;
        }
        checked.push_back(index);
    }
    if (arguments.images.empty()) {
        for (int i = 0; i < count; ++i) {
            checked.push_back(i);
        }
    }
    std::sort(checked.begin(), checked.end());
    checked.erase(std::unique(checked.begin(), checked.end()), checked.end());
    for (int index : checked) {
        const std::shared_ptr<WirrelTexImage>& image = doc.images[index];
        if (image && !image->path.empty() && image->surface.IsEmpty()) {
            Fail("cannot read image " + std::to_string(index) + ", " + image->path.Utf8());
            return false;
        }
    }
    return true;
}

int Pack(const Arguments& arguments) {
    const ImageLibrary library;
    StderrPrompt prompt;
    WirrelDoc doc;
    std::vector<WirrelImageRecord> records;
    if (!ReadDocument(arguments.in, doc, records, prompt)) {
        return 1;
    }
    // A picture that can't be read is told about once, below, and only when it is to be packed.
    aurel::SilentPrompt silent;
    SelectionTracker textureSelection;
    SelectionTracker imageSelection;
    LoadDocumentImages(doc, records, silent, textureSelection, imageSelection);
    std::vector<int> checked;
    if (!CheckedImages(arguments, doc, checked)) {
        return 1;
    }

    PageSize size;
    PackTrial trial;
    if (ParsePageSize(arguments.size, size)) {
        trial = RunPackTrial(doc.Wirrel(), checked, size.width, size.height);
    } else {
        PackSize found = AutoPackSize(doc, checked, 1024, 1024);
        size = {found.width, found.height};
        trial = std::move(found.trial);
    }
    if (!trial.Stands()) {
        return Fail(trial.message);
    }

    const std::vector<std::string> files = PageFiles(arguments.pageFile, trial.pages);
    std::vector<aurel::DualString> paths;
    for (const std::string& file : files) {
        paths.emplace_back(AbsolutePath(file));
    }
    const CommandTexPack pack(checked, paths, imageSelection, doc, size.width, size.height);
    const std::size_t base = doc.images.size() - files.size();
    for (std::size_t page = 0; page < files.size(); ++page) {
        if (!doc.images[base + page]->Save(paths[page])) {
            return Fail("cannot write " + files[page]);
        }
    }
    if (!SaveDocument(doc, arguments.out, prompt)) {
        return 1;
    }
    PrintJson({{"pages", trial.pages}, {"width", size.width}, {"height", size.height}, {"files", files}});
    return 0;
}

}  // namespace

Subcommand AddPack(CLI::App& tool) {
    CLI::App* app = tool.add_subcommand(
        "pack", "pack the textures of IN's images onto new pages written to PAGEFILE, and save it to OUT");
    auto arguments = std::make_shared<Arguments>();
    app->add_option("IN", arguments->in, "the document to read")->required();
    app->add_option("OUT", arguments->out, "the document to write")->required();
    app->add_option("PAGEFILE", arguments->pageFile,
                    "the page image; with several pages, its name with the page number before the extension")
        ->required()
        ->check(ImageFileName());
    app->add_option("--size", arguments->size, "the page size (default: the smallest from 1024x1024 down)")
        ->check(PageSizeText());
    app->add_option("--images", arguments->images, "the images to pack, by index (default: all)")
        ->delimiter(',')
        ->check(IndexText());
    return {app, [arguments] { return Pack(*arguments); }};
}

}  // namespace kovra::cli
