#include "anim/forward.h"

#include <cmath>

#include "doc/pin_tree.h"

namespace kovra {

namespace {

// A move that translates: the pivot is a root, or the whole selection moves rigidly.
void MoveSelection(Pose& pose, int pivot, int hot, float deltaAngle, float newLength,
                   const std::set<int>& selection, bool rigid) {
    const bool aboutOtherRoot = pose[pivot].Type() == Root && pivot != hot;
    std::vector<WorldPoint> w;
    if (rigid || aboutOtherRoot) {
        WorldPositions(pose, w);
    }
    WirrelPin rec = pose[hot];
    if (aboutOtherRoot) {
        rec.angle = std::atan2(w[hot].y, w[hot].x);
        rec.length = Length(w[hot].x, w[hot].y);
    }
    const float oldX = rec.length * std::cos(rec.angle);
    const float oldY = rec.length * std::sin(rec.angle);
    const float newAngle = NormalizeAngle(rec.angle + deltaAngle);
    const float dx = newLength * std::cos(newAngle) - oldX;
    const float dy = newLength * std::sin(newAngle) - oldY;

    std::set<int> moved = selection;
    if (aboutOtherRoot) {
        moved.insert(pivot);
    } else {
        pose[hot].angle = newAngle;
        pose[hot].length = newLength;
    }
    for (int q : moved) {
        WirrelPin& pin = pose[q];
        const bool isRoot = pin.Type() == Root;
        if (q == hot || (pin.parent >= 0 && moved.contains(pin.parent)) || !(isRoot || rigid)) {
            continue;
        }
        const WorldPoint base = isRoot || pin.parent < 0 ? WorldPoint{} : w[pin.parent];
        const float l = pin.length;
        // The parent's x appears in both terms: that is the established arithmetic of this move.
        const float nx = std::cos(pin.angle) * (l - base.x) + base.x + dx;
        const float ny = std::sin(pin.angle) * (l - base.x) + base.y + dy;
        const float n = Length(nx, ny);
        if (n != 0.0f && l != 0.0f) {
            pin.angle = NormalizeAngle(std::atan2(ny, nx));
            pin.length = n;
        }
    }
    if (!rigid) {
        return;
    }
    // Children outside the moved set keep their place.
    std::vector<WorldPoint> w2;
    WorldPositions(pose, w2);
    Children children;
    BuildChildren(pose, children);
    for (int p : moved) {
        children.ForEach(p, [&](int c) {
            if (moved.contains(c)) {
                return;
            }
            const float vx = w[c].x - w2[p].x;
            const float vy = w[c].y - w2[p].y;
            pose[c].angle = NormalizeAngle(std::atan2(vy, vx));
            pose[c].length = Length(vx, vy);
        });
    }
}

// The pins that turn by the drag's angle: the tops of the selection, or with rotateChildren off every
// selected pin together with the pins between it and a selected ancestor.
std::set<int> TurningPins(const Pose& pose, const std::set<int>& selection, bool rotateChildren) {
    std::set<int> turning;
    for (int s : selection) {
        bool isTop = pose[s].parent >= 0;
        for (int a = pose[s].parent; a >= 0; a = pose[a].parent) {
            if (pose[a].parent < 0 || !selection.contains(a)) {
                continue;
            }
            if (rotateChildren) {
                isTop = false;
                continue;
            }
            for (int p = s; p != a; p = pose[p].parent) {
                turning.insert(p);
            }
            turning.insert(a);
        }
        if (pose[s].Type() == Orientation) {
            int owner = pose[s].parent;
            while (owner >= 0 && pose[owner].Type() == Orientation) {
                owner = pose[owner].parent;
            }
            if (owner >= 0) {
                turning.insert(owner);
            }
        } else if (isTop) {
            turning.insert(s);
        }
    }
    return turning;
}

void TurnAndScale(Pose& pose, int hot, float deltaAngle, float oldLength, float newLength,
                  const std::set<int>& selection, bool rotateChildren) {
    if (deltaAngle != 0.0f) {
        Children children;
        BuildChildren(pose, children);
        std::vector<int> work;
        for (int t : TurningPins(pose, selection, rotateChildren)) {
            pose[t].angle = NormalizeAngle(pose[t].angle + deltaAngle);
            // Attachments and orientations turn with their bone; other children keep their direction.
            work.assign(1, t);
            for (std::size_t k = 0; k < work.size(); ++k) {
                children.ForEach(work[k], [&](int c) {
                    const PinType type = pose[c].Type();
                    if (rotateChildren || type == Attachment || type == Orientation) {
                        pose[c].angle = NormalizeAngle(pose[c].angle + deltaAngle);
                        if (!children.IsEmpty(c)) {
                            work.push_back(c);
                        }
                    }
                });
            }
        }
    }

    int topSelected = -1;
    for (int p = hot; p >= 0; p = pose[p].parent) {
        if (selection.contains(p)) {
            topSelected = p;
        }
    }
    // A zero-length top would make the ratio meaningless; it grows from newLength instead.
    const float ratio = topSelected >= 0 && pose[topSelected].length == 0.0f ? 100.0f : newLength / oldLength;
    for (int s : selection) {
        WirrelPin& pin = pose[s];
        if (pin.parent < 0) {
            continue;
        }
        if (pin.length == 0.0f && s == topSelected) {
            pin.length = newLength;
        }
        pin.length *= ratio;
        pin.scale *= ratio;
    }
}

}  // namespace

bool IsTree(const Pose& pose) {
    // Each pin's chain of parents is walked once: up to a pin already known to lead to a top, which
    // makes the whole check linear whatever the order of the records.
    enum State : std::uint8_t { kUnknown, kOnWalk, kLeadsToTop };
    const int n = static_cast<int>(pose.size());
    std::vector<State> state(pose.size(), kUnknown);
    std::vector<int> walk;
    for (int i = 0; i < n; ++i) {
        walk.clear();
        int p = i;
        while (p >= 0 && state[p] == kUnknown) {
            state[p] = kOnWalk;
            walk.push_back(p);
            p = pose[p].parent;
            if (p >= n) {
                return false;
            }
        }
        if (p >= 0 && state[p] == kOnWalk) {
            return false;  // the walk came back on itself
        }
        for (int w : walk) {
            state[w] = kLeadsToTop;
        }
    }
    return true;
}

bool IsAnchored(const WirrelPin& pin) {
    const PinType type = pin.Type();
    return type == Root ||
           ((pin.flags & kPinHidden) != 0 && (type == Bone || type == Attachment || type == Tail));
}

void Children::Reset(std::size_t count) {
    nodes_.clear();
    nodes_.reserve(count > 0 ? 2 * count - 1 : 0);
    nodes_.resize(count);
}

void Children::Add(int list, int item) {
    Node& head = nodes_[list];
    if (head.item < 0) {
        head.item = item;
        return;
    }
    const auto added = static_cast<std::int32_t>(nodes_.size());
    nodes_.push_back(Node{head.next, item});
    nodes_[list].next = added;
}

void BuildChildren(const Pose& pose, Children& out) {
    out.Reset(pose.size());
    for (std::size_t i = 0; i < pose.size(); ++i) {
        if (pose[i].parent >= 0) {
            out.Add(pose[i].parent, static_cast<int>(i));
        }
    }
}

void FindPivot(const Pose& pose, int pin, const std::set<int>& selection, int& top, int& topParent) {
    top = pin;
    topParent = pose[pin].parent;
    for (int q = topParent; q >= 0;) {
        const int g = pose[q].parent;
        const bool orient = pose[top].Type() == Orientation;
        if (g < 0 && !orient) {
            return;
        }
        if (orient || selection.contains(q)) {
            top = q;
            topParent = g;
        }
        q = g;
    }
}

void PoseForward(Pose& pose, int pivot, int hot, float deltaAngle, float oldLength, float newLength,
                 const std::set<int>& selection, bool rotateChildren, bool rigid) {
    if (pose[pivot].Type() == Root || rigid) {
        MoveSelection(pose, pivot, hot, deltaAngle, newLength, selection, rigid);
    } else {
        TurnAndScale(pose, hot, deltaAngle, oldLength, newLength, selection, rotateChildren);
    }
}

void DragForward(Pose& pose, int hot, const ForwardDrag& drag, const ViewTransform& view,
                 const std::set<int>& selection, bool rotateChildren) {
    int top = hot;
    int topParent = -1;
    FindPivot(pose, hot, selection, top, topParent);
    const ScreenScale s = view.ScreenToWorld();
    const PinPixel p = topParent >= 0 ? view.pinPixels[topParent] : PinPixel{};
    const PinPixel& h0 = view.pinPixels[hot];

    // The mouse pixels lose the origin and the parent before scaling; the grabbed point only the parent.
    const Vec2 a{(drag.grabbed.x - p.x) * s.sx, (drag.grabbed.y - p.y) * s.sy};
    const Vec2 b{(drag.pixelStart.x - s.ox - p.x) * s.sx, (drag.pixelStart.y - s.oy - p.y) * s.sy};
    const Vec2 c{(drag.pixelNow.x - s.ox - p.x) * s.sx, (drag.pixelNow.y - s.oy - p.y) * s.sy};
    const Vec2 h{(h0.x - p.x) * s.sx, (h0.y - p.y) * s.sy};
    const float oldAngle = std::atan2(h.y, h.x);
    const float oldLength = Length(h.x, h.y);

    float newAngle = oldAngle;
    float newLength = oldLength;
    if (topParent < 0) {
        const Vec2 n{a.x + c.x - b.x, a.y + c.y - b.y};
        newAngle = std::atan2(n.y, n.x);
        newLength = Length(n.x, n.y);
    } else {
        if (drag.mode != kDragLength) {
            newAngle = std::atan2(a.y, a.x) + std::atan2(c.y, c.x) - std::atan2(b.y, b.x);
        }
        if (drag.mode != kDragRotate) {
            newLength = (Length(c.x, c.y) - Length(b.x, b.y)) + Length(a.x, a.y);
        }
    }
    PoseForward(pose, top, hot, newAngle - oldAngle, oldLength, newLength, selection, rotateChildren, false);
}

}  // namespace kovra
