#pragma once
// The posing subcommands of kovra-cli: pose samples an animation at a play position, ik drags a pin of a
// key frame with the inverse kinematics solver. Both print one JSON object on stdout and answer the
// exit code: 0 when they did their work, 1 after one line on stderr when the file or an argument is bad.

#include <string>
#include <vector>

namespace kovra::cli {

// FILE ANIM FRAMEPOS: the world position of every pin at that play position, in the sampled pose's order.
int RunPose(const std::vector<std::string>& args);

// FILE ANIM FRAME PIN X Y [--lock PIN]... [--rotate-children]: the solve's result and every pin after it.
// PIN and the locks are indices in the key frame's vector.
int RunIk(const std::vector<std::string>& args);

}  // namespace kovra::cli
