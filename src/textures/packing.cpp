#include "textures/packing.h"

#include <algorithm>
#include <limits>

namespace kovra {
namespace {

constexpr std::int32_t kNoRoom = std::numeric_limits<std::int32_t>::min() / 2;

// One page: the tree, and beside it what the walk needs to skip a subtree that can't hold a rectangle:
// each node's parent and the largest extents (right - left, bottom - top) of the free leaves below it.
// The extents are each a maximum of their own, so they only ever rule a subtree out when no leaf in it
// could take the rectangle: the placements are those of a walk over every node.
class Page {
public:
    Page(int width, int height, std::size_t reserve) {
        nodes_.reserve(reserve);
        parents_.reserve(reserve);
        roomX_.reserve(reserve);
        roomY_.reserve(reserve);
        Add({0, 0, width - 1, height - 1}, -1);
    }

    // The walk, first child before second; answers true and appends the placement when a leaf took it.
    bool Place(const PackRect& r, int padding, int pageNumber, std::vector<PackRect>& output) {
        const std::int32_t needX = r.right - r.left + padding;
        const std::int32_t needY = r.bottom - r.top + padding;
        stack_.clear();
        stack_.push_back(0);
        while (!stack_.empty()) {
            const std::int32_t n = stack_.back();
            stack_.pop_back();
            if (roomX_[n] < needX || roomY_[n] < needY) {
                continue;
            }
            const PackNode node = nodes_[n];
            if (node.first != 0) {
                stack_.push_back(node.second);
                stack_.push_back(node.first);
                continue;
            }
            const std::int32_t dw = (node.right - node.left) - needX;
            const std::int32_t dh = (node.bottom - node.top) - needY;
            if (dw < 0 || dh < 0) {
                continue;
            }
            if (dw == 0 && dh == 0) {
                nodes_[n].occupant = r.texture;
                output.push_back({node.left, node.top, node.right - padding, node.bottom - padding, r.texture,
                                  pageNumber});
                Refresh(n);
                return true;
            }
            // A tie cuts across the height.
            PackNode a = node;
            PackNode b = node;
            a.first = b.first = a.second = b.second = 0;
            if (dh < dw) {
                a.right = node.left + (r.right - r.left) + padding;
                b.left = a.right + 1;
            } else {
                a.bottom = node.top + (r.bottom - r.top) + padding;
                b.top = a.bottom + 1;
            }
            const std::int32_t first = Add(a, n);
            const std::int32_t second = Add(b, n);
            nodes_[n].first = first;
            nodes_[n].second = second;
            Refresh(second);
            stack_.push_back(second);
            stack_.push_back(first);
        }
        return false;
    }

private:
    std::int32_t Add(const PackNode& node, std::int32_t parent) {
        nodes_.push_back(node);
        parents_.push_back(parent);
        roomX_.push_back(node.right - node.left);
        roomY_.push_back(node.bottom - node.top);
        return static_cast<std::int32_t>(nodes_.size()) - 1;
    }

    // Recomputes the room of `n` and of the nodes above it after a change below.
    void Refresh(std::int32_t n) {
        for (; n >= 0; n = parents_[n]) {
            const PackNode& node = nodes_[n];
            if (node.first != 0) {
                roomX_[n] = std::max(roomX_[node.first], roomX_[node.second]);
                roomY_[n] = std::max(roomY_[node.first], roomY_[node.second]);
            } else if (node.occupant != -1) {
                roomX_[n] = roomY_[n] = kNoRoom;
            }
        }
    }

    std::vector<PackNode> nodes_;
    std::vector<std::int32_t> parents_;
    std::vector<std::int32_t> roomX_;
    std::vector<std::int32_t> roomY_;
    std::vector<std::int32_t> stack_;
};

std::int64_t Area(const PackRect& r) {
    return static_cast<std::int64_t>(r.bottom - r.top + 1) * (r.right - r.left + 1);
}

}  // namespace

void SortPackRects(std::vector<PackRect>& rects) {
    std::stable_sort(rects.begin(), rects.end(),
                     [](const PackRect& a, const PackRect& b) { return Area(a) > Area(b); });
}

int PackRects(const std::vector<PackRect>& input, std::vector<PackRect>& output, int pageWidth,
              int pageHeight, int padding) {
    std::vector<Page> pages;
    pages.emplace_back(pageWidth, pageHeight, 2 * input.size() + 1);
    for (const PackRect& r : input) {
        if (r.right - r.left + 1 > pageWidth || r.bottom - r.top + 1 > pageHeight) {
            break;
        }
        // A rectangle that an empty page can't hold would add pages without end.
        const bool fitsEmpty = (pageWidth - 1) - padding - (r.right - r.left) >= 0 &&
                               (pageHeight - 1) - padding - (r.bottom - r.top) >= 0;
        for (std::size_t p = 0;; ++p) {
            if (pages[p].Place(r, padding, static_cast<int>(p), output)) {
                break;
            }
            if (p + 1 == pages.size()) {
                if (!fitsEmpty) {
                    return 0;
                }
                pages.emplace_back(pageWidth, pageHeight, 1);
            }
        }
    }
    return static_cast<int>(pages.size());
}

}  // namespace kovra
