#pragma once
// Forward posing: where every pin of a pose lies, the children table that the posing code walks, and how a
// direct move, turn or length change by the user becomes new pin records. Angles are world directions,
// kept in [0, 2π); a pin without parent has polar coordinates about the world origin.

#include <cmath>
#include <cstdint>
#include <set>
#include <vector>

#include "doc/pin_tree.h"
#include "doc/view_transform.h"
#include "doc/wirrel.h"

namespace kovra {

using Pose = std::vector<WirrelPin>;

struct Vec2 {
    float x = 0.0f;
    float y = 0.0f;
};

// The length of (x, y), in single precision as the posing arithmetic wants it.
inline float Length(float x, float y) {
    return std::sqrt(x * x + y * y);
}

// True when every parent index lies inside the pose and no chain of parents loops.
bool IsTree(const Pose& pose);

// A root, or a hidden bone, attachment or tail.
bool IsAnchored(const WirrelPin& pin);


// One singly linked list of pins per pin, stored in a single vector of nodes: the first `count` nodes are
// the list heads (an empty list has a head with item -1), the other `count` - 1 hold further entries.
// A new entry of a list that already has one goes directly behind the head.
class Children {
public:
    struct Node {
        std::int32_t next = -1;
        std::int32_t item = -1;
    };

    void Reset(std::size_t count);
    void Add(int list, int item);
    bool IsEmpty(int list) const { return nodes_[list].item < 0; }

    template <class F>
    void ForEach(int list, F&& visit) const {
        if (nodes_[list].item < 0) {
            return;
        }
        for (int n = list; n >= 0; n = nodes_[n].next) {
            visit(static_cast<int>(nodes_[n].item));
        }
    }

    const std::vector<Node>& Nodes() const { return nodes_; }

private:
    std::vector<Node> nodes_;
};

// The children of every pin of the pose.
void BuildChildren(const Pose& pose, Children& out);

// Where a drag of the selection acts when `pin` is grabbed: the pin that turns (`top`) and its parent.
void FindPivot(const Pose& pose, int pin, const std::set<int>& selection, int& top, int& topParent);

// Turns the selection by `deltaAngle` and scales it by newLength / oldLength, as the user's forward drag
// of `hot` about `pivot` asks. Rigid moves and moves about a root translate instead.
void PoseForward(Pose& pose, int pivot, int hot, float deltaAngle, float oldLength, float newLength,
                 const std::set<int>& selection, bool rotateChildren, bool rigid);

enum DragMode : int { kDragMove = 0, kDragRotate = 1, kDragLength = 2 };

// A forward drag: the point grabbed (pose-space pixels, relative to the world origin), the mouse pixel where
// the drag began and where it is now.
struct ForwardDrag {
    Vec2 grabbed;
    Vec2 pixelStart;
    Vec2 pixelNow;
    int mode = kDragMove;
};

// Turns the drag of `hot` into new angles and lengths of the selection (through FindPivot and
// PoseForward). The view's pinPixels give the pins' positions in the same space as the grabbed point.
void DragForward(Pose& pose, int hot, const ForwardDrag& drag, const ViewTransform& view,
                 const std::set<int>& selection, bool rotateChildren);

}  // namespace kovra
