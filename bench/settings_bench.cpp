// Reading a settings file of a few megabytes, as the editor does at start-up, against reading the same
// file's bytes in one call (times_read: the load's time over the plain read's).

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "settings/bin_stream.h"
#include "settings/settings_store.h"

namespace {

using Clock = std::chrono::steady_clock;

double Seconds(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

// A file of `megabytes` MB of `line`, repeated, in the temporary folder.
std::string MakeFile(const std::string& name, const std::string& line, int megabytes) {
    const std::string path = (std::filesystem::temp_directory_path() / name).string();
    std::ofstream out(path, std::ios::binary);
    out << "[App]\n";
    for (std::size_t written = 0; written < static_cast<std::size_t>(megabytes) << 20;
         written += line.size()) {
        out << line;
    }
    return path;
}

void LoadSettings(benchmark::State& state, const std::string& line) {
    const std::string path = MakeFile("kovra-settings-bench.cfg", line, static_cast<int>(state.range(0)));
    std::vector<char> bytes(std::filesystem::file_size(path));
    double loadSeconds = 0;
    double readSeconds = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        aurel::SettingsStore store;
        aurel::FileStream stream;
        aurel::OpenRegularFile(stream, path);
        store.Load(stream);
        benchmark::DoNotOptimize(store.Sections().size());
        const auto middle = Clock::now();
        std::FILE* file = std::fopen(path.c_str(), "rb");
        benchmark::DoNotOptimize(std::fread(bytes.data(), 1, bytes.size(), file));
        std::fclose(file);
        const auto end = Clock::now();
        loadSeconds += Seconds(start, middle);
        readSeconds += Seconds(middle, end);
        state.SetIterationTime(Seconds(start, middle));
    }
    state.counters["times_read"] = loadSeconds / readSeconds;
    std::filesystem::remove(path);
}

void BlankLines(benchmark::State& state) {
    LoadSettings(state, "\n");
}

void KeyLines(benchmark::State& state) {
    LoadSettings(state, "Key = 1, 2, 3\r\n");
}

}  // namespace

BENCHMARK(BlankLines)->Arg(5)->ArgName("MB")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(KeyLines)->Arg(5)->ArgName("MB")->UseManualTime()->Unit(benchmark::kMillisecond);
