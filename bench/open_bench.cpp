// Opening a document of 25,000 textures on 50 images as the editor opens it: the file read, the images
// decoded, every texture registered with its image, the listeners told. Beside it, a plain read of the
// same bytes (the document and its 50 picture files) made in the same run; the ratio printed at the end
// is the figure that matters.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "base/prompt.h"
#include "commands/command_stack.h"
#include "doc/wirrel_doc.h"
#include "images/vyl_lib.h"
#include "ratio_reporter.h"
#include "state/file_workflow.h"
#include "state/headless_hub.h"

namespace {

namespace fs = std::filesystem;

constexpr int kImages = 50;
constexpr int kSide = 512;
constexpr int kColumns = 25;
constexpr int kRows = 20;  // 500 textures an image

// A temporary folder holding the document and its sprite sheets, removed at the end of the program.
class Files {
public:
    Files() {
        std::string pattern = (fs::temp_directory_path() / "kovra-open-XXXXXX").string();
        folder_ = mkdtemp(pattern.data()) ? pattern : fs::temp_directory_path().string();
        kovra::WirrelDoc doc;
        for (int i = 0; i < kImages; ++i) {
            auto image = std::make_shared<kovra::WirrelTexImage>(Sheet(i));
            Draw(image->surface, i);
            image->Save(image->path);
            doc.SetImage(-1, image);
            AddTextures(doc, i);
        }
        aurel::SilentPrompt prompt;
        doc.Save(Document(), true, prompt);
    }
    ~Files() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    std::string Document() const { return (folder_ / "large.ske").string(); }
    std::string Sheet(int i) const { return (folder_ / ("sheet" + std::to_string(i) + ".png")).string(); }
    fs::path Recovery() const { return folder_ / "recovery"; }

private:
    // One sprite a cell, different on every sheet, so that the pictures don't compress to nothing.
    static void Draw(aurel::ImageSurface& surface, int seed) {
        surface.Resize(kSide, kSide);
        surface.Clear(0x00000000);
        const float w = static_cast<float>(kSide) / kColumns;
        const float h = static_cast<float>(kSide) / kRows;
        for (int r = 0; r < kRows; ++r) {
            for (int c = 0; c < kColumns; ++c) {
                const auto colour = static_cast<std::uint32_t>(
                    0xFF000000u | ((seed * 40503u + r * 977u + c * 131u) & 0xFFFFFFu));
                surface.FillCircle((c + 0.5f) * w, (r + 0.5f) * h,
                                   0.3f * w + static_cast<float>((r + c + seed) % 4), colour);
            }
        }
    }
    static void AddTextures(kovra::WirrelDoc& doc, int image) {
        const int w = kSide / kColumns;
        const int h = kSide / kRows;
        for (int r = 0; r < kRows; ++r) {
            for (int c = 0; c < kColumns; ++c) {
                doc.Wirrel().textures.push_back({image, c * w, r * h, w, h});
            }
        }
    }

    fs::path folder_;
};

const Files& TheFiles() {
    static const Files files;
    return files;
}

std::size_t ReadWhole(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(in), {}};
    return bytes.size();
}

void BM_ReadBytes(benchmark::State& state) {
    const Files& files = TheFiles();
    std::int64_t bytes = 0;
    for (auto _ : state) {
        std::size_t read = ReadWhole(files.Document());
        for (int i = 0; i < kImages; ++i) {
            read += ReadWhole(files.Sheet(i));
        }
        bytes += static_cast<std::int64_t>(read);
    }
    state.SetBytesProcessed(bytes);
}

// Nobody to choose a file: the document is opened by name.
class NoChooser : public kovra::DocumentChooser {
public:
    aurel::DualString ChooseOpen() override { return {}; }
    aurel::DualString ChooseSave() override { return {}; }
};

void BM_Open(benchmark::State& state) {
    const Files& files = TheFiles();
    kovra::WirrelDoc doc;
    kovra::CommandStack stack;
    kovra::HeadlessHub hub;
    kovra::PinClipboard pins;
    kovra::SelectionTracker textures;
    kovra::SelectionTracker images;
    aurel::SilentPrompt prompt;
    NoChooser chooser;
    kovra::CrashRecovery recovery(files.Recovery().string());
    kovra::FileWorkflow workflow({doc, stack, hub, pins, textures, images, prompt, chooser, recovery, [] {},
                                  [] {}, [] {}, [](const aurel::DualString&) {}});
    for (auto _ : state) {
        if (!workflow.Open(files.Document(), true) ||
            doc.Wirrel().textures.size() != kImages * kColumns * kRows || doc.images.size() != kImages ||
            doc.images.back()->surface.IsEmpty()) {
            state.SkipWithError("open failed");
        }
    }
}

BENCHMARK(BM_ReadBytes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Open)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    kovra::VylLibInit();
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter("BM_ReadBytes", "a plain read of the document and its 50 pictures");
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    kovra::VylLibExit();
    return 0;
}
