#pragma once
// The drawing context of a memory bitmap: the pixels selected into it, which text is rendered into. A
// surface creates its context together with its pixels and selects them into it.

#include "bitmap/bitmap.h"

namespace aurel {

class DeviceContext {
public:
    void Select(const WrapperBitmap& bitmap) { selected_ = bitmap; }
    WrapperBitmap& Selected() { return selected_; }

private:
    WrapperBitmap selected_;
};

}  // namespace aurel
