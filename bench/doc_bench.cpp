// Load and save of a large document (20 animations of 50 key frames of 100 pins), beside a plain copy of
// the same file made in the same run. The ratios printed at the end are the figures that matter: the
// time to read or write the document in units of the time the file system takes to copy its bytes.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

#include "base/prompt.h"
#include "doc/wirrel_doc.h"
#include "doc/wirrel_reader.h"
#include "doc/wirrel_writer.h"
#include "ratio_reporter.h"

namespace {

namespace fs = std::filesystem;

// A temporary folder holding the source document, removed at the end of the program.
class Files {
public:
    Files() {
        std::string pattern = (fs::temp_directory_path() / "kovra-bench-XXXXXX").string();
        folder_ = mkdtemp(pattern.data()) ? pattern : fs::temp_directory_path().string();
        WirrelDoc().Save(Source(), true, prompt_);
    }
    ~Files() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    std::string Source() const { return (folder_ / "source.ske").string(); }
    std::string Target() const { return (folder_ / "target.ske").string(); }

private:
    // 20 animations x 50 key frames x 100 pins, with skins and events in use.
    static kovra::WirrelDoc WirrelDoc() {
        kovra::WirrelDoc doc;
        doc.Reset(false);
        kovra::Wirrel& w = doc.Wirrel();
        for (int p = 0; p < 100; ++p) {
            w.pinNames.push_back(kovra::MakeName("pin " + std::to_string(p)));
            w.skins.push_back({p % 10, 0.1f * p, 0.2f, 1.0f, 1.5f, 0.3f, -1});
        }
        w.textures.assign(10, {0, 0, 0, 32, 32});
        w.events.assign(50, {0, 1, {}});
        kovra::WirrelKey key;
        for (int p = 0; p < 100; ++p) {
            key.pins.push_back({.angle = 0.01f * p, .length = 1.0f + p, .skin = p, .parent = p - 1, .id = p});
        }
        for (int a = 0; a < 20; ++a) {
            doc.AddAnim("anim " + std::to_string(a), kovra::kAnimEmpty, -1);
            doc.CurrentAnim().keys.assign(50, key);
        }
        doc.SetImage(
            -1, std::make_shared<kovra::WirrelTexImage>((fs::temp_directory_path() / "sheet.png").string()));
        return doc;
    }

    fs::path folder_;
    aurel::SilentPrompt prompt_;
};

const Files& TheFiles() {
    static const Files files;
    return files;
}

void BM_CopyFile(benchmark::State& state) {
    const Files& files = TheFiles();
    for (auto _ : state) {
        fs::copy_file(files.Source(), files.Target(), fs::copy_options::overwrite_existing);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(files.Source())));
}

void BM_Load(benchmark::State& state) {
    const Files& files = TheFiles();
    aurel::SilentPrompt prompt;
    kovra::WirrelDoc doc;
    std::vector<kovra::WirrelImageRecord> images;
    for (auto _ : state) {
        if (!doc.Load(files.Source(), prompt, images, false)) {
            state.SkipWithError("load failed");
        }
    }
}

void BM_Save(benchmark::State& state) {
    const Files& files = TheFiles();
    aurel::SilentPrompt prompt;
    kovra::WirrelDoc doc;
    std::vector<kovra::WirrelImageRecord> images;
    doc.Load(files.Source(), prompt, images, false);
    for (const kovra::WirrelImageRecord& image : images) {
        doc.SetImage(-1, std::make_shared<kovra::WirrelTexImage>(image.path));
    }
    for (auto _ : state) {
        if (!doc.Save(files.Target(), true, prompt)) {
            state.SkipWithError("save failed");
        }
    }
}

void BM_LoadSave(benchmark::State& state) {
    const Files& files = TheFiles();
    aurel::SilentPrompt prompt;
    kovra::WirrelDoc doc;
    std::vector<kovra::WirrelImageRecord> images;
    for (auto _ : state) {
        if (!doc.Load(files.Source(), prompt, images, false) || !doc.Save(files.Target(), true, prompt)) {
            state.SkipWithError("load or save failed");
        }
    }
}

// The reader's and writer's own share, in memory, without the file system.
void BM_ReadBytes(benchmark::State& state) {
    aurel::FileStream stream;
    std::vector<std::uint8_t> bytes;
    aurel::OpenBinReader(stream, TheFiles().Source());
    kovra::ReadAllBytes(stream, bytes);
    kovra::Wirrel wirrel;
    std::vector<kovra::WirrelImageRecord> images;
    for (auto _ : state) {
        kovra::WirrelEditorData editor;
        if (!kovra::ReadWirrel(wirrel, images, bytes) || !kovra::ReadEditorData(bytes, editor)) {
            state.SkipWithError("read failed");
        }
    }
}

void BM_WriteBytes(benchmark::State& state) {
    aurel::SilentPrompt prompt;
    kovra::WirrelDoc doc;
    std::vector<kovra::WirrelImageRecord> images;
    doc.Load(TheFiles().Source(), prompt, images, false);
    for (auto _ : state) {
        benchmark::DoNotOptimize(kovra::WriteWirrel(doc.Wirrel(), images, kovra::WirrelEditorData{}));
    }
}

BENCHMARK(BM_CopyFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Load)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Save)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_LoadSave)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ReadBytes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_WriteBytes)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter("BM_CopyFile", "a plain copy of the same file");
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
