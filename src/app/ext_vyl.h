#pragma once
// The image library as an external library of the App: started with the program, ended with it.

#include "app/i_external_lib.h"

namespace aurel {

class ExtVyl : public IExternalLib {
public:
    bool Init(App& app) override;
    void Shutdown() override;
    void Update(float) override {}
};

}  // namespace aurel
