#include "app/ext_vyl.h"

#include "images/vyl_lib.h"

namespace aurel {

bool ExtVyl::Init(App&) {
    kovra::VylLibInit();
    return true;
}

void ExtVyl::Shutdown() { kovra::VylLibExit(); }

}  // namespace aurel
