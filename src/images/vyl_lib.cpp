#include "images/vyl_lib.h"

#include <magick/MagickCore.h>

namespace kovra {

void VylLibInit() {
    MagickCoreGenesis(nullptr, MagickFalse);
    // The program has one thread; the codec library must not start its own.
    SetMagickResourceLimit(ThreadResource, 1);
}

void VylLibExit() { MagickCoreTerminus(); }

}  // namespace kovra
