#include "support/image_library.h"

#include "images/vyl_lib.h"

namespace kovra::test {

void StartImageLibrary() {
    static const bool started = [] {
        VylLibInit();
        return true;
    }();
    (void)started;
}

}  // namespace kovra::test
