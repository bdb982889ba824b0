#include "anim/ik_solver.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace kovra {

namespace {

struct SolverPoint {
    double x = 0.0;
    double y = 0.0;
};

using PointMap = std::map<int, SolverPoint>;

// A path between a target side and a fixed side with the goals of both of its ends.
struct IkChain {
    SolverPoint fixedEnd;   // goal of the last link
    SolverPoint targetEnd;  // goal of the first link
    std::vector<IkLink> path;
    double length = 0.0;
    bool active = true;  // false once laid out straight in this pass
};

// Chains solved together: they start at the same pin, and end at fixed pins or at junctions.
struct IkGroup {
    std::vector<IkChain> chains;
    bool sharedTarget = false;  // at least two chains, all starting at the same pin
    bool reachable = true;
    bool hasFixedEnd = false;
};

constexpr double kTolerance = 1e-5;  // on squared distances
constexpr double kSettled = 1e-7;    // on distances
constexpr int kInnerPasses = 100;

double SquaredDistance(SolverPoint a, SolverPoint b) {
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    return dx * dx + dy * dy;
}

double Distance(SolverPoint a, SolverPoint b) {
    return std::sqrt(SquaredDistance(a, b));
}

// `d` as a unit vector, or as it is when it is too short to have a direction.
SolverPoint Direction(SolverPoint d) {
    const double squared = d.x * d.x + d.y * d.y;
    if (squared > kTolerance) {
        const double length = std::sqrt(squared);
        return SolverPoint{d.x / length, d.y / length};
    }
    return d;
}

class IkSolver {
public:
    explicit IkSolver(Pose& pose) : pose_(pose) {}

    bool Solve(const std::set<int>& locks, int hotPin, Vec2 goal, int maxIterations, bool rotateSideTrees);

private:
    void FillCurrent();
    bool Converged() const;
    bool BuildGroups();
    std::vector<IkChain> ChainsToFixedPins();
    bool BuildChains(const PointMap& ends, const PointMap& starts, bool hasFixedEnd, IkGroup& group) const;
    int CountChainNeighbours(int pin, std::vector<bool>& collected);
    void CollectSideTree(int owner, int first);
    bool ReachTowardFixed();
    bool TestReach(IkGroup& group);
    bool SearchCrossing(IkGroup& group);
    void Straighten(const IkChain& chain, SolverPoint u);
    void Place(int from, int to, double bone);
    void PullToTarget(const IkGroup& group);
    void PullToFixed(const IkGroup& group);
    void Rebase(IkGroup& group, SolverPoint point);
    void AverageUnreached();
    void ReachTowardTarget();
    void WriteBack(bool rotateSideTrees);
    double BoneLength(const std::vector<IkLink>& path, std::size_t k) const;

    std::vector<IkGroup> groups_;  // from the target inward
    Children sideTrees_;           // for a pin on a path: the pins hanging off the paths there
    std::set<int> chainPins_;
    PointMap targets_;
    PointMap fixed_;

    Pose& pose_;
    Children children_;
    std::vector<WorldPoint> world_;  // before solving
    std::vector<SolverPoint> current_;
    std::vector<SolverPoint> previous_;
};

bool IkSolver::Solve(const std::set<int>& locks, int hotPin, Vec2 goal, int maxIterations,
                     bool rotateSideTrees) {
    const int count = static_cast<int>(pose_.size());
    if (hotPin < 0 || hotPin >= count) {
        return false;
    }
    WorldPositions(pose_, world_);
    FillCurrent();
    targets_[hotPin] = SolverPoint{goal.x, goal.y};
    for (int p : locks) {
        if (p != hotPin && p >= 0 && p < count) {
            fixed_[p] = current_[p];
        }
    }
    if (!BuildGroups()) {
        return false;
    }
    if (groups_.empty()) {
        // No lock is connected: hold the skeleton at its root.
        int root = hotPin;
        while (pose_[root].parent >= 0) {
            root = pose_[root].parent;
        }
        if (targets_.contains(root)) {
            return false;
        }
        fixed_[root] = current_[root];
        if (!BuildGroups()) {
            return false;
        }
    }
    FillCurrent();

    for (int iteration = 0; iteration < maxIterations; ++iteration) {
        previous_ = current_;
        if (!ReachTowardFixed()) {
            return false;
        }
        ReachTowardTarget();
        if (Converged()) {
            // Settled away from a fixed pin: the pose stays as it was.
            for (const auto& [pin, point] : fixed_) {
                if (Distance(point, current_[pin]) > kSettled) {
                    return true;
                }
            }
            break;
        }
    }
    WriteBack(rotateSideTrees);
    return true;
}

void IkSolver::FillCurrent() {
    current_.resize(world_.size());
    for (std::size_t i = 0; i < world_.size(); ++i) {
        current_[i] = SolverPoint{world_[i].x, world_[i].y};
    }
}

bool IkSolver::Converged() const {
    return std::all_of(chainPins_.begin(), chainPins_.end(),
                       [&](int pin) { return !(Distance(previous_[pin], current_[pin]) > kSettled); });
}

double IkSolver::BoneLength(const std::vector<IkLink>& path, std::size_t k) const {
    return path[k].up ? pose_[path[k].pin].length : pose_[path[k + 1].pin].length;
}

bool IkSolver::BuildChains(const PointMap& ends, const PointMap& starts, bool hasFixedEnd,
                           IkGroup& group) const {
    group = IkGroup{};
    for (const auto& [end, endPoint] : ends) {
        for (const auto& [start, startPoint] : starts) {
            IkChain chain;
            if (BuildPath(pose_, start, end, chain.path, chain.length)) {
                chain.fixedEnd = startPoint;
                chain.targetEnd = endPoint;
                group.chains.push_back(std::move(chain));
            }
        }
    }
    const std::vector<IkChain>& chains = group.chains;
    group.sharedTarget =
        chains.size() >= 2 && std::all_of(chains.begin(), chains.end(), [&](const IkChain& c) {
            return c.path.front().pin == chains.front().path.front().pin;
        });
    group.reachable = true;
    group.hasFixedEnd = hasFixedEnd;
    return !chains.empty();
}

std::vector<IkChain> IkSolver::ChainsToFixedPins() {
    IkGroup raw;
    BuildChains(targets_, fixed_, false, raw);
    std::vector<IkChain> chains;
    for (IkChain& chain : raw.chains) {
        // A chain through another fixed pin or target is served by the shorter chain through that pin.
        const auto inner = [&](const IkLink& link) {
            return fixed_.contains(link.pin) || targets_.contains(link.pin);
        };
        if (chain.path.size() > 2 && std::any_of(chain.path.begin() + 1, chain.path.end() - 1, inner)) {
            continue;
        }
        for (const IkLink& link : chain.path) {
            chainPins_.insert(link.pin);
        }
        chains.push_back(std::move(chain));
    }
    return chains;
}

bool IkSolver::BuildGroups() {
    groups_.clear();
    chainPins_.clear();
    sideTrees_.Reset(pose_.size());
    BuildChildren(pose_, children_);

    std::vector<IkChain> chains = ChainsToFixedPins();

    // Cut the chains at junctions and fixed pins into stretches; each round makes the groups of the
    // stretches that begin where the chains' cursors stand.
    std::vector<std::size_t> cursors(chains.size(), 0);
    std::vector<bool> collected(pose_.size(), false);
    const auto unfinished = [&] {
        for (std::size_t c = 0; c < chains.size(); ++c) {
            if (cursors[c] < chains[c].path.size()) {
                return true;
            }
        }
        return false;
    };
    while (unfinished()) {
        std::map<int, PointMap> work;  // start pin -> the ends of its stretches
        for (std::size_t c = 0; c < chains.size(); ++c) {
            const std::vector<IkLink>& path = chains[c].path;
            if (cursors[c] >= path.size()) {
                continue;
            }
            std::size_t next = path.size();
            for (std::size_t step = cursors[c]; step < path.size(); ++step) {
                const int pin = path[step].pin;
                const int neighbours = CountChainNeighbours(pin, collected);
                const bool isFixed = fixed_.contains(pin);
                if (neighbours == 1 && !isFixed && !targets_.contains(pin)) {
                    return false;
                }
                if ((neighbours > 2 && step != cursors[c]) || isFixed) {
                    work[path[cursors[c]].pin][pin] = isFixed ? fixed_[pin] : current_[pin];
                    // A fixed pin ends its chain; at a junction the next round goes on from there.
                    next = isFixed ? path.size() : step;
                    break;
                }
            }
            cursors[c] = next;
        }
        for (const auto& [start, ends] : work) {
            const auto target = targets_.find(start);
            const PointMap startPoint{{start, target != targets_.end() ? target->second : current_[start]}};
            const bool hasFixedEnd = std::any_of(ends.begin(), ends.end(),
                                                 [&](const auto& end) { return fixed_.contains(end.first); });
            IkGroup group;
            if (!BuildChains(startPoint, ends, hasFixedEnd, group)) {
                return false;
            }
            groups_.push_back(std::move(group));
        }
    }
    return true;
}

int IkSolver::CountChainNeighbours(int pin, std::vector<bool>& collected) {
    // A pin is met again by every chain through it and at both ends of a stretch; collect its side trees
    // only the first time.
    const bool collect = !collected[pin];
    collected[pin] = true;
    int count = 0;
    const auto visit = [&](int neighbour) {
        if (chainPins_.contains(neighbour)) {
            ++count;
        } else if (collect) {
            CollectSideTree(pin, neighbour);
        }
    };
    if (pose_[pin].parent >= 0) {
        visit(pose_[pin].parent);
    }
    children_.ForEach(pin, visit);
    return count;
}

void IkSolver::CollectSideTree(int owner, int first) {
    // Depth first through parents and children, never back the way the walk came.
    std::vector<std::pair<int, int>> stack{{first, owner}};
    while (!stack.empty()) {
        const int pin = stack.back().first;
        const int from = stack.back().second;
        stack.pop_back();
        sideTrees_.Add(owner, pin);
        const int parent = pose_[pin].parent;
        if (parent >= 0 && parent != from) {
            stack.emplace_back(parent, pin);
        }
        children_.ForEach(pin, [&](int child) {
            if (child != from) {
                stack.emplace_back(child, pin);
            }
        });
    }
}

bool IkSolver::ReachTowardFixed() {
    for (IkGroup& group : groups_) {
        for (IkChain& chain : group.chains) {
            const int first = chain.path.front().pin;
            const auto target = targets_.find(first);
            chain.targetEnd = target != targets_.end() ? target->second : current_[first];
        }
        if (!TestReach(group)) {
            return false;
        }
        const SolverPoint aim = group.chains.front().targetEnd;
        if (!group.reachable) {
            for (IkChain& chain : group.chains) {
                chain.targetEnd = current_[chain.path.front().pin];
            }
        }
        PullToTarget(group);
        if (!group.reachable) {
            Rebase(group, aim);
        }
    }
    AverageUnreached();
    return true;
}

bool IkSolver::TestReach(IkGroup& group) {
    group.reachable = true;
    for (IkChain& chain : group.chains) {
        chain.active = true;
    }
    bool searchCrossing = false;
    for (std::size_t c = 0; c < group.chains.size(); ++c) {
        IkChain& chain = group.chains[c];
        const SolverPoint d{chain.targetEnd.x - chain.fixedEnd.x, chain.targetEnd.y - chain.fixedEnd.y};
        if (!(d.x * d.x + d.y * d.y > chain.length * chain.length + kTolerance)) {
            continue;
        }
        group.reachable = false;
        const SolverPoint u = Direction(d);
        if (!group.sharedTarget) {
            Straighten(chain, u);
            chain.active = false;
            continue;
        }
        // Where this chain gets at full stretch; if every other chain reaches that point too, it will do.
        const SolverPoint p{chain.fixedEnd.x + u.x * chain.length, chain.fixedEnd.y + u.y * chain.length};
        bool reachedByAll = true;
        for (std::size_t o = 0; o < group.chains.size(); ++o) {
            const IkChain& other = group.chains[o];
            if (o != c && SquaredDistance(p, other.fixedEnd) > other.length * other.length + kTolerance) {
                reachedByAll = false;
            }
        }
        if (reachedByAll) {
            Straighten(chain, u);
            chain.active = false;
            return true;
        }
        searchCrossing = true;
    }
    return !searchCrossing || SearchCrossing(group);
}

bool IkSolver::SearchCrossing(IkGroup& group) {
    // Each chain reaches a circle about its fixed end. Of the crossing points of two circles that lie in
    // all the other circles, take the one nearest the first chain's target.
    std::vector<IkChain>& chains = group.chains;
    const SolverPoint aim = chains.front().targetEnd;
    double best = 3.4028234663852886e38;
    SolverPoint bestPoint;
    std::size_t bestI = 0;
    std::size_t bestJ = 0;
    bool found = false;
    for (std::size_t i = 0; i < chains.size(); ++i) {
        for (std::size_t j = i + 1; j < chains.size(); ++j) {
            const SolverPoint ci = chains[i].fixedEnd;
            const double ri = chains[i].length;
            const double rj = chains[j].length;
            const SolverPoint v{chains[j].fixedEnd.x - ci.x, chains[j].fixedEnd.y - ci.y};
            const double d = std::sqrt(v.x * v.x + v.y * v.y);
            const double a = (ri * ri - rj * rj + d * d) / (2 * d);
            // Circles that only touch give the root of a tiny negative number: not a number, which fails
            // every comparison below and so counts as no crossing.
            const double h = std::sqrt(ri * ri - a * a);
            const SolverPoint crossings[2] = {
                {ci.x + (a * v.x - h * v.y) / d, ci.y + (a * v.y + h * v.x) / d},
                {ci.x + (a * v.x + h * v.y) / d, ci.y + (a * v.y - h * v.x) / d},
            };
            for (const SolverPoint& point : crossings) {
                bool inside = true;
                for (std::size_t k = 0; k < chains.size(); ++k) {
                    const IkChain& other = chains[k];
                    if (k != i && k != j &&
                        !(SquaredDistance(point, other.fixedEnd) <=
                          other.length * other.length + kTolerance)) {
                        inside = false;
                    }
                }
                const double distance = SquaredDistance(point, aim);
                if (inside && distance < best) {
                    best = distance;
                    bestPoint = point;
                    bestI = i;
                    bestJ = j;
                    found = true;
                }
            }
        }
    }
    if (!found) {
        return false;
    }
    for (const std::size_t c : {bestI, bestJ}) {
        IkChain& chain = chains[c];
        Straighten(chain,
                   Direction(SolverPoint{bestPoint.x - chain.fixedEnd.x, bestPoint.y - chain.fixedEnd.y}));
        chain.active = false;
    }
    return true;
}

void IkSolver::Straighten(const IkChain& chain, SolverPoint u) {
    const std::vector<IkLink>& path = chain.path;
    for (std::size_t k = path.size() - 1; k-- > 0;) {
        const double bone = BoneLength(path, k);
        const SolverPoint next = current_[path[k + 1].pin];
        current_[path[k].pin] = SolverPoint{next.x + u.x * bone, next.y + u.y * bone};
    }
}

void IkSolver::Place(int from, int to, double bone) {
    const SolverPoint base = current_[from];
    const SolverPoint d = Direction(SolverPoint{current_[to].x - base.x, current_[to].y - base.y});
    current_[to] = SolverPoint{base.x + d.x * bone, base.y + d.y * bone};
}

void IkSolver::PullToTarget(const IkGroup& group) {
    for (const IkChain& chain : group.chains) {
        if (!chain.active) {
            continue;
        }
        const std::vector<IkLink>& path = chain.path;
        current_[path.front().pin] = chain.targetEnd;
        for (std::size_t k = 1; k < path.size(); ++k) {
            Place(path[k - 1].pin, path[k].pin, BoneLength(path, k - 1));
        }
    }
}

void IkSolver::PullToFixed(const IkGroup& group) {
    SolverPoint sum;
    for (const IkChain& chain : group.chains) {
        const std::vector<IkLink>& path = chain.path;
        current_[path.back().pin] = chain.fixedEnd;
        for (std::size_t k = path.size() - 1; k > 0; --k) {
            Place(path[k].pin, path[k - 1].pin, BoneLength(path, k - 1));
        }
        sum.x += current_[path.front().pin].x;
        sum.y += current_[path.front().pin].y;
    }
    if (group.sharedTarget) {
        // The branches meet at the mean of where each of them put the shared pin.
        const auto n = static_cast<double>(group.chains.size());
        current_[group.chains.front().path.front().pin] = SolverPoint{sum.x / n, sum.y / n};
    }
}

void IkSolver::Rebase(IkGroup& group, SolverPoint point) {
    if (group.sharedTarget) {
        const SolverPoint first = current_[group.chains.front().path.front().pin];
        const SolverPoint delta{point.x - first.x, point.y - first.y};
        std::vector<bool> moved(current_.size(), false);
        for (IkChain& chain : group.chains) {
            chain.targetEnd = point;
            for (const IkLink& link : chain.path) {
                if (!moved[link.pin]) {
                    moved[link.pin] = true;
                    current_[link.pin].x += delta.x;
                    current_[link.pin].y += delta.y;
                }
            }
        }
        return;
    }
    for (IkChain& chain : group.chains) {
        chain.targetEnd = point;
        const SolverPoint first = current_[chain.path.front().pin];
        const SolverPoint delta{point.x - first.x, point.y - first.y};
        for (const IkLink& link : chain.path) {
            current_[link.pin].x += delta.x;
            current_[link.pin].y += delta.y;
        }
    }
}

void IkSolver::AverageUnreached() {
    // Each arm that couldn't reach proposes the whole solved skeleton shifted back onto its fixed pin;
    // the skeleton takes the mean of the proposals.
    const std::vector<SolverPoint> kept = current_;
    std::vector<std::vector<SolverPoint>> proposals;
    for (auto group = groups_.rbegin(); group != groups_.rend(); ++group) {
        if (!group->hasFixedEnd) {
            continue;
        }
        for (const IkChain& chain : group->chains) {
            const int last = chain.path.back().pin;
            if (chain.active || !fixed_.contains(last)) {
                continue;
            }
            const SolverPoint offset{chain.fixedEnd.x - current_[last].x,
                                     chain.fixedEnd.y - current_[last].y};
            for (int pin : chainPins_) {
                current_[pin].x += offset.x;
                current_[pin].y += offset.y;
            }
            proposals.push_back(current_);
            current_ = kept;
        }
    }
    if (proposals.empty()) {
        return;
    }
    // Pins off the paths are the same in every proposal.
    const auto n = static_cast<double>(proposals.size());
    for (int pin : chainPins_) {
        SolverPoint sum;
        for (const std::vector<SolverPoint>& proposal : proposals) {
            sum.x += proposal[pin].x;
            sum.y += proposal[pin].y;
        }
        current_[pin] = SolverPoint{sum.x / n, sum.y / n};
    }
}

void IkSolver::ReachTowardTarget() {
    for (auto group = groups_.rbegin(); group != groups_.rend(); ++group) {
        for (IkChain& chain : group->chains) {
            const int last = chain.path.back().pin;
            if (!fixed_.contains(last)) {
                chain.fixedEnd = current_[last];
            }
        }
        if (group->hasFixedEnd) {
            for (int pass = 0; pass < kInnerPasses; ++pass) {
                PullToFixed(*group);
                for (IkChain& chain : group->chains) {
                    chain.targetEnd = current_[chain.path.front().pin];
                }
                PullToTarget(*group);
                const bool settled =
                    std::all_of(group->chains.begin(), group->chains.end(), [&](const IkChain& c) {
                        return Distance(c.fixedEnd, current_[c.path.back().pin]) <= kSettled;
                    });
                if (settled) {
                    break;
                }
            }
        }
        PullToFixed(*group);
    }
}

void IkSolver::WriteBack(bool rotateSideTrees) {
    // Carry the side trees with the pin they hang from, turned with its bone when asked.
    std::vector<bool> handled(current_.size(), false);
    for (const IkGroup& group : groups_) {
        for (const IkChain& chain : group.chains) {
            for (std::size_t k = 0; k + 1 < chain.path.size(); ++k) {
                const int a = chain.path[k].pin;
                const int b = chain.path[k + 1].pin;
                if (handled[a]) {
                    continue;
                }
                handled[a] = true;
                if (sideTrees_.IsEmpty(a)) {
                    continue;
                }
                const SolverPoint oldA{world_[a].x, world_[a].y};
                const SolverPoint oldB{world_[b].x, world_[b].y};
                const SolverPoint newA = current_[a];
                const SolverPoint newB = current_[b];
                const SolverPoint delta{newA.x - oldA.x, newA.y - oldA.y};
                const double turn = std::atan2(newB.y - newA.y, newB.x - newA.x) -
                                    std::atan2(oldB.y - oldA.y, oldB.x - oldA.x);
                const double cosTurn = std::cos(turn);
                const double sinTurn = std::sin(turn);
                sideTrees_.ForEach(a, [&](int o) {
                    SolverPoint p{current_[o].x + delta.x, current_[o].y + delta.y};
                    if (rotateSideTrees) {
                        const double rx = p.x - newA.x;
                        const double ry = p.y - newA.y;
                        p = SolverPoint{newA.x + rx * cosTurn - ry * sinTurn,
                                        newA.y + rx * sinTurn + ry * cosTurn};
                    }
                    current_[o] = p;
                });
            }
        }
    }

    for (std::size_t i = 0; i < pose_.size(); ++i) {
        WirrelPin& pin = pose_[i];
        const SolverPoint p = current_[i];
        if (pin.parent < 0) {
            pin.angle = static_cast<float>(NormalizeAngle(std::atan2(p.y, p.x)));
            pin.length = static_cast<float>(std::sqrt(p.x * p.x + p.y * p.y));
        } else {
            const SolverPoint q = current_[pin.parent];
            pin.angle = static_cast<float>(NormalizeAngle(std::atan2(p.y - q.y, p.x - q.x)));
        }
    }
}

}  // namespace

bool BuildPath(const Pose& pose, int from, int to, std::vector<IkLink>& path, double& length) {
    path.clear();
    length = 0.0;
    if (from == to) {
        return false;
    }
    std::vector<bool> marked(pose.size(), false);  // `to` and its ancestors
    for (int p = to; p >= 0; p = pose[p].parent) {
        marked[p] = true;
    }
    std::vector<int> kept;
    int ancestor = from;
    while (ancestor >= 0 && !marked[ancestor]) {
        kept.push_back(ancestor);
        ancestor = pose[ancestor].parent;
    }
    if (ancestor < 0) {
        return false;
    }
    for (int p = to; p != ancestor; p = pose[p].parent) {
        path.push_back(IkLink{p, 1, 0});
        length += pose[p].length;
    }
    path.push_back(IkLink{ancestor, 0, 0});
    for (auto p = kept.rbegin(); p != kept.rend(); ++p) {
        path.push_back(IkLink{*p, 0, 1});
        length += pose[*p].length;
    }
    return true;
}

bool SolveIk(Pose& pose, const std::set<int>& locks, int hotPin, Vec2 goal, int maxIterations,
             bool rotateSideTrees) {
    IkSolver solver(pose);
    return solver.Solve(locks, hotPin, goal, maxIterations, rotateSideTrees);
}

}  // namespace kovra
