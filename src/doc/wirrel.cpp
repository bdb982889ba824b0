#include "doc/wirrel.h"

#include <algorithm>

namespace kovra {

void SetName(Name32& name, std::string_view text) {
    std::size_t length = std::min<std::size_t>(text.size(), name.size() - 1);
    // Step back over continuation bytes so that a cut never splits a character.
    if (length < text.size()) {
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
            --length;
        }
    }
    name.fill('\0');
    std::copy_n(text.begin(), length, name.begin());
}

Name32 MakeName(std::string_view text) {
    Name32 name{};
    SetName(name, text);
    return name;
}

std::string_view NameOf(const Name32& name) {
    return std::string_view(name.data(), std::find(name.begin(), name.end(), '\0') - name.begin());
}

float AnimLengthSeconds(const WirrelAnim& anim, std::uint32_t ticksPerSecond) {
    if (ticksPerSecond == 0) {
        return 0.0f;
    }
    std::uint64_t ticks = 0;
    for (const WirrelKey& key : anim.keys) {
        ticks += key.ticks;
    }
    return static_cast<float>(static_cast<double>(ticks) / ticksPerSecond);
}

}  // namespace kovra
