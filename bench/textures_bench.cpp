// Detection and packing against baselines timed in the same run: each benchmark runs its operation and
// its baseline by turns, reports the operation's time as its own, the baseline's beside it, and the ratio
// speed_vs_baseline, the baseline's time over the operation's (above 1: faster than the baseline).
// Baselines: a memcpy of the sheet's pixels for detection; for packing a straightforward packer that
// walks every node (its placements are checked to be the same) and stb_rect_pack on the same rectangles.

#include <benchmark/benchmark.h>

#define STB_RECT_PACK_IMPLEMENTATION
#include <stb_rect_pack.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include "base/prompt.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "textures/detection.h"
#include "textures/pack_trial.h"
#include "textures/packing.h"

namespace {

using namespace kovra;

template <class Operation, class Baseline>
void Paired(benchmark::State& state, Operation operation, Baseline baseline) {
    using Clock = std::chrono::steady_clock;
    double operationSeconds = 0, baselineSeconds = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        operation();
        benchmark::ClobberMemory();
        const auto middle = Clock::now();
        baseline();
        benchmark::ClobberMemory();
        const auto end = Clock::now();
        const double operationTime = std::chrono::duration<double>(middle - start).count();
        operationSeconds += operationTime;
        baselineSeconds += std::chrono::duration<double>(end - middle).count();
        state.SetIterationTime(operationTime);
    }
    state.counters["baseline_us"] =
        benchmark::Counter(baselineSeconds * 1e6, benchmark::Counter::kAvgIterations);
    state.counters["speed_vs_baseline"] = baselineSeconds / operationSeconds;
}

// A 4096 x 4096 sheet: one blob in each 64 pixel cell (4096 sprites), some ring-shaped, some touching a
// neighbour at a corner, with specks between them.
std::shared_ptr<WirrelTexImage> Sheet() {
    auto image = std::make_shared<WirrelTexImage>();
    image->surface.Resize(4096, 4096);
    std::mt19937 rng(7);
    for (int cy = 0; cy < 64; ++cy) {
        for (int cx = 0; cx < 64; ++cx) {
            const int rx = 8 + static_cast<int>(rng() % 22);
            const int ry = 8 + static_cast<int>(rng() % 22);
            const bool ring = rng() % 5 == 0;
            const int ox = cx * 64 + 32, oy = cy * 64 + 32;
            for (int y = -ry; y <= ry; ++y) {
                for (int x = -rx; x <= rx; ++x) {
                    const float d =
                        static_cast<float>(x * x) / (rx * rx) + static_cast<float>(y * y) / (ry * ry);
                    if (d <= 1.0f && (!ring || d >= 0.4f)) {
                        image->surface.Row(oy + y)[ox + x] = 0xFF000000u | (rng() & 0xFFFFFF);
                    }
                }
            }
            image->surface.Row(cy * 64 + 1)[cx * 64 + 1] = 0xFF808080u;
        }
    }
    return image;
}

void BM_DetectSheet(benchmark::State& state) {
    WirrelDoc doc;
    auto image = Sheet();
    doc.SetImage(0, image);
    aurel::SilentPrompt window;
    SelectionTracker textures, images;
    std::vector<std::uint8_t> copy(image->surface.ByteSize());
    Paired(
        state,
        [&] {
            int keyChoice = -1;
            ApplyDetection(false, *image, 0, doc, window, textures, keyChoice, images);
        },
        [&] { std::memcpy(copy.data(), image->surface.Row(0), copy.size()); });
    state.counters["textures"] = static_cast<double>(doc.Wirrel().textures.size());
}
BENCHMARK(BM_DetectSheet)->Unit(benchmark::kMillisecond)->UseManualTime();

// Texture sizes as sheets have them: mostly small, some large.
std::vector<PackRect> Rects(int count, int maxSide) {
    std::mt19937 rng(11);
    std::vector<PackRect> rects;
    for (int i = 0; i < count; ++i) {
        const int w = 4 + static_cast<int>(rng() % maxSide), h = 4 + static_cast<int>(rng() % maxSide);
        rects.push_back({0, 0, w - 1, h - 1, i, 0});
    }
    SortPackRects(rects);
    return rects;
}

// The packer that walks every node, as the placement rules read.
int ReferencePack(const std::vector<PackRect>& input, std::vector<PackRect>& output, int width, int height) {
    std::vector<std::vector<PackNode>> pages(1, {PackNode{0, 0, width - 1, height - 1}});
    for (const PackRect& r : input) {
        if (r.right - r.left + 1 > width || r.bottom - r.top + 1 > height) {
            break;
        }
        if (r.right - r.left + 2 > width || r.bottom - r.top + 2 > height) {
            return 0;
        }
        for (std::size_t p = 0;; ++p) {
            std::vector<PackNode>& nodes = pages[p];
            std::vector<int> stack{0};
            bool placed = false;
            while (!stack.empty() && !placed) {
                const int n = stack.back();
                stack.pop_back();
                const PackNode node = nodes[n];
                if (node.first != 0) {
                    stack.push_back(node.second);
                    stack.push_back(node.first);
                    continue;
                }
                if (node.occupant != -1) {
                    continue;
                }
                const int dw = (node.right - node.left) - 1 - (r.right - r.left);
                const int dh = (node.bottom - node.top) - 1 - (r.bottom - r.top);
                if (dw < 0 || dh < 0) {
                    continue;
                }
                if (dw == 0 && dh == 0) {
                    nodes[n].occupant = r.texture;
                    output.push_back({node.left, node.top, node.right - 1, node.bottom - 1, r.texture,
                                      static_cast<int>(p)});
                    placed = true;
                    continue;
                }
                PackNode a = node, b = node;
                if (dh < dw) {
                    a.right = node.left + (r.right - r.left) + 1;
                    b.left = a.right + 1;
                } else {
                    a.bottom = node.top + (r.bottom - r.top) + 1;
                    b.top = a.bottom + 1;
                }
                nodes[n].first = static_cast<int>(nodes.size());
                nodes[n].second = static_cast<int>(nodes.size()) + 1;
                nodes.push_back(a);
                nodes.push_back(b);
                stack.push_back(nodes[n].second);
                stack.push_back(nodes[n].first);
            }
            if (placed) {
                break;
            }
            if (p + 1 == pages.size()) {
                pages.push_back({PackNode{0, 0, width - 1, height - 1}});
            }
        }
    }
    return static_cast<int>(pages.size());
}

// stb_rect_pack on pages of the same size, the padding added to each rectangle; the rectangles left over
// go onto the next page.
int StbPack(const std::vector<PackRect>& input, int width, int height) {
    std::vector<stbrp_rect> rects;
    for (const PackRect& r : input) {
        rects.push_back({r.texture, r.right - r.left + 2, r.bottom - r.top + 2, 0, 0, 0});
    }
    std::vector<stbrp_node> nodes(static_cast<std::size_t>(width));
    int pages = 0;
    while (!rects.empty()) {
        stbrp_context context;
        stbrp_init_target(&context, width, height, nodes.data(), width);
        stbrp_pack_rects(&context, rects.data(), static_cast<int>(rects.size()));
        std::erase_if(rects, [](const stbrp_rect& r) { return r.was_packed != 0; });
        ++pages;
    }
    return pages;
}

void BM_PackRects(benchmark::State& state) {
    const std::vector<PackRect> rects = Rects(static_cast<int>(state.range(0)), 60);
    std::vector<PackRect> out, reference;
    int pages = 0;
    Paired(
        state,
        [&] {
            out.clear();
            pages = PackRects(rects, out, 1024, 1024, 1);
        },
        [&] {
            reference.clear();
            ReferencePack(rects, reference, 1024, 1024);
        });
    if (out != reference) {
        state.SkipWithError("placements differ from the reference packer");
    }
    state.counters["pages"] = pages;
}
BENCHMARK(BM_PackRects)->Arg(2000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_PackRectsVsStb(benchmark::State& state) {
    const std::vector<PackRect> rects = Rects(static_cast<int>(state.range(0)), 60);
    std::vector<PackRect> out;
    int stbPages = 0;
    Paired(
        state,
        [&] {
            out.clear();
            PackRects(rects, out, 1024, 1024, 1);
        },
        [&] { stbPages = StbPack(rects, 1024, 1024); });
    state.counters["stb_pages"] = stbPages;
}
BENCHMARK(BM_PackRectsVsStb)->Arg(2000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseManualTime();

// The whole Auto size search over the textures of one image, against one pack at 1024 by 1024 by the
// reference packer: the ratio says how many such packs the search costs.
void BM_AutoSize(benchmark::State& state) {
    WirrelDoc doc;
    doc.SetImage(0, std::make_shared<WirrelTexImage>());
    const std::vector<PackRect> rects = Rects(static_cast<int>(state.range(0)), 20);
    for (const PackRect& r : rects) {
        doc.Wirrel().textures.push_back({0, 0, 0, r.right + 1, r.bottom + 1});
    }
    std::vector<PackRect> sorted = GatherPackRects(doc.Wirrel(), {0});
    SortPackRects(sorted);
    PackSize size;
    Paired(
        state, [&] { size = AutoPackSize(doc, {0}, 1024, 1024); },
        [&] {
            std::vector<PackRect> out;
            ReferencePack(sorted, out, 1024, 1024);
        });
    state.counters["width"] = size.width;
    state.counters["height"] = size.height;
    state.counters["trials"] = size.trials;
}
BENCHMARK(BM_AutoSize)->Arg(2000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace
