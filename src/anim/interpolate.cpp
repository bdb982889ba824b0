#include "anim/interpolate.h"

#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace kovra {

namespace {

// Adds whole turns while the angle is negative (an angle from a damaged file that no turn can change is
// left alone).
float UnwindNegative(float a) {
    if (std::fabs(a) < 1.0e6f) {
        while (a < 0.0f) {
            a += kTwoPi;
        }
    }
    return a;
}

float Lerp(float a, float b, float t) {
    return (b - a) * t + a;
}

// Adds each parent's resolved angle to the relative angles of its children. Hidden records keep their
// relative angle and their mark, and so do the records below them. Each record is resolved once, after
// its parent, whatever the order of the records.
void ResolveRelativeAngles(Pose& out) {
    enum State : std::uint8_t { kOpen, kOnWalk, kFinal, kStuck };
    std::vector<State> state(out.size(), kOpen);
    std::vector<std::size_t> walk;
    for (std::size_t i = 0; i < out.size(); ++i) {
        // Up the open marked records to one whose angle is final: an unmarked record or one resolved
        // before. A hidden marked record, a loop, or a record found stuck before leaves the walk stuck.
        walk.clear();
        std::size_t p = i;
        while (state[p] == kOpen && (out[p].flags & kPinMark) != 0 && (out[p].flags & kPinHidden) == 0) {
            state[p] = kOnWalk;
            walk.push_back(p);
            p = static_cast<std::size_t>(out[p].parent);
        }
        const bool stuck = state[p] != kFinal && (state[p] != kOpen || (out[p].flags & kPinMark) != 0);
        for (auto w = walk.rbegin(); w != walk.rend(); ++w) {
            state[*w] = stuck ? kStuck : kFinal;
            if (!stuck) {
                WirrelPin& pin = out[*w];
                pin.angle += out[static_cast<std::size_t>(pin.parent)].angle;
                pin.flags &= ~kPinMark;
            }
        }
    }
}

// Finds records of a pose by id: the record at the hint when it has the id, else the first with it. The
// table of first records is made on the first miss.
class IdLookup {
public:
    explicit IdLookup(const Pose& pins) : pins_(pins) {}

    int Find(std::int32_t id, int hint) {
        if (hint >= 0 && hint < static_cast<int>(pins_.size()) && pins_[hint].id == id) {
            return hint;
        }
        if (first_.empty() && !pins_.empty()) {
            first_.reserve(pins_.size());
            for (std::size_t i = 0; i < pins_.size(); ++i) {
                first_.emplace(pins_[i].id, static_cast<int>(i));
            }
        }
        const auto found = first_.find(id);
        return found == first_.end() ? -1 : found->second;
    }

private:
    const Pose& pins_;
    std::unordered_map<std::int32_t, int> first_;
};

const WirrelAnim* AnimAt(const Wirrel& wirrel, int index) {
    return index >= 0 && index < static_cast<int>(wirrel.anims.size()) ? &wirrel.anims[index] : nullptr;
}

const WirrelAnim* AnimNamed(const Wirrel& wirrel, const Name32& name) {
    for (const WirrelAnim& anim : wirrel.anims) {
        if (NameOf(anim.name) == NameOf(name)) {
            return &anim;
        }
    }
    return nullptr;
}

bool HasKey(const WirrelAnim* anim, std::uint32_t frameIndex) {
    return anim != nullptr && frameIndex < anim->keys.size();
}

const Pose& KeyPins(const WirrelAnim& anim, std::uint32_t frameIndex) {
    return anim.keys[frameIndex].pins;
}

const Pose& NextKeyPins(const WirrelAnim& anim, std::uint32_t frameIndex) {
    return anim.keys[(frameIndex + 1) % anim.keys.size()].pins;
}

void SampleSkins(const Wirrel& wirrel, const WirrelAnim& anim, std::uint32_t frameIndex, float framePos,
                 std::vector<WirrelSkin>& out) {
    const Pose& a = KeyPins(anim, frameIndex);
    const Pose& b = NextKeyPins(anim, frameIndex);
    IdLookup inB(b);
    const float t = Fraction(framePos);
    out.resize(a.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        const int j = inB.Find(a[i].id, static_cast<int>(i));
        out[i] = InterpolateSkin(SkinOf(wirrel, a[i]), j >= 0 ? SkinOf(wirrel, b[j]) : WirrelSkin{}, t);
    }
}

}  // namespace

float Fraction(float x) {
    return x - std::floor(x);
}

void Interpolate(Pose& out, const Pose& a, const Pose& b, float t) {
    // parent, skin, aabb and id stay those of a.
    out = a;
    std::vector<WorldPoint> worldB;
    const auto world = [&]() -> const std::vector<WorldPoint>& {
        if (worldB.empty()) {
            WorldPositions(b, worldB);
        }
        return worldB;
    };
    const int countB = static_cast<int>(b.size());
    IdLookup inB(b);

    for (std::size_t i = 0; i < a.size(); ++i) {
        const WirrelPin& pinA = a[i];
        WirrelPin& o = out[i];
        o.flags = pinA.flags & ~kPinMark;
        const int j = inB.Find(pinA.id, static_cast<int>(i));
        if (j < 0) {
            continue;
        }
        const WirrelPin& pinB = b[j];

        const int parentA = pinA.parent;
        int parentB = pinB.parent;
        bool sameParent = false;
        if (parentA < 0) {
            sameParent = parentB < 0;
            parentB = -1;
        } else {
            sameParent = parentB >= 0 && parentB < countB && b[parentB].id == a[parentA].id;
            if (!sameParent) {
                parentB = inB.Find(a[parentA].id, parentA);
            }
        }

        if (pinA.Type() == Root) {
            const float xA = pinA.length * std::cos(pinA.angle);
            const float yA = pinA.length * std::sin(pinA.angle);
            float xB = 0.0f;
            float yB = 0.0f;
            if (parentA == parentB && sameParent) {
                xB = pinB.length * std::cos(pinB.angle);
                yB = pinB.length * std::sin(pinB.angle);
            } else {
                xB = world()[j].x;
                yB = world()[j].y;
            }
            const float x = Lerp(xA, xB, t);
            const float y = Lerp(yA, yB, t);
            o.angle = std::atan2(y, x);
            o.length = Length(x, y);
            o.scale = 0.0f;
            continue;
        }

        // Angles relative to the parent's direction. A parent without a parent of its own has only a
        // polar angle about the origin, which says nothing about direction, so it counts as 0.
        const int grandA = parentA >= 0 ? a[parentA].parent : -1;
        const int grandB = parentB >= 0 ? b[parentB].parent : -1;
        float relA = pinA.angle - (grandA >= 0 ? a[parentA].angle : 0.0f);
        const float lenA = pinA.length;
        float relB = 0.0f;
        float lenB = 0.0f;
        if (parentA == parentB && (parentA < 0 || grandA == grandB) && sameParent) {
            relB = pinB.angle - (grandB >= 0 ? b[parentB].angle : 0.0f);
            lenB = pinB.length;
        } else {
            // Measure b across the parents that a has, in b's world space.
            const std::vector<WorldPoint>& w = world();
            const int q = parentA >= 0 ? inB.Find(a[parentA].id, parentA) : -1;
            const int g = grandA >= 0 ? inB.Find(a[grandA].id, grandA) : -1;
            const float baseB = q >= 0 && g >= 0 ? std::atan2(w[q].y - w[g].y, w[q].x - w[g].x) : 0.0f;
            const float vx = q >= 0 ? w[j].x - w[q].x : w[j].x;
            const float vy = q >= 0 ? w[j].y - w[q].y : w[j].y;
            relB = std::atan2(vy, vx) - baseB;
            lenB = Length(vx, vy);
        }
        relA = UnwindNegative(relA);
        relB = UnwindNegative(relB);
        const float direct = std::fabs(relB - relA);
        if (std::fabs((relB - kTwoPi) - relA) < direct) {
            relB -= kTwoPi;
        } else if (std::fabs((relB + kTwoPi) - relA) < direct) {
            relB += kTwoPi;
        }
        float angle = Lerp(relA, relB, t);
        if (angle < 0.0f) {
            angle += kTwoPi;
        }
        if (angle > kTwoPi) {
            angle -= kTwoPi;
        }
        o.angle = angle;
        o.length = Lerp(lenA, lenB, t);
        o.scale = Lerp(pinA.scale, pinB.scale, t);
        if (grandA >= 0) {
            o.flags |= kPinMark;
        }
    }
    ResolveRelativeAngles(out);
}

bool EvaluatePose(const Wirrel& wirrel, const PlayCursor& cursor, Pose& out) {
    const WirrelAnim* anim = AnimAt(wirrel, cursor.animIndex);
    if (!HasKey(anim, cursor.frameIndex)) {
        return false;
    }
    const float t = Fraction(cursor.framePos);
    const WirrelAnim* other = cursor.blending ? AnimNamed(wirrel, cursor.otherAnimName) : nullptr;
    if (!HasKey(other, cursor.otherFrameIndex)) {
        Interpolate(out, KeyPins(*anim, cursor.frameIndex), NextKeyPins(*anim, cursor.frameIndex), t);
        return true;
    }
    // A transition runs from the animation left (at 0) to the current one.
    Pose current;
    Interpolate(current, KeyPins(*anim, cursor.frameIndex), NextKeyPins(*anim, cursor.frameIndex), t);
    Pose left;
    Interpolate(left, KeyPins(*other, cursor.otherFrameIndex), NextKeyPins(*other, cursor.otherFrameIndex),
                Fraction(cursor.otherFramePos));
    Interpolate(out, left, current, Fraction(cursor.blendPos));
    return true;
}

WirrelSkin SkinOf(const Wirrel& wirrel, const WirrelPin& pin) {
    return pin.skin >= 0 && pin.skin < static_cast<int>(wirrel.skins.size()) ? wirrel.skins[pin.skin]
                                                                             : WirrelSkin{};
}

WirrelSkin InterpolateSkin(const WirrelSkin& a, const WirrelSkin& b, float t) {
    if (a.texture < 0) {
        return WirrelSkin{};
    }
    WirrelSkin out = a;
    if (b.texture < 0) {
        return out;
    }
    out.offsetX = Lerp(a.offsetX, b.offsetX, t);
    out.offsetY = Lerp(a.offsetY, b.offsetY, t);
    out.scaleX = Lerp(a.scaleX, b.scaleX, t);
    out.scaleY = Lerp(a.scaleY, b.scaleY, t);
    out.angle = Lerp(a.angle, b.angle, t);
    return out;
}

bool EvaluateSkins(const Wirrel& wirrel, const PlayCursor& cursor, std::vector<WirrelSkin>& out) {
    const WirrelAnim* anim = AnimAt(wirrel, cursor.animIndex);
    if (!HasKey(anim, cursor.frameIndex)) {
        return false;
    }
    const WirrelAnim* other = cursor.blending ? AnimNamed(wirrel, cursor.otherAnimName) : nullptr;
    if (!HasKey(other, cursor.otherFrameIndex)) {
        SampleSkins(wirrel, *anim, cursor.frameIndex, cursor.framePos, out);
        return true;
    }
    // In the order of the blended pose, which is that of the animation left.
    std::vector<WirrelSkin> current;
    SampleSkins(wirrel, *anim, cursor.frameIndex, cursor.framePos, current);
    std::vector<WirrelSkin> left;
    SampleSkins(wirrel, *other, cursor.otherFrameIndex, cursor.otherFramePos, left);
    const Pose& leftPins = KeyPins(*other, cursor.otherFrameIndex);
    const Pose& currentPins = KeyPins(*anim, cursor.frameIndex);
    IdLookup inCurrent(currentPins);
    const float t = Fraction(cursor.blendPos);
    out.resize(left.size());
    for (std::size_t i = 0; i < left.size(); ++i) {
        const int j = inCurrent.Find(leftPins[i].id, static_cast<int>(i));
        out[i] = InterpolateSkin(left[i], j >= 0 ? current[j] : WirrelSkin{}, t);
    }
    return true;
}

}  // namespace kovra
